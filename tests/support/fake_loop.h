#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <map>
#include <stdexcept>
#include <utility>
#include <vector>

#include "platform/event_loop.h"

namespace tarnvex::test {

/// An event loop with a clock in milliseconds, which moves only while somebody sleeps. Events are
/// set in advance, by turn or by time. A program that turns it endlessly is stopped by an
/// exception.
class FakeLoop : public platform::EventLoop {
 public:
  using Event = std::function<void()>;

  /// Delivered by the n-th turn from now; 1 is the next.
  void onTurn(int nth, Event event) { byTurn_.emplace(turns_ + nth, std::move(event)); }
  /// Delivered by the first turn or sleep at or after this time.
  void at(std::int64_t milliseconds, Event event) {
    byTime_.emplace(milliseconds, std::move(event));
  }

  void turn() override {
    if (++turns_ > kMostTurns) {
      throw std::runtime_error("the event loop is turned without end");
    }
    deliver(byTurn_, turns_);
    deliver(byTime_, now_);
  }
  void waitForEvents(int milliseconds) override {
    now_ += milliseconds;
    if (!byTime_.empty()) {
      now_ = std::min(now_, std::max(now_ - milliseconds, byTime_.begin()->first));
    }
    turn();
  }

  [[nodiscard]] std::int64_t now() const { return now_; }
  [[nodiscard]] int turns() const { return turns_; }

 private:
  static constexpr int kMostTurns = 1'000'000;

  /// Events added by an event are delivered at the next turn.
  template <class Key>
  static void deliver(std::multimap<Key, Event>& events, Key until) {
    std::vector<Event> due;
    while (!events.empty() && events.begin()->first <= until) {
      due.push_back(std::move(events.begin()->second));
      events.erase(events.begin());
    }
    for (const Event& event : due) {
      event();
    }
  }

  std::multimap<int, Event> byTurn_;
  std::multimap<std::int64_t, Event> byTime_;
  std::int64_t now_ = 0;
  int turns_ = 0;
};

}  // namespace tarnvex::test
