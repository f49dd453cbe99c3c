#pragma once

#include <QAbstractEventDispatcher>
#include <QElapsedTimer>
#include <QObject>

#include "desktop/ports/qt_event_loop.h"
#include "platform/non_copyable.h"

namespace tarnvex::test {

/// Counts how often the event loop wakes up. With a device that reports errors endlessly, or a loop
/// that doesn't sleep, it is tens of thousands of times a second.
class TurnCounter : private platform::NonCopyable {
 public:
  TurnCounter() {
    connection_ = QObject::connect(QAbstractEventDispatcher::instance(),
                                   &QAbstractEventDispatcher::awake, [this] { ++turns_; });
  }
  ~TurnCounter() { QObject::disconnect(connection_); }

  [[nodiscard]] int turns() const { return turns_; }

 private:
  QMetaObject::Connection connection_;
  int turns_ = 0;
};

/// The number of turns within this time, in which nothing should happen.
inline int turnsWithin(desktop::QtEventLoop& loop, int milliseconds) {
  const TurnCounter counter;
  loop.waitUntil([] { return false; }, QDeadlineTimer(milliseconds));
  return counter.turns();
}

}  // namespace tarnvex::test
