#pragma once

#include "platform/non_copyable.h"

namespace tarnvex::platform {

/// The window system's event loop, as the core asks for it. What it delivers enters the core
/// through the event gate.
class EventLoop : private NonCopyable {
 public:
  virtual ~EventLoop() = default;

  /// Delivers the events that are pending and returns.
  virtual void turn() = 0;
  /// Sleeps until events come, delivers them and returns; after `milliseconds` at the latest.
  virtual void waitForEvents(int milliseconds) = 0;
};

}  // namespace tarnvex::platform
