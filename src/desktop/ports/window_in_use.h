#pragma once

#include <QWidget>

namespace tarnvex::desktop {

/// The window that a message or dialog belongs over: the active one, or else any that is on the
/// screen. Null if there is none.
QWidget* windowInUse();

}  // namespace tarnvex::desktop
