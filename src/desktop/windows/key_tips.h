#pragma once

#include "desktop/panel/panel_layout.h"

namespace tarnvex::desktop {

/// The layout with a tip for each key: what the key does, the letter that types it, and what the
/// right mouse button does.
PanelLayout withTips(PanelLayout layout);

}  // namespace tarnvex::desktop
