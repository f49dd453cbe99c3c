#pragma once

#include <array>
#include <string>
#include <string_view>

namespace tarnvex::trunking {

/// A kind of trunked system, as a bank of the BC245XLT can hold it.
struct TrunkSystemType {
  std::string_view name;
  /// What the radio calls it.
  std::string_view word;
  /// Eleven characters for the main line of the display in the system type step.
  std::string_view display;
  /// Offset steps that `Form3` offers, in units of 100 Hz: the first one, which is also their
  /// distance, and the last one. 0 for a type that has neither base frequency nor step.
  int firstStep;
  int lastStep;

  [[nodiscard]] constexpr bool tuned() const { return firstStep > 0; }
};

/// All types in the order of `Form3`. The radio's number of a type is its index plus 1.
const std::array<TrunkSystemType, 6>& systemTypes();

/// The index of the type whose word this is, -1 if there is none. The whole text is compared.
int systemTypeOf(std::string_view word);

/// The display text for a word; a word that is none of the table's stays as it is.
std::string systemTypeDisplay(std::string_view word);

}  // namespace tarnvex::trunking
