#include "desktop/ports/timer_driver.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <vector>

#include "desktop/ports/qt_event_loop.h"

namespace tarnvex::test {
namespace {

/// A timer with its driver. Records when each run starts and ends, in microseconds.
class TimerDriverTest : public testing::Test {
 protected:
  TimerDriverTest() {
    timer.onTick = [this] {
      EXPECT_FALSE(inside) << "nested";
      inside = true;
      starts.push_back(now());
      if (work) {
        work();
      }
      ends.push_back(now());
      inside = false;
    };
    clock.start();
  }

  qint64 now() const { return clock.nsecsElapsed() / 1000; }
  void run(std::size_t runs) {
    timer.setEnabled(true);
    EXPECT_TRUE(loop.waitUntil([&] { return ends.size() >= runs; }, QDeadlineTimer(10000)));
    timer.setEnabled(false);
  }
  /// Called within a run: lets others run for a while.
  void busyFor(int milliseconds) {
    const QDeadlineTimer end(milliseconds, Qt::PreciseTimer);
    gate.waitUntil([&] { return end.hasExpired(); });
  }

  desktop::QtEventLoop loop;
  platform::EventGate gate{loop};
  platform::Timer timer{25};
  desktop::TimerDriver driver{timer, gate};
  QElapsedTimer clock;
  std::vector<qint64> starts;
  std::vector<qint64> ends;
  std::function<void()> work;
  bool inside = false;
};

TEST_F(TimerDriverTest, KeepsAnIntervalBetweenStarts) {
  const qint64 enabled = now();
  run(10);
  qint64 last = enabled;
  for (const qint64 start : starts) {
    EXPECT_GE(start - last, 24000);
    last = start;
  }
  // On average it keeps its interval. A busy machine may delay single runs.
  EXPECT_LE((starts.back() - enabled) / 10, 32000);
}

TEST_F(TimerDriverTest, RunsBackToBackWhenARunLastsLonger) {
  work = [this] { busyFor(40); };
  run(6);
  std::vector<qint64> pauses;
  for (std::size_t i = 1; i < starts.size(); ++i) {
    pauses.push_back(starts[i] - ends[i - 1]);
  }
  std::ranges::sort(pauses);
  EXPECT_LT(pauses[pauses.size() / 2], 5000);
}

TEST_F(TimerDriverTest, FollowsItsTimer) {
  work = [this] { timer.setEnabled(false); };
  run(1);
  loop.waitUntil([] { return false; }, QDeadlineTimer(80));
  EXPECT_EQ(starts.size(), 1U) << "a run that stops its timer is the last";

  // A new interval counts from the change.
  work = nullptr;
  timer.setInterval(10000);
  timer.setEnabled(true);
  timer.setInterval(30);
  const qint64 changed = now();
  run(2);
  EXPECT_GE(starts.back() - changed, 29000);
}

TEST_F(TimerDriverTest, IsQueuedOnceWhileTheCoreIsBusy) {
  platform::Timer second{5};
  int runs = 0;
  second.onTick = [&] { ++runs; };
  const desktop::TimerDriver drive(second, gate);
  gate.enter([&] {
    second.setEnabled(true);
    // No function of the core runs while an exchange waits.
    loop.waitUntil([] { return false; }, QDeadlineTimer(60));
    EXPECT_EQ(runs, 0);
    second.setInterval(10000);
  });
  EXPECT_EQ(runs, 1);
}

}  // namespace
}  // namespace tarnvex::test
