#include "link/resync.h"

namespace tarnvex::link {

void letFallQuiet(platform::SerialPort& port) {
  if (!port.portOpen()) {
    return;
  }
  int left = kMostQuietSpins;
  port.discardInput();
  while (left > 0) {
    platform::Spins budget{kQuietSpins};
    if (!port.waitForInput(1, budget)) {
      return;
    }
    left -= kQuietSpins - budget.left + 1;
    port.discardInput();
  }
}

std::optional<std::string> openQuietly(platform::SerialPort& port) {
  if (auto failure = port.open()) {
    return failure;
  }
  letFallQuiet(port);
  return std::nullopt;
}

}  // namespace tarnvex::link
