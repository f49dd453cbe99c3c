#pragma once

#include <deque>
#include <functional>

#include "platform/controls.h"
#include "platform/event_loop.h"
#include "platform/non_copyable.h"

namespace tarnvex::platform {

class Clock;

/// The only way into the core. Every user event, timer and close request enters here. An event runs
/// at once while the core is idle. While the core is busy (an exchange waits for bytes, a message
/// box is open) events are queued and run in order, one at a time, where the core yields.
///
/// User events come before timers. What the user did before a tick runs before the tick and outside
/// it, so that a message box that the event opens doesn't stop the poll. A timer is queued once at
/// most.
class EventGate : private NonCopyable {
 public:
  /// What runs when an event is let in.
  using Handler = std::function<void()>;

  explicit EventGate(EventLoop& loop) : loop_(loop) {}

  void enter(Handler handler);
  /// A message that no user event has led to, such as settings that can't be saved. It isn't
  /// dropped with the events of a window.
  void enterMessage(Handler handler);
  /// An event with which the user closes or answers a window. `endsWaits` is true until it has run,
  /// which ends waits that have no time limit.
  void enterClosing(Handler handler);
  /// An event with which the user wants the line or ends the program (close of a main window,
  /// "RMT", Connect, a COM option). Until it has run, `leaving` is true, too, which ends long work.
  void enterLeaving(Handler handler);
  /// A timer is due. Call `forget` before the timer is destroyed.
  void enterTimer(Timer& timer);
  /// Removes a timer from the queue.
  void forget(const Timer& timer);
  /// Runs the handler as soon as no function of the core is on the stack.
  void whenIdle(Handler handler);

  /// Runs the messages that are still queued, before the program ends.
  void runMessages();

  /// Drops the queued user events, because their window is gone.
  void dropUserEvents();

  /// Delivers pending events and runs what is queued. The core calls it wherever other handlers may
  /// run.
  void yield();
  /// Yields until `done` is true or the program has ended. Sleeps in the event loop in between.
  void waitUntil(const std::function<bool()>& done);

  [[nodiscard]] bool busy() const { return depth_ > 0; }
  [[nodiscard]] bool leaving() const { return leaving_ > 0 || ended_; }
  [[nodiscard]] bool endsWaits() const { return closing_ > 0 || leaving(); }

  /// Ends the program: drops what is queued and lets nothing in from now on. Yields return at once.
  void end();
  [[nodiscard]] bool ended() const { return ended_; }

 private:
  /// Enters an event that is counted until it runs.
  void enterCounted(int& count, Handler handler);
  void drainIfIdle();
  void runQueued();
  bool runNextEvent();
  bool runNext(std::deque<Handler>& handlers);
  void runTimer();
  void run(const Handler& handler);

  EventLoop& loop_;
  std::deque<Handler> events_;
  std::deque<Handler> messages_;
  std::deque<Timer*> timers_;
  std::deque<Handler> idle_;
  int depth_ = 0;
  int closing_ = 0;
  int leaving_ = 0;
  bool ended_ = false;
};

/// Waits until the clock has moved on by more than this.
void waitBeyond(double seconds, EventGate& gate, const Clock& clock);

}  // namespace tarnvex::platform
