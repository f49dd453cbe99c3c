#pragma once

#include <string>
#include <vector>

#include "link/tone_table.h"
#include "platform/convert.h"

namespace tarnvex::test {

/// A plan in which every field takes all its values, with empty channels in between.
/// Columns 1 to 7 of the channel.
inline std::vector<std::string> channelOf(int number) {
  const auto flag = [&](int divisor) { return std::string(number % divisor == 0 ? "X" : " "); };
  if (number % 11 == 0) {
    return {"0.0000", " ", flag(2), flag(3), flag(5), "", "tag " + std::to_string(number)};
  }
  const double megahertz = number % 7 == 0 ? 851.0 : 155.0;
  return {platform::format(megahertz + number * 0.0125, "0.0000"),
          flag(7),
          flag(2),
          flag(3),
          flag(5),
          link::ToneTable()[static_cast<std::size_t>(number % 39)],
          "tag " + std::to_string(number)};
}

}  // namespace tarnvex::test
