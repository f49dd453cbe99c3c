#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Text and numbers. Core text is Windows-1252, one byte a character, so that positions are
/// positions.
///
/// Continue-on-failure: a conversion that fails gives nothing, and the statement that wanted its
/// value is skipped. `assign` is that idiom; no conversion throws.
namespace tarnvex::platform {

/// The `length` characters of `text` from position `start` on, counted from 1; fewer where the text
/// ends.
std::string mid(std::string_view text, std::size_t start, std::size_t length);
/// The characters from position `start`, counted from 1, to the end.
std::string mid(std::string_view text, std::size_t start);

/// A text as a real number: blanks around it, a sign, a decimal point and an exponent are allowed,
/// nothing else.
std::optional<double> toReal(std::string_view text);
/// A text as a 16-bit integer. A fraction rounds half to even; nothing if it isn't a number or out
/// of range.
std::optional<int> toInteger(std::string_view text);
/// A real number as a 16-bit integer, likewise.
std::optional<int> toInteger(double value);

/// The number's decimal text in its shortest form, at most 15 significant digits: 1.5 gives
/// "1.5", 3.0 gives "3".
std::string shortest(double value);

/// The numeric picture: in `mask` "0" pads with zeros and "#" drops leading (or trailing) zeros,
/// around at most one point. Rounds half away from zero; a value with more digits than the mask
/// keeps them all. "#" alone shows zero as the empty text.
std::string format(double value, std::string_view mask);
/// As above for a text that reads as a number; any other text stays as it is.
std::string format(std::string_view text, std::string_view mask);

/// Rounds half to even, as every conversion of a real to an integer does here.
double roundHalfEven(double value);

/// Continue-on-failure: gives `target` the value if there is one, and leaves it alone otherwise.
template <class Target, class Value>
bool assign(Target& target, const std::optional<Value>& value) {
  if (!value) {
    return false;
  }
  target = *value;
  return true;
}

}  // namespace tarnvex::platform
