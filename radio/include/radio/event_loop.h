#pragma once

#include "radio/wire.h"

namespace tarnvex::radio {

/// The steady clock of this machine.
Instant clockNow();

/// Blocks SIGINT, SIGTERM and SIGHUP, which then end runWire(). Call before anything else.
void holdSignals();

/// Asks the system to wake this program before others, so that the line keeps its speed on a busy
/// computer. Has no effect for users without the necessary permission.
void preferTiming();

/// Prints "ready PATH", then runs the wire until a signal, "quit" or, with `control`, the end of
/// standard input. Sleeps while there is nothing to do. Throws std::system_error.
void runWire(Wire& wire, bool control);

}  // namespace tarnvex::radio
