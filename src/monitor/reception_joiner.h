#pragma once

#include <optional>

#include "monitor/reception.h"

namespace tarnvex::monitor {

/// Joins what is heard at each tick to receptions. The same thing heard again within `kGap` is one
/// reception; another thing ends it. It lasts from the first tick that hears it to the last one.
///
/// Pure: times are the caller's, in milliseconds UTC. A clock that is set back makes a reception
/// shorter, and nothing else.
class ReceptionJoiner {
 public:
  static constexpr std::int64_t kGap = 2000;
  /// Without a tick for this long the poll is standing still, and nobody knows what is heard.
  static constexpr std::int64_t kStill = 5000;

  /// A tick of that radio has heard something, or nothing (null). Returns the reception that this
  /// ends.
  std::optional<Reception> tick(const Heard* heard, std::int64_t now, const std::string& radio);
  /// Ends what is open if no tick has come for `kStill`.
  std::optional<Reception> endIfStill(std::int64_t now);
  /// Ends what is open.
  std::optional<Reception> end();

  /// The file that belongs to the open reception. The first one counts.
  void record(const std::string& file);
  /// What is open, up to the last tick that has heard it.
  [[nodiscard]] const std::optional<Reception>& open() const { return open_; }

 private:
  std::optional<Reception> open_;
  std::int64_t lastHeard_ = 0;
  std::int64_t lastTick_ = 0;
};

}  // namespace tarnvex::monitor
