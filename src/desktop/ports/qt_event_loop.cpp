#include "desktop/ports/qt_event_loop.h"

#include <QCoreApplication>

namespace tarnvex::desktop {
namespace {

/// Users don't notice a window that freezes for this long.
constexpr int kStillMilliseconds = 4;

}  // namespace

QtEventLoop::QtEventLoop() {
  wake_.setSingleShot(true);
  wake_.setTimerType(Qt::PreciseTimer);
  lastTurn_.start();
}

void QtEventLoop::turn() {
  turnOnce(false);
}

void QtEventLoop::turnOnce(bool wait) {
  QCoreApplication::processEvents(wait ? QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents
                                       : QEventLoop::AllEvents);
  lastTurn_.start();
}

void QtEventLoop::waitForEvents(int milliseconds) {
  wake_.start(milliseconds);
  turnOnce(true);
}

bool QtEventLoop::waitUntil(const std::function<bool()>& done, QDeadlineTimer deadline) {
  while (!done()) {
    const qint64 left = deadline.remainingTime();
    if (left == 0) {
      return false;
    }
    if (left > 0) {
      wake_.start(static_cast<int>(left));
    }
    turnOnce(true);
  }
  return true;
}

void QtEventLoop::waitOnDevice(QIODevice& device) {
  if (!lastTurn_.hasExpired(kStillMilliseconds)) {
    device.waitForReadyRead(1);
  }
}

int QtEventLoop::run() {
  return QCoreApplication::exec();
}

void QtEventLoop::leave() {
  QCoreApplication::exit(0);
}

}  // namespace tarnvex::desktop
