// The whole program, in this process, on a radio at 9600 baud in another one.
#include <QApplication>
#include <QFile>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QTableView>
#include <atomic>
#include <cstdio>
#include <thread>

#include "bench/measure.h"
#include "desktop/program_rig.h"

namespace tarnvex::bench {
namespace {

constexpr double kMillisecondsPerByte = 10 * 1000.0 / 9600;
constexpr double kThinkMilliseconds = 3;

QStringList radioAt9600(const QStringList& more = {}) {
  return QStringList{"--baud", "9600", "--think-ms", "3", "--scene", "quiet"} + more;
}

/// A step that only lets time pass.
std::function<bool()> after(double milliseconds) {
  return [milliseconds, start = std::optional<Clock::time_point>()]() mutable {
    start = start.value_or(Clock::now());
    return millisecondsSince(*start) >= milliseconds;
  };
}

/// What the line itself needs for what the log holds of whole ticks: "SI" begins one. Milliseconds
/// per tick.
double lineTimePerTick(const QString& log) {
  QFile file(log);
  if (!file.open(QIODevice::ReadOnly)) {
    return 0;
  }
  std::vector<double> ticks;
  while (!file.atEnd()) {
    const QString line = QString::fromLatin1(file.readLine()).trimmed();
    const QString text = line.section(' ', 2).replace("<CR>", "\r");
    const bool command = line.section(' ', 1, 1) == ">";
    if (command && text == "SI\r") {
      ticks.push_back(0);
    }
    if (!ticks.empty()) {
      ticks.back() += static_cast<double>(text.size()) * kMillisecondsPerByte +
                      (command ? kThinkMilliseconds : 0);
    }
  }
  return quantile(ticks, 0.5);
}

/// Beats every 10 ms in the program's thread, and keeps how late the beats come.
class Heartbeat {
 public:
  Heartbeat() {
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, [this] {
      gaps_.push_back(millisecondsSince(last_));
      last_ = Clock::now();
    });
  }
  void start() {
    gaps_.clear();
    last_ = Clock::now();
    timer_.start(10);
  }
  std::vector<double> stop() {
    timer_.stop();
    return std::move(gaps_);
  }

 private:
  QTimer timer_;
  Clock::time_point last_;
  std::vector<double> gaps_;
};

/// Types digits into a table from another thread, as the window system does, and keeps how long it
/// takes until the cell is painted.
class Typist : public QObject {
 public:
  explicit Typist(QTableView& table) : table_(table) {
    table.viewport()->installEventFilter(this);
    // The first key event makes the keyboard device, which belongs to this thread.
    const QKeyEvent first(QEvent::KeyPress, Qt::Key_7, Qt::NoModifier);
    hand_ = std::thread([this] { type(); });
  }
  ~Typist() override {
    done_ = true;
    hand_.join();
  }
  Typist(const Typist&) = delete;
  Typist& operator=(const Typist&) = delete;
  Typist(Typist&&) = delete;
  Typist& operator=(Typist&&) = delete;

  std::vector<double> delays;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint && pressed_) {
      const QRect cell = table_.visualRect(table_.currentIndex());
      if (static_cast<QPaintEvent*>(event)->region().intersects(cell)) {
        // Painted once this event has been handled.
        QMetaObject::invokeMethod(
            this,
            [this] {
              if (pressed_) {
                delays.push_back(millisecondsSince(pressedAt_));
                pressed_ = false;
              }
            },
            Qt::QueuedConnection);
      }
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  void type() {
    for (int i = 0; !done_; ++i) {
      // Out of step with the poll and with the heartbeat.
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

  QTableView& table_;
  std::thread hand_;
  std::atomic<bool> done_ = false;
  std::atomic<bool> pressed_ = false;
  Clock::time_point pressedAt_;
};

/// The program polls a radio; `rig` runs it, the steps measure.
struct Polling {
  test::ProgramRig rig{radioAt9600()};
  Heartbeat heartbeat;
  std::unique_ptr<Typist> typist;
  std::vector<double> longestGaps;
  std::vector<double> allGaps;
  std::vector<double> delays;

  QTableView& table() {
    return *rig.program.windows.mainWindow()->findChild<QTableView*>("MSFlexGrid1");
  }
  void openTable() {
    rig.form()->SSTab1.setTab(0);
    table().setFocus();
    table().setCurrentIndex(table().model()->index(2, 1));
  }
  /// Steps of one slice in which somebody types, from `begin` on.
  void addSlice(std::vector<test::Step>& steps, std::function<bool()> begin, double length) {
    steps.push_back({"typing", std::move(begin), [this] {
                       heartbeat.start();
                       typist = std::make_unique<Typist>(table());
                     }});
    steps.push_back({"typed", after(length), [this] {
                       auto gaps = heartbeat.stop();
                       longestGaps.push_back(quantile(gaps, 1));
                       allGaps.insert(allGaps.end(), gaps.begin(), gaps.end());
                       delays.insert(delays.end(), typist->delays.begin(), typist->delays.end());
                       typist.reset();
                     }});
    // Nobody wants to save what was typed here, the last keys under way included.
    steps.push_back({"calm", after(200), [this] { rig.program.state.MemoryModified = false; }});
  }
  void report(Table& table, const std::string& when) {
    table.note(when + ": keys typed", static_cast<double>(delays.size()));
    table.note(when + ": key to painted cell, median", quantile(delays, 0.5), "ms");
    table.atMost(when + ": key to painted cell, 99th percentile", quantile(delays, 0.99), 16, "ms");
    table.atMost(when + ": longest gap of a 10 ms beat, median of slices",
                 quantile(longestGaps, 0.5), 16, "ms");
    table.note(when + ": longest gap of all", quantile(allGaps, 1), "ms");
  }
};

double share(double processor, Clock::time_point since) {
  return 100 * processor / millisecondsSince(since);
}

}  // namespace

void benchPoll(Table& table) {
  const QTemporaryDir folder;
  const QString log = folder.filePath("log");
  test::ProgramRig rig(radioAt9600({"--log", log}));
  // Looks at the program too often would count as its own work.
  rig.lookMilliseconds = 100;
  std::vector<Clock::time_point> ticks;
  platform::Connection connection;
  Clock::time_point from;
  double processor = 0;
  double measured = 0;
  std::vector<double> shares;
  std::vector<test::Step> steps = {{"scanning", rig.bc895("Frequency: Scanning")},
                                   {"in step", after(1000), [&] {
                                      connection = rig.form()->Scantimer.finished.connect(
                                          [&] { ticks.push_back(Clock::now()); });
                                    }}};
  const auto measure = [&](const std::string& name, std::function<bool()> begin, double length,
                           double& result) {
    steps.push_back({name, std::move(begin), [&] {
                       from = Clock::now();
                       processor = processorMilliseconds();
                     }});
    steps.push_back({name + " measured", after(length),
                     [&] { result = share(processorMilliseconds() - processor, from); }});
  };
  double polling = 0;
  double noticed = 0;
  double lost = 0;
  measure("polling", after(0), 12000, polling);
  steps.push_back(
      {"ticks", after(0), [&] {
         measured =
             std::chrono::duration<double, std::milli>(ticks.back() - ticks.front()).count() /
             static_cast<double>(ticks.size() - 1);
         rig.radio.say("silence on");
       }});
  measure("silent", rig.boxShows("Scanner Not Responding"), 4000, noticed);
  steps.push_back({"notice", after(0), [&] { rig.press(QMessageBox::Ok); }});
  steps.push_back({"unplugged", after(0), [&] { rig.radio.say("hangup"); }});
  measure("gone", after(200), 4000, lost);
  rig.play(steps);

  const double line = lineTimePerTick(log);
  table.note("poll at 9600 baud: a tick", measured, "ms");
  table.note("poll at 9600 baud: what the line needs for a tick", line, "ms");
  table.atLeast("poll at 9600 baud: ticks a second / what the line allows", line / measured, 0.98);
  table.atMost("processor share while polling", polling, 5, "%");
  table.atMost("processor share behind the notice of silence", noticed, 1, "%");
  table.atMost("processor share with the radio gone", lost, 1, "%");
}

void benchStill(Table& table) {
  Polling busy;
  std::vector<test::Step> steps = {
      {"scanning", busy.rig.bc895("Frequency: Scanning"), [&] { busy.openTable(); }}};
  for (int slice = 0; slice < 7; ++slice) {
    busy.addSlice(steps, after(300), 2000);
  }
  busy.rig.play(steps);
  busy.report(table, "polling");

  Polling silent;
  steps = {{"scanning", silent.rig.bc895("Frequency: Scanning"), [&] { silent.openTable(); }}};
  for (int slice = 0; slice < 3; ++slice) {
    steps.push_back(
        {"falls silent", silent.rig.polled(), [&] { silent.rig.radio.say("silence on"); }});
    // Within the 2.9 s in which the program waits for the radio.
    silent.addSlice(steps, after(300), 2000);
    steps.push_back({"notice", silent.rig.boxShows("Scanner Not Responding"), [&] {
                       silent.rig.press(QMessageBox::Ok);
                       silent.rig.radio.say("silence off");
                     }});
    steps.push_back({"given up", [&] { return !silent.rig.form()->MSComm1->portOpen(); },
                     [&] { silent.rig.connectAgain(); }});
  }
  silent.rig.play(steps);
  silent.report(table, "radio silent");
}

}  // namespace tarnvex::bench
