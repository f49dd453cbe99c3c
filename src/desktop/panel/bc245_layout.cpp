#include "desktop/panel/panel_layout.h"
namespace tarnvex::desktop {
PanelLayout bc245Layout() {
  return bc895Layout();
}
}  // namespace tarnvex::desktop
