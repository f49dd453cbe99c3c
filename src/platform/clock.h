#pragma once

#include <cstdint>
#include <string>

namespace tarnvex::platform {

/// The machine's clock on the wall.
class Clock {
 public:
  Clock() = default;
  virtual ~Clock() = default;
  Clock(const Clock&) = delete;
  Clock& operator=(const Clock&) = delete;
  Clock(Clock&&) = delete;
  Clock& operator=(Clock&&) = delete;

  /// The counter of whole seconds. The core's waits compare its differences, so they end when it
  /// moves on.
  [[nodiscard]] virtual std::int64_t seconds() const = 0;
  /// Local date and time as "YYYY-MM-DD HH:MM:SS".
  [[nodiscard]] virtual std::string now() const = 0;
};

}  // namespace tarnvex::platform
