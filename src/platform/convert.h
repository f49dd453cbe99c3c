#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Conversions between text and numbers. Core text is Windows-1252, one byte per character, so that
/// positions count characters.
///
/// Continue on failure: a failed conversion returns nothing, and the statement that needed the
/// value is skipped. `assign` does this for the usual case. No conversion throws.
namespace tarnvex::platform {

/// The `length` characters of `text` from position `start`, counted from 1. Fewer if the text ends
/// earlier.
std::string mid(std::string_view text, std::size_t start, std::size_t length);
/// The characters from position `start`, counted from 1, to the end.
std::string mid(std::string_view text, std::size_t start);

/// The text without these characters at its ends.
std::string_view trimmed(std::string_view text, std::string_view blanks = " ");

[[nodiscard]] constexpr bool isDigit(char character) {
  return character >= '0' && character <= '9';
}

/// Text as a real number. Leading and trailing blanks, a sign, a decimal point and an exponent are
/// allowed, nothing else.
std::optional<double> toReal(std::string_view text);
/// Text as a 16-bit integer. Fractions round half to even. Nothing if it isn't a number or out of
/// range.
std::optional<int> toInteger(std::string_view text);
/// A real number as a 16-bit integer, in the same way.
std::optional<int> toInteger(double value);

/// The number as decimal text in its shortest form, with at most 15 significant digits: 1.5 gives
/// "1.5", 3.0 gives "3".
std::string shortest(double value);

/// Formats a number by a mask: "0" pads with zeros, "#" drops leading or trailing zeros, and there
/// may be one decimal point. Rounds half away from zero. A value with more digits than the mask
/// keeps them all. "#" alone shows zero as empty text.
std::string format(double value, std::string_view mask);
/// The same for text that reads as a number. Other text is returned unchanged.
std::string format(std::string_view text, std::string_view mask);

/// Rounds half to even, as all conversions from real to integer here do.
double roundHalfEven(double value);

/// Assigns the value to `target` if there is one. Otherwise `target` keeps its value, and the
/// result is false.
template <class Target, class Value>
bool assign(Target& target, const std::optional<Value>& value) {
  if (!value) {
    return false;
  }
  target = *value;
  return true;
}

}  // namespace tarnvex::platform
