// The log of receptions with a million rows: how long writing, opening, filtering and scrolling
// take, and how much processor time the log adds to a tick of the poll.
#include <QApplication>
#include <QScrollBar>
#include <QTemporaryDir>

#include "bench/line.h"
#include "bench/measure.h"
#include "desktop/ports/qt_event_loop.h"
#include "desktop/ports/sqlite_reception_store.h"
#include "desktop/reception_log/reception_window.h"
#include "reception_log/log_file.h"
#include "shell/bc895_form.h"
#include "support/radio_port.h"
#include "support/world.h"

namespace tarnvex::bench {
namespace {

/// A main form with a radio in the same process, on a line that takes no time.
class TickRun {
 public:
  explicit TickRun(const QString& folder) : store_(folder.toStdString(), world_.gate) {
    radio_.playScene("steady");
    form_->MSComm1->open();
    form_->Scantimer.setEnabled(true);
  }
  /// Returns milliseconds of this thread's processor time.
  double ticks(int count, bool logged) {
    constexpr int kTickMilliseconds = 150;
    log_.chkKeep.setValue(logged);
    const double start = threadMilliseconds();
    for (int tick = 0; tick < count; ++tick) {
      world_.clock.offsetMilliseconds += kTickMilliseconds;
      world_.gate.enterTimer(form_->Scantimer);
    }
    return threadMilliseconds() - start;
  }

 private:
  shell::Services onRadio() {
    return {world_.state,
            world_.gate,
            [this] { return std::make_unique<test::RadioPort>(radio_); },
            world_.dialogs,
            world_.settings,
            world_.clock,
            world_.link,
            world_.files,
            world_.services.makeDialog,
            world_.backups,
            world_.services.makeMediaControl,
            log_,
            "/program"};
  }

  radio::Radio radio_{radio::Model::BC895XLT, 1};
  test::World world_;
  desktop::SqliteReceptionStore store_;
  monitor::ReceptionLog log_{{store_, world_.state, world_.settings, world_.dialogs, world_.clock}};
  std::unique_ptr<shell::Form4> form_ = std::make_unique<shell::Form4>(onRadio(), world_.outside());
};

void benchTick(Table& table, const QString& folder) {
  TickRun run(folder);
  const int count = table.choose(2000, 200);
  run.ticks(count, true);
  std::vector<double> ratios;
  for (int round = 0; round < table.choose(31, 5); ++round) {
    const double with = run.ticks(count, true);
    ratios.push_back(with / run.ticks(count, false));
  }
  table.atMost("log: a tick's processor time with the log / without", quantile(ratios, 0.5), 1.01);
}

void benchInsert(Table& table, const QString& folder, platform::EventGate& gate) {
  desktop::SqliteReceptionStore store(folder.toStdString(), gate);
  const int count = table.choose(200, 20);
  const auto start = Clock::now();
  for (int number = 0; number < count; ++number) {
    monitor::Reception reception;
    reception.started = 1'700'000'000'000 + number;
    reception.heard.frequency = 155'115'000;
    store.write(number, reception, true);
    store.finish();
  }
  table.note("log: writing one reception to a million", millisecondsSince(start) / count, "ms");
}

/// The window on the log.
class OpenLog {
 public:
  OpenLog(const QString& folder, desktop::QtEventLoop& loop, platform::EventGate& gate)
      : loop_(loop) {
    world_.receptionStore.path = (folder + QStringLiteral("/receptions.db")).toStdString();
    const auto start = Clock::now();
    window_ = std::make_unique<desktop::ReceptionWindow>(form_, gate, nullptr);
    window_->show();
    settle();
    opened = millisecondsSince(start);
  }
  double filter(const QString& text) {
    auto* box = window_->findChild<QLineEdit*>(QStringLiteral("filter"));
    box->setText(text);
    // Leaves out the pause in the typing.
    loop_.waitUntil([this] { return !model().counted(); }, QDeadlineTimer(1000));
    const auto start = Clock::now();
    settle();
    return millisecondsSince(start);
  }
  /// Scrolls the table from end to end. Returns the milliseconds that each frame takes.
  std::vector<double> scroll(int frames) {
    auto* table = window_->findChild<QAbstractItemView*>(QStringLiteral("receptions"));
    QScrollBar* bar = table->verticalScrollBar();
    std::vector<double> taken;
    for (int frame = 0; frame < frames; ++frame) {
      const auto start = Clock::now();
      bar->setValue(static_cast<int>(qint64(bar->maximum()) * frame / frames));
      QApplication::processEvents();
      taken.push_back(millisecondsSince(start));
    }
    return taken;
  }
  double opened = 0;

 private:
  desktop::ReceptionModel& model() { return window_->model(); }
  void settle() {
    loop_.waitUntil(
        [this] {
          return model().counted() && (model().rowCount() == 0 || model().row(0) != nullptr);
        },
        QDeadlineTimer(60000));
    QApplication::processEvents();
  }

  desktop::QtEventLoop& loop_;
  test::World world_;
  shell::Form4 main_{world_.services, world_.outside()};
  memory::ChannelMemory memory_{{main_.MSFlexGrid1, main_.MSFlexGrid2, main_.SSTab1},
                                world_.state,
                                world_.dialogs,
                                link::bc895Model(),
                                [](const std::string&) {}};
  shell::frmReceptionLog form_{world_.receptions, memory_, world_.dialogs};
  std::unique_ptr<desktop::ReceptionWindow> window_;
};

}  // namespace

void benchLog(Table& table) {
  const QTemporaryDir folder;
  test::makeLog(folder.filePath(QStringLiteral("receptions.db")), table.choose(1'000'000, 100'000));
  benchTick(table, folder.path());
  desktop::QtEventLoop loop;
  platform::EventGate gate(loop);
  benchInsert(table, folder.path(), gate);
  OpenLog log(folder.path(), loop, gate);
  table.atMost("log: opening the window", log.opened, 200, "ms");
  table.atMost("log: filtering by a tag", log.filter(QStringLiteral("tag 42")), 200, "ms");
  table.atMost("log: filtering by a text that doesn't occur", log.filter(QStringLiteral("nothing")),
               200, "ms");
  log.filter(QString());
  const auto frames = log.scroll(table.choose(600, 60));
  table.atMost("log: a frame while scrolling, 99th percentile", quantile(frames, 0.99), 16.7, "ms");
}

}  // namespace tarnvex::bench
