#pragma once

#include "desktop/panel/panel_layout.h"

/// Finds keys and knob on a front panel, for pointers and arrow keys. Points are in layout units.
namespace tarnvex::desktop {

/// The index of the key at this point, or -1.
int keyAt(const PanelLayout& layout, const QPointF& point);

/// Whether the point is on the knob or its ring of marks.
bool isOnKnob(const PanelLayout& layout, const QPointF& point);

/// The key that an arrow key (`Qt::Key_Left` ...) leads to from key `from`: the nearest one in that
/// direction, those straight ahead first. `from` itself if there is none.
int neighbourKey(const PanelLayout& layout, int from, Qt::Key arrow);

}  // namespace tarnvex::desktop
