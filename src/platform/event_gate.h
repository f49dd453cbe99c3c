#pragma once

#include <deque>
#include <functional>

#include "platform/controls.h"
#include "platform/event_loop.h"

namespace tarnvex::platform {

/// The one door into the core. Every user event, timer and close request enters here. While the
/// core is idle an event runs at once; while it is busy (an exchange waits for bytes, a message box
/// is open) the event is queued and runs at the next point where the core yields, in order, one at
/// a time.
///
/// Timers give way to user events: what the user did before a tick runs before it, outside it, so
/// that a message box opened by it keeps the poll alive. A timer is queued once at the most.
class EventGate {
 public:
  using Handler = std::function<void()>;

  explicit EventGate(EventLoop& loop) : loop_(loop) {}

  void enter(Handler handler);
  /// An event with which the user wants out (close, Connect, a COM option): until it has run,
  /// `leaving` holds, which ends waits that have no limit of their own.
  void enterLeaving(Handler handler);
  /// A timer is due. Timers must outlive the gate's queue: see `forget`.
  void enterTimer(Timer& timer);
  /// Takes a timer that is about to be destroyed out of the queue.
  void forget(const Timer& timer);
  /// Runs the handler as soon as no core function is on the stack any more.
  void whenIdle(Handler handler);

  /// Drops the user events that wait: the window that they were meant for has gone.
  void dropUserEvents();

  /// Called by the core where it lets others run: delivers pending events and runs what is queued.
  void yield();
  /// Yields all the while until `done` holds or the program has ended. Sleeps in the event loop.
  void waitUntil(const std::function<bool()>& done);

  [[nodiscard]] bool busy() const { return depth_ > 0; }
  [[nodiscard]] bool leaving() const { return leaving_ > 0 || ended_; }

  /// The program ends: what is queued is dropped, nothing enters any more, and yields return at
  /// once.
  void end();
  [[nodiscard]] bool ended() const { return ended_; }

 private:
  void drainIfIdle();
  void runQueued();
  bool runNextUserEvent();
  void runTimer();
  void run(const Handler& handler);

  EventLoop& loop_;
  std::deque<Handler> events_;
  std::deque<Timer*> timers_;
  std::deque<Handler> idle_;
  int depth_ = 0;
  int leaving_ = 0;
  bool ended_ = false;
};

}  // namespace tarnvex::platform
