#pragma once

#include <optional>

#include "monitor/reception.h"

namespace tarnvex::monitor {

/// Joins what is heard at each tick into receptions. If the same thing is heard again within
/// `kGap`, the reception goes on; anything else ends it. A reception lasts from the first tick that
/// hears it to the last one.
///
/// The caller passes the times, in milliseconds UTC. If the clock is set back, a reception becomes
/// shorter and nothing else happens.
class ReceptionJoiner {
 public:
  static constexpr std::int64_t kGap = 2000;
  /// If no tick comes for this long, the poll has stopped, and nobody knows what is heard.
  static constexpr std::int64_t kStill = 5000;

  /// A tick of this radio has heard something, or nothing (null). Returns the reception that ends
  /// with it, if any.
  std::optional<Reception> tick(const Heard* heard, std::int64_t now, const std::string& radio);
  /// Ends the open reception if no tick has come for `kStill`.
  std::optional<Reception> endIfStill(std::int64_t now);
  /// Ends the open reception.
  std::optional<Reception> end();

  /// Sets the file of the open reception. The first one counts.
  void record(const std::string& file);
  /// The open reception, up to the last tick that heard it.
  [[nodiscard]] const std::optional<Reception>& open() const { return open_; }

 private:
  /// The open reception is still being heard.
  void goOn(const Heard& heard, std::int64_t now);

  std::optional<Reception> open_;
  std::int64_t lastHeard_ = 0;
  std::int64_t lastTick_ = 0;
};

}  // namespace tarnvex::monitor
