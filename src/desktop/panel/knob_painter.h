#pragma once

#include <QPainter>

#include "desktop/panel/panel_layout.h"

/// Draws the tuning knob. The painter uses layout units.
namespace tarnvex::desktop {

/// Draws the parts that never change: ring of dark marks, skirt, cap.
void paintKnob(QPainter& painter, const PanelKnob& knob);

/// Draws the finger dimple at mark `angleMark`, and mark `litMark` lit (-1 for none).
void paintKnobPosition(QPainter& painter, const PanelKnob& knob, int angleMark, int litMark);

}  // namespace tarnvex::desktop
