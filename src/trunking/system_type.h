#pragma once

#include <array>
#include <string>
#include <string_view>

namespace tarnvex::trunking {

/// A type of trunked system that a bank of the BC245XLT can have.
struct TrunkSystemType {
  std::string_view name;
  /// The radio's word for it.
  std::string_view word;
  /// The main line of the display while the user chooses a system type: eleven characters.
  std::string_view display;
  /// The first and last offset step in `Form3`, in units of 100 Hz. The first is also the distance
  /// between steps. 0 for a type without base frequency and offset.
  int firstStep;
  int lastStep;

  [[nodiscard]] constexpr bool tuned() const { return firstStep > 0; }
};

/// All types, in the order of `Form3`. The radio's number for a type is its index plus 1.
const std::array<TrunkSystemType, 6>& systemTypes();

/// The index of the type with exactly this word. -1 if there is none.
int systemTypeOf(std::string_view word);

/// The display text for a word. An unknown word is returned unchanged.
std::string systemTypeDisplay(std::string_view word);

}  // namespace tarnvex::trunking
