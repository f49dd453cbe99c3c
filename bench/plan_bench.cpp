// What it takes to load and save a full plan, with the two tables on the screen. What the disk
// takes to make a save outlast a power cut is told apart.
#include <QApplication>
#include <QTemporaryDir>

#include "bench/full_plan.h"
#include "bench/measure.h"
#include "desktop/ports/qt_common_dialog.h"
#include "desktop/ports/qt_dialogs.h"
#include "desktop/ports/qt_event_loop.h"
#include "desktop/windows/plan_table.h"
#include "files/posix_files.h"
#include "memory/frequency_file.h"
#include "support/fake_settings.h"

namespace tarnvex::bench {
namespace {

constexpr int kRounds = 41;

/// The machine's calls; adds up what the syncs take.
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

/// A plan with its two tables shown.
class ShownPlan {
 public:
  ShownPlan() {
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
    const auto start = Clock::now();
    check(file_.LoadPlanFromFile(path(number)));
    return millisecondsSince(start);
  }
  double save(int number) {
    const auto start = Clock::now();
    check(file_.WritePlanToFile(path(number)));
    return millisecondsSince(start);
  }
  /// Milliseconds that the tables take to show what has changed.
  static double paint() {
    const auto start = Clock::now();
    QApplication::processEvents();
    return millisecondsSince(start);
  }

  TimedCalls calls;

 private:
  static void check(const platform::Failure& failure) {
    if (failure) {
      std::fprintf(stderr, "%s\n", failure->c_str());
      std::exit(1);
    }
  }

  QTemporaryDir folder_;
  desktop::QtEventLoop loop_;
  platform::EventGate gate_{loop_};
  desktop::QtDialogs dialogs_{gate_};
  desktop::QtCommonDialogs commonDialogs_{gate_};
  std::unique_ptr<platform::CommonDialog> Dlg1_ = commonDialogs_.create();
  test::FakeSettings settings_;
  files::PosixFiles store_{calls};
  platform::SequentialFiles files_{store_};
  platform::SharedState state_;
  platform::Window window_{{}};
  platform::TabStrip tabs_;
  platform::Table channels_{301, 8};
  platform::Table talkgroups_{1001, 4};
  memory::ChannelMemory memory_{{channels_, talkgroups_, tabs_},
                                state_,
                                dialogs_,
                                link::bc895Model(),
                                [](const std::string&) {}};
  memory::FrequencyFile file_{memory_, {files_, *Dlg1_, dialogs_, settings_, window_}};
  desktop::PlanTable channelView_{channels_, gate_, memory::ChannelRecord::AlphaTag, nullptr};
  desktop::PlanTable talkgroupView_{talkgroups_, gate_, memory::TalkgroupRecord::AlphaTag, nullptr};
};

}  // namespace

void benchPlan(Table& table) {
  ShownPlan plan;
  std::vector<double> saves;
  std::vector<double> syncs;
  std::vector<double> loads;
  std::vector<double> paints;
  for (int round = 0; round < kRounds; ++round) {
    // Every load brings the other of two plans, so that all cells change.
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
      std::fprintf(stderr, "not the plan that was saved\n");
      std::exit(1);
    }
  }
  table.atMost("full plan: load, median", quantile(loads, 0.5), 5, "ms");
  table.note("full plan: load, slowest", quantile(loads, 1), "ms");
  table.note("full plan: painting what was loaded", quantile(paints, 0.5), "ms");
  table.atMost("full plan: save without the disk's sync, median", quantile(saves, 0.5), 10, "ms");
  table.note("full plan: save without the disk's sync, slowest", quantile(saves, 1), "ms");
  table.note("full plan: the disk's sync, median", quantile(syncs, 0.5), "ms");
}

}  // namespace tarnvex::bench
