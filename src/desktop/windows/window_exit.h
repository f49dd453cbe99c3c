#pragma once

#include <QWidget>

#include "platform/event_gate.h"

namespace tarnvex::desktop {

/// Closes a window for good. From now on nothing that the user does reaches its form: its menus and
/// questions close, and releasing a button that is held down doesn't count as a click.
///
/// The window is deleted once the core is idle and control has returned to the event loop. The core
/// may have been called by one of the window's own menus, which Qt goes on using.
void takeOffScreen(QWidget* window, platform::EventGate& gate);

}  // namespace tarnvex::desktop
