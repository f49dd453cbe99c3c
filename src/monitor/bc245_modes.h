#pragma once

#include <optional>
#include <string_view>

namespace tarnvex::monitor {

/// The branch of the BC245XLT's poll for a mode.
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
  /// The caption of `TrunkType`.
  std::string_view trunkType;
  Bc245Branch branch;
  std::optional<bool> scan = {};
  std::optional<bool> hold = {};
  std::optional<bool> trunk = {};
  std::optional<bool> police = {};
};

/// The mode with this code, or nullptr for an unknown code.
const Bc245Mode* findBc245Mode(std::string_view code);

/// Whether the radio follows IDs in this mode, searching or on hold.
bool followsIds(std::string_view code);
/// Whether the radio is on hold on an ID.
bool holdsId(std::string_view code);

}  // namespace tarnvex::monitor
