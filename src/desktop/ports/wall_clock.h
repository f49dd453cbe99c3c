#pragma once

#include "platform/clock.h"

namespace tarnvex::desktop {

/// The machine's clock.
class WallClock : public platform::Clock {
 public:
  [[nodiscard]] std::int64_t seconds() const override;
  [[nodiscard]] std::int64_t milliseconds() const override;
  [[nodiscard]] std::string now() const override;
};

}  // namespace tarnvex::desktop
