// How long it takes to load and save a full plan with the two tables on the screen. The disk's own
// sync has a row of its own.
#include <QApplication>
#include <QTemporaryDir>

#include "bench/full_plan.h"
#include "bench/line.h"
#include "bench/measure.h"
#include "desktop/ports/qt_common_dialog.h"
#include "desktop/ports/qt_dialogs.h"
#include "desktop/ports/qt_event_loop.h"
#include "desktop/ports/wall_clock.h"
#include "desktop/windows/plan_table.h"
#include "files/backup_folder.h"
#include "files/posix_files.h"
#include "memory/frequency_file.h"
#include "support/fake_settings.h"

namespace tarnvex::bench {
namespace {

/// The machine's calls. Adds up the time that the syncs take.
class TimedCalls : public files::FileCalls {
 public:
  int fsync(int file) override {
    const auto start = Clock::now();
    const int result = FileCalls::fsync(file);
    milliseconds += millisecondsSince(start);
    return result;
  }
  double milliseconds = 0;
};

/// A plan with its two tables on the screen.
class ShownPlan {
 public:
  explicit ShownPlan(const link::RadioModel& model)
      : memory_({channels_, talkgroups_, tabs_}, state_, dialogs_, model,
                [](const std::string&) {}) {
    memory_.layOut();
    for (auto* view : {&channelView_, &talkgroupView_}) {
      view->resize(900, 500);
      view->show();
    }
  }

  void fill(int number) { fillPlan(channels_, talkgroups_, number); }
  [[nodiscard]] std::string tagAt(int row) const { return talkgroups_.textMatrix(row, 2); }
  [[nodiscard]] std::string path(int number) const {
    return folder_.filePath(QString::number(number)).toStdString();
  }
  /// Milliseconds.
  double load(int number) {
    return timed([&] { return file_.LoadPlanFromFile(path(number)); });
  }
  double save(int number) {
    return timed([&] { return file_.WritePlanToFile(path(number)); });
  }
  /// Returns the milliseconds that the tables take to show the changes.
  static double paint() {
    const auto start = Clock::now();
    QApplication::processEvents();
    return millisecondsSince(start);
  }

  TimedCalls calls;

 private:
  template <class Work>
  static double timed(Work work) {
    const auto start = Clock::now();
    const platform::Failure failure = work();
    return failure ? kNotTaken : millisecondsSince(start);
  }

  QTemporaryDir folder_;
  desktop::QtEventLoop loop_;
  platform::EventGate gate_{loop_};
  desktop::QtDialogs dialogs_{gate_};
  desktop::QtCommonDialog Dlg1_{gate_};
  test::FakeSettings settings_;
  files::PosixFiles store_{calls};
  platform::SequentialFiles files_{store_};
  desktop::WallClock clock_;
  files::BackupFolder backups_{calls, clock_, folder_.path().toStdString()};
  platform::SharedState state_;
  platform::Window window_{"window", {}};
  platform::TabStrip tabs_{"tabs"};
  platform::Table channels_{"channels", 301, 8};
  platform::Table talkgroups_{"talkgroups", 1001, 4};
  memory::ChannelMemory memory_;
  memory::FrequencyFile file_{memory_,
                              {files_, Dlg1_, dialogs_, settings_, window_, backups_, Dlg1_}};
  memory::PlanEditor editor_{memory_};
  desktop::PlanTable channelView_{channels_, editor_, gate_, memory::ChannelRecord::AlphaTag,
                                  nullptr};
  desktop::PlanTable talkgroupView_{talkgroups_, editor_, gate_, memory::TalkgroupRecord::AlphaTag,
                                    nullptr};
};

void measure(Table& table, const Radio& radio) {
  ShownPlan plan(radio.model());

  std::vector<double> saves;
  std::vector<double> syncs;
  std::vector<double> loads;
  std::vector<double> paints;
  for (int round = 0; round < table.choose(41, 11); ++round) {
    // Loads two plans in turn, so that every load changes all cells.
    const int number = round % 2;
    plan.fill(number);
    plan.calls.milliseconds = 0;
    const double save = plan.save(number);
    syncs.push_back(plan.calls.milliseconds);
    saves.push_back(save - plan.calls.milliseconds);
    plan.fill(1 - number);
    ShownPlan::paint();
    loads.push_back(plan.load(number));
    paints.push_back(ShownPlan::paint());
    if (plan.tagAt(1000) != "Group 1000 of plan " + std::to_string(number)) {
      table.fail("the loaded plan differs from the saved one");
    }
  }
  const std::string what = std::string(radio.name) + " full plan: ";
  table.atMost(what + "load, median", quantile(loads, 0.5), 2, "ms");
  table.note(what + "load, slowest", quantile(loads, 1), "ms");
  table.note(what + "painting what was loaded", quantile(paints, 0.5), "ms");
  table.atMost(what + "save without the disk's sync, median", quantile(saves, 0.5), 4, "ms");
  table.note(what + "save without the disk's sync, slowest", quantile(saves, 1), "ms");
  table.note(what + "the disk's sync, median", quantile(syncs, 0.5), "ms");
}

}  // namespace

void benchPlan(Table& table) {
  for (const Radio& radio : kRadios) {
    measure(table, radio);
  }
}

}  // namespace tarnvex::bench
