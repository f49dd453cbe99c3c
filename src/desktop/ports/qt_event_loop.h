#pragma once

#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QIODevice>
#include <QTimer>
#include <functional>

#include "platform/event_loop.h"

namespace tarnvex::desktop {

/// Qt's event loop. This is the only place in the program that turns it.
class QtEventLoop : public platform::EventLoop {
 public:
  QtEventLoop();

  void turn() override;
  void waitForEvents(int milliseconds) override;

  /// Delivers events until `done` is true, which is checked after each turn, or the deadline
  /// passes. Returns the last result of `done`.
  bool waitUntil(const std::function<bool()>& done, QDeadlineTimer deadline);
  /// Waits for bytes on the device itself, without delivering events. It waits for at most a
  /// millisecond, and not at all if the last turn of the loop was too long ago for the window.
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
