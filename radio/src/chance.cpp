#include "radio/chance.h"

#include "radio/options.h"

namespace tarnvex::radio {

// Doesn't use the standard library's distributions, which differ between implementations.
double Chance::fraction() {
  return static_cast<double>(random_() >> 11) / 9007199254740992.0;
}

std::size_t Chance::below(std::size_t count) {
  return static_cast<std::size_t>(fraction() * static_cast<double>(count));
}

std::optional<Occasion> Occasion::parse(std::span<const std::string> words) {
  const bool repeats = words.size() == 2 && words[0] == "every";
  if (words.size() > 1 && !repeats) {
    return std::nullopt;
  }
  const auto number = words.empty() ? 1 : parseNumber(words.back());
  if (!number || !(*number >= (repeats ? 1 : 0) && *number < 1e15)) {
    return std::nullopt;
  }
  Occasion occasion;
  occasion.every_ = repeats ? *number : 0;
  occasion.left_ = repeats ? 0 : static_cast<std::int64_t>(*number);
  return occasion;
}

bool Occasion::strikes(Chance& chance) {
  return every_ > 0 ? chance.fraction() * every_ < 1 : left_ > 0 && left_-- > 0;
}

}  // namespace tarnvex::radio
