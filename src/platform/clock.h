#pragma once

#include <cstdint>
#include <string>

#include "platform/non_copyable.h"

namespace tarnvex::platform {

/// The machine's clock.
class Clock : private NonCopyable {
 public:
  virtual ~Clock() = default;

  /// A counter of whole seconds that is never set back. The core's waits compare two readings, so a
  /// wait ends when the second changes.
  [[nodiscard]] virtual std::int64_t seconds() const = 0;
  /// UTC, in milliseconds since 1970.
  [[nodiscard]] virtual std::int64_t milliseconds() const = 0;
  /// Local date and time as "YYYY-MM-DD HH:MM:SS".
  [[nodiscard]] virtual std::string now() const = 0;
};

}  // namespace tarnvex::platform
