#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Talkgroup IDs. An ID is held as text everywhere, as the radio or the user gave it:
///
/// - "-----" for none: any text with "--" in it counts as empty;
/// - a plain number of six digits, "000123";
/// - a dashed text, "100-12" or "02-034", kept character for character.
///
/// Motorola IDs are only ever compared. An EDACS ID has two forms, of which the BC245XLT shows one:
/// a decimal number, agency * 128 + fleet * 8 + subfleet, or dashed "AA-FFS". The plan may hold
/// either; the conversions here find the other one. All functions are pure but for the argument of
/// `DecToBin`, and none fails.
namespace tarnvex::trunking {

/// The number as eleven binary digits. `n` is consumed: it holds what is left behind the weights
/// 128 to 1, so pass a copy where the value is still needed.
///
/// The first three digits are always 0, and numbers from 255 on all give 00011111111: plans carry
/// IDs that were derived so. Zero and negative numbers give eleven zeros.
std::string DecToBin(std::int16_t& n);

/// The value of eleven binary digits; what stands behind them is ignored. A character that is no
/// digit counts as 0.
std::int16_t BinToDec(std::string_view digits);

/// The value of a pattern of three or four binary digits; 0 for any other text.
std::int16_t BitsToNum(std::string_view pattern);

/// The forms in which the plan may hold an ID other than the one received.
struct AlternateIds {
  std::string first;
  std::string second;

  bool operator==(const AlternateIds&) const = default;
};

/// Of a decimal ID: "AA-FFS", and "AA-FF-" for a plan that names a whole fleet. Not the inverse of
/// `decimalForms`: agencies from 2 up don't come out. A text that is no number counts as 0.
AlternateIds dashedForms(std::string_view decimalId);

/// Of a dashed ID: six decimal digits, and a text that stands in no plan. A field that is no number
/// counts as 0.
AlternateIds decimalForms(std::string_view dashedId);

/// An ID as it is shown: without leading zeros, but as it stands if it is dashed.
std::string shownId(const std::string& id);

}  // namespace tarnvex::trunking
