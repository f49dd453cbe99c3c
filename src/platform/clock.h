#pragma once

#include <cstdint>
#include <string>

#include "platform/non_copyable.h"

namespace tarnvex::platform {

/// The machine's clock.
class Clock : private NonCopyable {
 public:
  virtual ~Clock() = default;

  /// Seconds, counted in whole steps. The core's waits compare differences, so a wait ends when the
  /// counter moves.
  [[nodiscard]] virtual std::int64_t seconds() const = 0;
  /// Local date and time as "YYYY-MM-DD HH:MM:SS".
  [[nodiscard]] virtual std::string now() const = 0;
};

}  // namespace tarnvex::platform
