#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <random>
#include <span>
#include <string>

namespace tarnvex::radio {

/// Random numbers from a seed, the same on every machine.
class Chance {
 public:
  explicit Chance(std::uint64_t seed) : random_(seed) {}

  /// 0 to 1, 1 not included.
  [[nodiscard]] double fraction();
  /// 0 to `count` - 1.
  [[nodiscard]] std::size_t below(std::size_t count);

 private:
  std::mt19937_64 random_;
};

/// How often a fault strikes: the next few times, or one time in N until it is cleared.
class Occasion {
 public:
  /// Reads "" (once), "N" (the next N times) or "every N" (one time in N, by chance). Nothing for
  /// any other words.
  static std::optional<Occasion> parse(std::span<const std::string> words);

  /// Asked once for each reply.
  [[nodiscard]] bool strikes(Chance& chance);
  [[nodiscard]] bool isOver() const { return left_ <= 0 && every_ <= 0; }

 private:
  std::int64_t left_ = 0;
  double every_ = 0;
};

}  // namespace tarnvex::radio
