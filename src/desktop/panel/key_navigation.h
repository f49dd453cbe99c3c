#pragma once

#include "desktop/panel/panel_layout.h"

namespace tarnvex::desktop {

/// The key that an arrow key (`Qt::Key_Left` ...) leads to from key `from`: the nearest one in that
/// direction, those straight ahead first. `from` itself if there is none.
int neighbourKey(const PanelLayout& layout, int from, Qt::Key arrow);

}  // namespace tarnvex::desktop
