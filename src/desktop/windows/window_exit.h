#pragma once

#include <QWidget>

namespace tarnvex::desktop {

/// Removes a window from the screen for good, and deletes it when control returns to the event
/// loop. Nothing that the user still does reaches its form: its menus and questions close, and a
/// button that is held down gives no click.
void takeOffScreen(QWidget* window);

}  // namespace tarnvex::desktop
