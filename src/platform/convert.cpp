#include "platform/convert.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>

namespace tarnvex::platform {
namespace {

/// The digits of a non-negative number before and after the point, without superfluous zeros at
/// either end.
struct Decimal {
  std::string whole;
  std::string fraction;
};

/// 15 significant digits, as many as a 64-bit real holds exactly: 155.115 * 10000 is then exactly
/// 1551150.
Decimal toDecimal(double magnitude) {
  char text[32];
  std::snprintf(text, sizeof text, "%.14e", magnitude);
  const std::string_view shown(text);
  const std::size_t mark = shown.find('e');
  const int exponent = std::atoi(text + mark + 1);
  std::string digits = std::string(shown.substr(0, 1)) + std::string(shown.substr(2, mark - 2));
  Decimal decimal;
  const int point = exponent + 1;
  if (point <= 0) {
    decimal.fraction = std::string(static_cast<std::size_t>(-point), '0') + digits;
  } else if (static_cast<std::size_t>(point) >= digits.size()) {
    decimal.whole = digits + std::string(static_cast<std::size_t>(point) - digits.size(), '0');
  } else {
    decimal.whole = digits.substr(0, static_cast<std::size_t>(point));
    decimal.fraction = digits.substr(static_cast<std::size_t>(point));
  }
  decimal.whole.erase(0, decimal.whole.find_first_not_of('0'));
  decimal.fraction.erase(decimal.fraction.find_last_not_of('0') + 1);
  return decimal;
}

/// Adds one to the last of the digits. False if there was no digit to take the carry.
bool countUp(std::string& digits) {
  for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
    if (*digit != '9') {
      ++*digit;
      return true;
    }
    *digit = '0';
  }
  return false;
}

/// Cuts the fraction to `places` digits, rounding half away from zero.
void roundTo(Decimal& decimal, std::size_t places) {
  if (decimal.fraction.size() <= places) {
    return;
  }
  const bool up = decimal.fraction[places] >= '5';
  decimal.fraction.resize(places);
  if (!up) {
    return;
  }
  if (!countUp(decimal.fraction) && !countUp(decimal.whole)) {
    decimal.whole.insert(0, 1, '1');
  }
}

/// How many digits the mask asks for and the part hasn't.
std::size_t missingZeros(std::string_view part, std::string_view mask) {
  const auto asked = static_cast<std::size_t>(std::ranges::count(mask, '0'));
  return std::max(asked, part.size()) - part.size();
}

}  // namespace

std::string_view trimmed(std::string_view text, std::string_view blanks) {
  const std::size_t first = std::min(text.find_first_not_of(blanks), text.size());
  return text.substr(first, text.find_last_not_of(blanks) + 1 - first);
}

std::string mid(std::string_view text, std::size_t start, std::size_t length) {
  const bool within = start >= 1 && start <= text.size();
  return within ? std::string(text.substr(start - 1, length)) : std::string();
}

std::string mid(std::string_view text, std::size_t start) {
  return mid(text, start, std::string_view::npos);
}

std::optional<double> toReal(std::string_view text) {
  std::string_view number = trimmed(text);
  if (number.starts_with('+')) {
    number.remove_prefix(1);
    if (number.starts_with('-')) {
      return std::nullopt;
    }
  }
  double value = 0;
  const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
  if (error != std::errc() || end != number.data() + number.size() || !std::isfinite(value)) {
    return std::nullopt;
  }
  return value;
}

std::optional<int> toInteger(std::string_view text) {
  const auto value = toReal(text);
  return value ? toInteger(*value) : std::nullopt;
}

std::optional<int> toInteger(double value) {
  const double rounded = roundHalfEven(value);
  if (!(rounded >= std::numeric_limits<std::int16_t>::min() &&
        rounded <= std::numeric_limits<std::int16_t>::max())) {
    return std::nullopt;
  }
  return static_cast<int>(rounded);
}

std::string shortest(double value) {
  const Decimal decimal = toDecimal(std::fabs(value));
  std::string text = decimal.whole.empty() && decimal.fraction.empty() ? "0" : decimal.whole;
  if (!decimal.fraction.empty()) {
    text += "." + decimal.fraction;
  }
  return value < 0 && text != "0" ? "-" + text : text;
}

std::string format(double value, std::string_view mask) {
  const std::size_t point = mask.find('.');
  const std::string_view wholeMask = mask.substr(0, point);
  const std::string_view fractionMask =
      point == std::string_view::npos ? std::string_view() : mask.substr(point + 1);
  Decimal decimal = toDecimal(std::fabs(value));
  roundTo(decimal, fractionMask.size());
  decimal.whole.insert(0, missingZeros(decimal.whole, wholeMask), '0');
  decimal.fraction.append(missingZeros(decimal.fraction, fractionMask), '0');
  const bool negative =
      value < 0 && (decimal.whole + decimal.fraction).find_first_not_of('0') != std::string::npos;
  std::string text = (negative ? "-" : "") + decimal.whole;
  if (point != std::string_view::npos) {
    text += "." + decimal.fraction;
  }
  return text;
}

std::string format(std::string_view text, std::string_view mask) {
  const auto value = toReal(text);
  return value ? format(*value, mask) : std::string(text);
}

double roundHalfEven(double value) {
  const double floor = std::floor(value);
  const double rest = value - floor;
  if (rest != 0.5) {
    return std::floor(value + 0.5);
  }
  return std::fmod(floor, 2.0) == 0.0 ? floor : floor + 1;
}

}  // namespace tarnvex::platform
