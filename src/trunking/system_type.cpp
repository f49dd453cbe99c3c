#include "trunking/system_type.h"

#include <algorithm>

namespace tarnvex::trunking {

const std::array<TrunkSystemType, 6>& systemTypes() {
  static constexpr std::array<TrunkSystemType, 6> kTypes = {{
      {"Motorola Type 1", "TYPE1", "E1         ", 0, 0},
      {"Motorola Type 2 800", "E2-800", "E2-800     ", 0, 0},
      // Deliberate: the display shows "E9-800", although the radio's word is "E2-900".
      {"Motorola Type 2 900", "E2-900", "E9-800     ", 0, 0},
      {"Motorola Type 2 UHF", "E2-UHF", "E2-UHF     ", 5, 100},
      {"Motorola Type 2 VHF", "E2-VHF", "E2-VHF     ", 125, 1000},
      {"EDACS", "EDACS", "EDACS      ", 0, 0},
  }};
  return kTypes;
}

int systemTypeOf(std::string_view word) {
  const auto& types = systemTypes();
  const auto* const found = std::ranges::find(types, word, &TrunkSystemType::word);
  return found == types.end() ? -1 : static_cast<int>(found - types.begin());
}

std::string systemTypeDisplay(std::string_view word) {
  const int index = systemTypeOf(word);
  return std::string(index < 0 ? word : systemTypes()[static_cast<std::size_t>(index)].display);
}

}  // namespace tarnvex::trunking
