#pragma once

#include <QElapsedTimer>
#include <QTimer>

#include "platform/event_gate.h"
#include "platform/non_copyable.h"

namespace tarnvex::desktop {

/// Makes a timer of the core fire in Qt's event loop, through the event gate. The next tick is due
/// one interval after the last one started, or when that one ends, whichever is later.
class TimerDriver : private platform::NonCopyable {
 public:
  TimerDriver(platform::Timer& timer, platform::EventGate& gate);
  ~TimerDriver();

 private:
  void restart();
  void rearm();

  platform::Timer& timer_;
  platform::EventGate& gate_;
  QTimer clock_;
  QElapsedTimer sinceStart_;
  platform::Connection changed_;
  platform::Connection starting_;
  platform::Connection finished_;
};

}  // namespace tarnvex::desktop
