#pragma once

#include "radio/wire.h"

namespace tarnvex::radio {

/// The steady clock of this machine.
Instant clockNow();

/// Blocks SIGINT, SIGTERM and SIGHUP, to be met in runWire(). Call before anything else.
void holdSignals();

/// Asks the system to wake this program before others, as a radio isn't slowed down by what else
/// its computer does. Without the right to ask, nothing happens.
void preferTiming();

/// Serves the wire until a signal, "quit" or, with `control`, the end of standard input. Sleeps
/// until something is to be done. Prints "ready PATH" first; throws std::system_error.
void runWire(Wire& wire, bool control);

}  // namespace tarnvex::radio
