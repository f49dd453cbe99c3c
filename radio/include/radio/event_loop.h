#pragma once

#include "radio/wire.h"

namespace tarnvex::radio {

/// The steady clock of this machine.
Instant clockNow();

/// Blocks SIGINT, SIGTERM and SIGHUP, to be met in runWire(). Call before anything else.
void holdSignals();

/// Serves the wire until a signal, "quit" or, with `control`, the end of standard input. Sleeps
/// until something is to be done. Prints "ready PATH" first; throws std::system_error.
void runWire(Wire& wire, bool control);

}  // namespace tarnvex::radio
