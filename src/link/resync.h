#pragma once

#include <optional>
#include <string>

#include "platform/serial_port.h"

/// Getting back in step with the radio. The flush before a command discards only what has arrived;
/// a line that is still on its way is then taken for the answer. If this has happened, or may have,
/// the program waits until the line is quiet.
namespace tarnvex::link {

/// Spins without a byte after which the line counts as quiet (80 ms), and spins after which a line
/// that never falls quiet is used as it is (0.5 s).
inline constexpr int kQuietSpins = 2000;
inline constexpr int kMostQuietSpins = 12500;

/// Discards what arrives until the line is quiet. The window stays responsive meanwhile. Returns at
/// once on a closed port or when the device is gone.
void letFallQuiet(platform::SerialPort& port);

/// The same before an exchange. A text without line ends has no time limit: the answer would come
/// at its end. False if the user leaves meanwhile; the exchange is then of no use.
bool waitUntilUsable(platform::SerialPort& port);

/// Opens a port and waits until the line is quiet, since an answer to an earlier user of the port
/// may be on its way. Returns the description of a failure to open, or nothing on success.
std::optional<std::string> openQuietly(platform::SerialPort& port);

}  // namespace tarnvex::link
