#pragma once

#include <array>
#include <string>
#include <vector>

/// The fleet map of a Motorola Type I system divides its ID space into eight blocks.
namespace tarnvex::trunking {

inline constexpr int kFleetBlocks = 8;

/// Size code of a block: 0 to 14 for "S-0" to "S-14".
using SizeCode = int;
/// The largest codes take the following blocks as well.
inline constexpr SizeCode kTwoBlocks = 12;
inline constexpr SizeCode kFourBlocks = 13;
inline constexpr SizeCode kAllBlocks = 14;
/// "-----": the block is taken by a larger one before it. Never sent to the radio.
inline constexpr SizeCode kTaken = 15;

/// The size codes of blocks 0 to 7.
using FleetMap = std::array<SizeCode, kFleetBlocks>;

/// A fleet map with a name.
struct FleetPreset {
  std::string_view name;
  FleetMap map;
};

/// The maps in common use, under the names that scanner users know.
const std::array<FleetPreset, 16>& fleetPresets();

/// The texts of the size codes, by index.
std::vector<std::string> sizeCodeNames();

/// The number of blocks that a size code takes, including its own.
constexpr int blocksOf(SizeCode code) {
  switch (code) {
    case kTwoBlocks:
      return 2;
    case kFourBlocks:
      return 4;
    case kAllBlocks:
      return kFleetBlocks;
    default:
      return 1;
  }
}

}  // namespace tarnvex::trunking
