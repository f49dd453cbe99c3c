#pragma once

#include <QObject>
#include <QPointer>
#include <QTableView>
#include <QTimer>
#include <atomic>
#include <thread>
#include <vector>

#include "bench/measure.h"

namespace tarnvex::bench {

/// A timer that beats every 10 ms in the program's thread and records the gaps between the beats.
class Heartbeat {
 public:
  Heartbeat();
  void start();
  /// The gaps between the beats, in milliseconds.
  std::vector<double> stop();

 private:
  QTimer timer_;
  Clock::time_point last_;
  std::vector<double> gaps_;
};

/// Types digits into a table from another thread, as the window system does, and measures the time
/// until the cell is painted.
class Typist : public QObject {
 public:
  explicit Typist(QTableView& table);
  ~Typist() override;

  /// From key to painted cell, in milliseconds.
  std::vector<double> delays;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void type();
  void painted();

  QTableView& table_;
  std::thread hand_;
  std::atomic<bool> done_ = false;
  std::atomic<bool> pressed_ = false;
  Clock::time_point pressedAt_;
};

}  // namespace tarnvex::bench
