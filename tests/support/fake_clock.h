#pragma once

#include <cstdint>
#include <string>

#include "platform/clock.h"
#include "support/fake_loop.h"

namespace tarnvex::test {

/// A clock that shows the fake loop's time, which moves while somebody sleeps there.
class FakeClock : public platform::Clock {
 public:
  explicit FakeClock(const FakeLoop& loop) : loop_(loop) {}

  [[nodiscard]] std::int64_t seconds() const override { return milliseconds() / 1000; }
  [[nodiscard]] std::int64_t milliseconds() const override {
    return loop_.now() + offsetMilliseconds;
  }
  [[nodiscard]] std::string now() const override { return text; }

  /// The clock's time when the loop's time is 0, so that a test can start within a second.
  std::int64_t offsetMilliseconds = 0;
  std::string text = "2031-05-06 07:08:09";

 private:
  const FakeLoop& loop_;
};

}  // namespace tarnvex::test
