#include "monitor/poll_cycle.h"

namespace tarnvex::monitor {

std::string mainTitle(const std::string& planName) {
  return "Tarnvex - " + (planName.empty() ? "Untitled" : planName);
}

}  // namespace tarnvex::monitor
