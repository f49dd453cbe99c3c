#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Talkgroup IDs. An ID is always text, as the radio sent it or the user typed it:
///
/// - "-----" for none: any text that contains "--" counts as empty;
/// - a plain number of six digits, such as "000123";
/// - a text with a dash, such as "100-12" or "02-034", which is kept as it is.
///
/// Motorola IDs are only compared. An EDACS ID has two forms: a decimal number, agency * 128 +
/// fleet * 8 + subfleet, or dashed "AA-FFS". The BC245XLT shows one of them, and the plan may hold
/// either. The functions here convert between them. None fails, and only `DecToBin` changes its
/// argument.
namespace tarnvex::trunking {

/// The number as eleven binary digits. Changes `n` to the remainder after subtracting the weights
/// 128 to 1, so pass a copy if the value is still needed.
///
/// Deliberate: the first three digits are always 0, and all numbers from 255 on give 00011111111.
/// Zero and negative numbers give eleven zeros.
std::string DecToBin(std::int16_t& n);

/// The value of eleven binary digits. Ignores any text after them. A character that isn't a digit
/// counts as 0.
std::int16_t BinToDec(std::string_view digits);

/// The value of three or four binary digits. 0 for any other text.
std::int16_t BitsToNum(std::string_view pattern);

/// The forms, other than the received one, in which the plan may hold an ID.
struct AlternateIds {
  std::string first;
  std::string second;

  bool operator==(const AlternateIds&) const = default;
};

/// For a decimal ID: "AA-FFS", and "AA-FF-" for a plan that names a whole fleet. Not the inverse of
/// `decimalForms`: it can't give agencies from 2 on. Text that isn't a number counts as 0.
AlternateIds dashedForms(std::string_view decimalId);

/// For a dashed ID: six decimal digits, and a text that no plan contains. A field that isn't a
/// number counts as 0.
AlternateIds decimalForms(std::string_view dashedId);

/// The ID as displayed: without leading zeros if it is a plain number, unchanged if it is dashed.
std::string shownId(const std::string& id);

}  // namespace tarnvex::trunking
