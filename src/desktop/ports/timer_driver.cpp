#include "desktop/ports/timer_driver.h"

#include <algorithm>

namespace tarnvex::desktop {

TimerDriver::TimerDriver(platform::Timer& timer, platform::EventGate& gate)
    : timer_(timer), gate_(gate) {
  clock_.setSingleShot(true);
  clock_.setTimerType(Qt::PreciseTimer);
  QObject::connect(&clock_, &QTimer::timeout, [this] { gate_.enterTimer(timer_); });
  changed_ = timer_.changed.connect([this] { restart(); });
  starting_ = timer_.starting.connect([this] { sinceStart_.start(); });
  finished_ = timer_.finished.connect([this] { rearm(); });
  restart();
}

TimerDriver::~TimerDriver() {
  gate_.forget(timer_);
}

void TimerDriver::restart() {
  clock_.stop();
  // If a handler is running, its end starts the timer.
  if (timer_.enabled() && !timer_.running()) {
    clock_.start(timer_.interval());
  }
}

void TimerDriver::rearm() {
  if (timer_.enabled()) {
    const qint64 left = timer_.interval() - sinceStart_.elapsed();
    clock_.start(static_cast<int>(std::max<qint64>(left, 0)));
  }
}

}  // namespace tarnvex::desktop
