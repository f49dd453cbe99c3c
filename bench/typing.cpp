#include "bench/typing.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPaintEvent>

namespace tarnvex::bench {

Heartbeat::Heartbeat() {
  timer_.setTimerType(Qt::PreciseTimer);
  QObject::connect(&timer_, &QTimer::timeout, [this] {
    gaps_.push_back(millisecondsSince(last_));
    last_ = Clock::now();
  });
}

void Heartbeat::start() {
  gaps_.clear();
  last_ = Clock::now();
  timer_.start(10);
}

std::vector<double> Heartbeat::stop() {
  timer_.stop();
  return std::move(gaps_);
}

Typist::Typist(QTableView& table) : table_(table) {
  table.viewport()->installEventFilter(this);
  // The first key event creates the keyboard device, which must belong to this thread.
  const QKeyEvent first(QEvent::KeyPress, Qt::Key_7, Qt::NoModifier);
  hand_ = std::thread([this] { type(); });
}

Typist::~Typist() {
  done_ = true;
  hand_.join();
}

bool Typist::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Paint && pressed_) {
    const QRect cell = table_.visualRect(table_.currentIndex());
    if (static_cast<QPaintEvent*>(event)->region().intersects(cell)) {
      // The cell is painted once this event has been handled.
      QMetaObject::invokeMethod(
          this, [this] { painted(); }, Qt::QueuedConnection);
    }
  }
  return QObject::eventFilter(watched, event);
}

void Typist::painted() {
  if (pressed_) {
    delays.push_back(millisecondsSince(pressedAt_));
    pressed_ = false;
  }
}

void Typist::type() {
  for (int i = 0; !done_; ++i) {
    // Intervals that don't fall into step with the poll or the heartbeat.
    std::this_thread::sleep_for(std::chrono::microseconds(23700 + i % 7 * 1900));
    if (!pressed_) {
      // A digit, and back.
      const bool digit = i % 2 == 0;
      pressedAt_ = Clock::now();
      pressed_ = true;
      QMetaObject::invokeMethod(
          &table_,
          [this, digit] {
            QKeyEvent key(QEvent::KeyPress, digit ? Qt::Key_7 : Qt::Key_Backspace, Qt::NoModifier,
                          digit ? "7" : "\b");
            QCoreApplication::sendEvent(&table_, &key);
          },
          Qt::QueuedConnection);
    }
  }
}

}  // namespace tarnvex::bench
