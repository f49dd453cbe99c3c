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

bool waitUntilUsable(platform::SerialPort& port) {
  int waited = 0;
  bool hasLines = false;
  platform::Spins budget{kQuietSpins};
  while (port.waitForInput(1, budget)) {
    waited += kQuietSpins - budget.left + 1;
    budget.left = kQuietSpins;
    hasLines = port.input().find('\r') != std::string::npos || hasLines;
    if (hasLines && waited >= kMostQuietSpins) {
      return true;
    }
    // Longer than any line of the radio takes.
    if (!hasLines && waited >= kQuietSpins && port.userLeaves()) {
      return false;
    }
  }
  return true;
}

std::optional<std::string> openQuietly(platform::SerialPort& port) {
  if (auto failure = port.open()) {
    return failure;
  }
  letFallQuiet(port);
  return std::nullopt;
}

}  // namespace tarnvex::link
