#pragma once

#include <QWidget>

namespace tarnvex::desktop {

/// Takes a window off the screen for good and deletes it once the event loop is back. Nothing that
/// the user still does reaches its form: its open menus close, its questions are withdrawn, and a
/// button that is held down has no click any more.
void takeOffScreen(QWidget* window);

}  // namespace tarnvex::desktop
