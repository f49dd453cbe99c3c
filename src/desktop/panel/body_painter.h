#pragma once

#include <QPainter>

#include "desktop/panel/panel_layout.h"

namespace tarnvex::desktop {

/// Draws everything that never changes: the body, the frame of the display, fittings, print, the
/// knob and the keys at rest. The painter uses layout units.
void paintBody(QPainter& painter, const PanelLayout& layout);

}  // namespace tarnvex::desktop
