#include "trunking/fleet_map.h"

namespace tarnvex::trunking {

const std::array<FleetPreset, 16>& fleetPresets() {
  // Deliberate: the last two equal the two before them.
  static constexpr std::array<FleetPreset, 16> kPresets{{
      {"E1-P1", {11, 11, 11, 11, 11, 11, 11, 11}},
      {"E1-P2", {4, 4, 4, 4, 4, 4, 4, 4}},
      {"E1-P3", {4, 4, 4, 4, 4, 4, 12, 15}},
      {"E1-P4", {12, 15, 4, 4, 4, 4, 4, 4}},
      {"E1-P5", {4, 4, 12, 15, 4, 4, 4, 4}},
      {"E1-P6", {3, 10, 4, 4, 12, 15, 12, 15}},
      {"E1-P7", {10, 10, 11, 4, 4, 4, 4, 4}},
      {"E1-P8", {1, 1, 2, 2, 3, 3, 4, 4}},
      {"E1-P9", {4, 4, 0, 0, 0, 0, 0, 0}},
      {"E1-P10", {0, 0, 0, 0, 0, 0, 4, 4}},
      {"E1-P11", {4, 0, 0, 0, 0, 0, 0, 0}},
      {"E1-P12", {0, 0, 0, 0, 0, 0, 0, 4}},
      {"E1-P13", {3, 3, 11, 4, 4, 0, 0, 0}},
      {"E1-P14", {4, 3, 10, 4, 4, 4, 12, 15}},
      {"E1-P15", {3, 3, 11, 4, 4, 0, 0, 0}},
      {"E1-P16", {4, 3, 10, 4, 4, 4, 12, 15}},
  }};
  return kPresets;
}

std::vector<std::string> sizeCodeNames() {
  std::vector<std::string> names;
  names.reserve(kTaken + 1);
  for (SizeCode code = 0; code < kTaken; ++code) {
    names.push_back("S-" + std::to_string(code));
  }
  names.emplace_back("-----");
  return names;
}

}  // namespace tarnvex::trunking
