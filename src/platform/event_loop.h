#pragma once

#include "platform/non_copyable.h"

namespace tarnvex::platform {

/// The window system's event loop, as the core uses it. The events that it delivers enter the core
/// through the event gate.
class EventLoop : private NonCopyable {
 public:
  virtual ~EventLoop() = default;

  /// Delivers the pending events and returns.
  virtual void turn() = 0;
  /// Sleeps until an event comes, or for that many milliseconds at most. Delivers the events and
  /// returns.
  virtual void waitForEvents(int milliseconds) = 0;
};

}  // namespace tarnvex::platform
