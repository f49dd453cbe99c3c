#include "link/tone_table.h"

namespace tarnvex::link {

const std::array<std::string, 40>& ToneTable() {
  static const std::array<std::string, 40> kTones = {
      "",      "67.0",  "71.9",  "74.4",  "77.0",  "79.7",  "82.5",  "85.4",  "88.5",  "91.5",
      "94.8",  "97.4",  "100.0", "103.5", "107.2", "110.9", "114.8", "118.8", "123.0", "127.3",
      "131.8", "136.5", "141.3", "146.2", "151.4", "156.7", "162.2", "167.9", "173.8", "179.9",
      "186.2", "192.8", "203.5", "210.7", "218.1", "225.7", "233.6", "241.8", "250.3", ""};
  return kTones;
}

const std::string* toneText(std::optional<int> number) {
  const bool known = number && *number >= 0 && *number < static_cast<int>(ToneTable().size());
  return known ? &ToneTable()[static_cast<std::size_t>(*number)] : nullptr;
}

}  // namespace tarnvex::link
