#pragma once

#include <QWidget>

namespace tarnvex::desktop {

/// Closes a window for good, and deletes it when control returns to the event loop. From now on
/// nothing that the user does reaches its form: its menus and questions close, and releasing a
/// button that is held down doesn't count as a click.
void takeOffScreen(QWidget* window);

}  // namespace tarnvex::desktop
