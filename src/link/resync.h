#pragma once

#include <optional>
#include <string>

#include "platform/serial_port.h"

/// Getting back in step with the radio. The flush before a command throws away only what has
/// arrived; a line that is still under way then passes for the answer. Where the program can tell
/// that this has happened, or may have, it waits until nothing is under way any more.
namespace tarnvex::link {

/// Spins without a byte after which the line counts as quiet (80 ms), and spins after which a line
/// that never falls quiet is used as it is (0.5 s).
inline constexpr int kQuietSpins = 2000;
inline constexpr int kMostQuietSpins = 12500;

/// Throws away what arrives until the line is quiet. Waits in the port, so the window stays alive.
/// Returns at once on a closed port or when the device is gone.
void letFallQuiet(platform::SerialPort& port);

/// Opens a port and lets the line fall quiet: an answer to an earlier user of the port may be under
/// way. Returns the description of a failure to open, or nothing on success.
std::optional<std::string> openQuietly(platform::SerialPort& port);

}  // namespace tarnvex::link
