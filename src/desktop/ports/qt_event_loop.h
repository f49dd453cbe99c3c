#pragma once

#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QIODevice>
#include <QTimer>
#include <functional>

#include "platform/event_loop.h"

namespace tarnvex::desktop {

/// Qt's event loop. This is the only place of the program that turns it.
class QtEventLoop : public platform::EventLoop {
 public:
  QtEventLoop();

  void turn() override;
  void waitForEvents(int milliseconds) override;

  /// Delivers events until `done` holds, which is checked after each turn, or the deadline passes.
  /// Returns `done`.
  bool waitUntil(const std::function<bool()>& done, QDeadlineTimer deadline);
  /// Waits for bytes on the device itself, without delivering events: for a millisecond at most,
  /// and not at all if the window has waited for a turn of the loop for too long.
  void waitOnDevice(QIODevice& device);

  /// Runs the program until `leave`. Returns its exit status.
  int run();
  void leave();

 private:
  void turnOnce(bool wait);

  /// Wakes a waiting loop at its deadline.
  QTimer wake_;
  QElapsedTimer lastTurn_;
};

}  // namespace tarnvex::desktop
