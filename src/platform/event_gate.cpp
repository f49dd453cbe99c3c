#include "platform/event_gate.h"

#include <algorithm>
#include <utility>

#include "platform/clock.h"

namespace tarnvex::platform {
namespace {

/// The longest sleep of a wait before it checks its condition again. Short compared with a second,
/// the unit of the core's clock.
constexpr int kLookMilliseconds = 20;

}  // namespace

void EventGate::enter(Handler handler) {
  if (!ended_) {
    events_.push_back(std::move(handler));
    drainIfIdle();
  }
}

void EventGate::enterMessage(Handler handler) {
  if (!ended_) {
    messages_.push_back(std::move(handler));
    drainIfIdle();
  }
}

void EventGate::enterClosing(Handler handler) {
  enterCounted(closing_, std::move(handler));
}

void EventGate::enterLeaving(Handler handler) {
  enterCounted(leaving_, std::move(handler));
}

void EventGate::enterCounted(int& count, Handler handler) {
  ++count;
  enter([&count, handler = std::move(handler)] {
    --count;
    handler();
  });
}

void EventGate::enterTimer(Timer& timer) {
  if (ended_ || timer.running() || std::ranges::find(timers_, &timer) != timers_.end()) {
    return;
  }
  timers_.push_back(&timer);
  drainIfIdle();
}

void EventGate::forget(const Timer& timer) {
  std::erase(timers_, &timer);
}

void EventGate::whenIdle(Handler handler) {
  idle_.push_back(std::move(handler));
  drainIfIdle();
}

void EventGate::runMessages() {
  while (runNext(messages_)) {
  }
}

void EventGate::dropUserEvents() {
  events_.clear();
  closing_ = leaving_ = 0;
}

void EventGate::yield() {
  if (!ended_) {
    loop_.turn();
    runQueued();
  }
}

void EventGate::waitUntil(const std::function<bool()>& done) {
  while (!ended_ && !done()) {
    loop_.waitForEvents(kLookMilliseconds);
    runQueued();
  }
}

void EventGate::end() {
  ended_ = true;
  events_.clear();
  messages_.clear();
  timers_.clear();
}

void EventGate::drainIfIdle() {
  if (depth_ > 0) {
    return;
  }
  ++depth_;
  runQueued();
  --depth_;
  while (!idle_.empty()) {
    const Handler handler = std::move(idle_.front());
    idle_.pop_front();
    handler();
  }
}

void EventGate::runQueued() {
  for (;;) {
    if (runNextEvent()) {
      continue;
    }
    if (timers_.empty()) {
      return;
    }
    runTimer();
  }
}

bool EventGate::runNextEvent() {
  return runNext(events_) || runNext(messages_);
}

bool EventGate::runNext(std::deque<Handler>& handlers) {
  if (handlers.empty()) {
    return false;
  }
  const Handler handler = std::move(handlers.front());
  handlers.pop_front();
  run(handler);
  return true;
}

/// A tick starts by running pending events outside it. The timer stays queued meanwhile, so that a
/// message box opened by such an event can run it.
void EventGate::runTimer() {
  loop_.turn();
  while (runNextEvent()) {
  }
  if (timers_.empty()) {
    return;
  }
  Timer* timer = timers_.front();
  timers_.pop_front();
  run([timer] { timer->fire(); });
}

void EventGate::run(const Handler& handler) {
  ++depth_;
  handler();
  --depth_;
}

void waitBeyond(double seconds, EventGate& gate, const Clock& clock) {
  const auto start = clock.seconds();
  gate.waitUntil([&] { return static_cast<double>(clock.seconds() - start) > seconds; });
}

}  // namespace tarnvex::platform
