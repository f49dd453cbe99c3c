#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <random>
#include <span>
#include <string>

namespace tarnvex::radio {

/// Random numbers from a seed, which are the same on every machine.
class Chance {
 public:
  explicit Chance(std::uint64_t seed) : random_(seed) {}

  /// From 0 up to, but not including, 1.
  [[nodiscard]] double fraction();
  /// 0 to `count` - 1.
  [[nodiscard]] std::size_t below(std::size_t count);

 private:
  std::mt19937_64 random_;
};

/// When a fault occurs: the next few times, or one time in N until it is cleared.
class Occasion {
 public:
  /// Reads "" (once), "N" (the next N times) or "every N" (one time in N, at random). Nothing for
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
