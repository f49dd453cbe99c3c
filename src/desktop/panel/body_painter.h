#pragma once

#include <QPainter>

#include "desktop/panel/panel_layout.h"

namespace tarnvex::desktop {

/// Draws all that never changes: body, frame of the display, fittings, print, knob, keys at rest.
/// The painter is in units.
void paintBody(QPainter& painter, const PanelLayout& layout);

}  // namespace tarnvex::desktop
