#pragma once

#include <optional>
#include <string_view>

namespace tarnvex::monitor {

/// What the poll of the BC245XLT does in a mode.
enum class Bc245Branch {
  Nothing,
  Conventional,
  Search,
  Program,
  SelectBank,
  IdSearch,
  Trunked,
};

/// A mode of the BC245XLT. Indicators without a value stay as an earlier mode left them.
struct Bc245Mode {
  std::string_view code;
  /// Caption of `TrunkType`.
  std::string_view trunkType;
  Bc245Branch branch;
  std::optional<bool> scan = {};
  std::optional<bool> hold = {};
  std::optional<bool> trunk = {};
  std::optional<bool> police = {};
};

/// The mode of that code; nullptr for a code that isn't known.
const Bc245Mode* findBc245Mode(std::string_view code);

/// Whether the radio follows IDs in that mode, searching or on hold.
bool followsIds(std::string_view code);
/// Whether it is on hold on one of them.
bool holdsId(std::string_view code);

}  // namespace tarnvex::monitor
