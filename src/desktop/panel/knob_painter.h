#pragma once

#include <QPainter>

#include "desktop/panel/panel_layout.h"

/// Draws the tuning knob. The painter uses layout units.
namespace tarnvex::desktop {

/// The parts that never change: ring of dark marks, skirt, cap.
void paintKnob(QPainter& painter, const PanelKnob& knob);

/// The finger dimple turned to mark `angleMark`, and mark `litMark` alight (-1: none).
void paintKnobPosition(QPainter& painter, const PanelKnob& knob, int angleMark, int litMark);

}  // namespace tarnvex::desktop
