#pragma once

#include "desktop/panel/panel_layout.h"

namespace tarnvex::desktop {

/// The layout with a tip on each key: what the key does, the letter that types it, and what the
/// right mouse button does there.
PanelLayout withTips(PanelLayout layout);

}  // namespace tarnvex::desktop
