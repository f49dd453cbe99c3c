// The whole program in this process, with a radio at 9600 baud in another: how fast it polls, and
// how much processor time that takes.
#include "bench/line.h"
#include "bench/measure.h"
#include "desktop/program_rig.h"

namespace tarnvex::bench {
namespace {

class PollRun {
 public:
  /// `seconds` is how long the polling is measured.
  PollRun(const Radio& radio, double seconds)
      : seconds_(seconds), rig_(radioAt9600(radio, {"--log", log_})) {
    // Checking the program too often would count as its own work.
    rig_.lookMilliseconds = 100;
  }

  void play() {
    std::vector<test::Step> steps = {{"scanning", rig_.panelShows("Frequency: Scanning")},
                                     {"in step", after(1000), [this] {
                                        connection_ = rig_.form()->Scantimer.finished.connect(
                                            [this] { ticks_.push_back(Clock::now()); });
                                      }}};
    measure(steps, "polling", after(0), seconds_ * 1000, polling_);
    steps.push_back({"ticks", after(0), [this] {
                       tick_ = lengthOfATick();
                       rig_.radio.say("silence on");
                     }});
    measure(steps, "silent", rig_.boxShows("Scanner Not Responding"), seconds_ * 1000 / 3,
            noticed_);
    steps.push_back({"notice", after(0), [this] { rig_.press(QMessageBox::Ok); }});
    steps.push_back({"unplugged", after(0), [this] { rig_.radio.say("hangup"); }});
    measure(steps, "gone", after(200), seconds_ * 1000 / 3, lost_);
    rig_.play(steps);
  }

  void report(Table& table, const std::string& model) const {
    const double line = lineTimePerTick(log_);
    table.note(model + " poll at 9600 baud: a tick", tick_, "ms");
    table.note(model + " poll at 9600 baud: line time of a tick", line, "ms");
    table.atLeast(model + " poll at 9600 baud: ticks / what the line allows", line / tick_, 0.985);
    table.atMost(model + " processor share while polling", polling_, 5, "%");
    table.atMost(model + " processor share after the notice of silence", noticed_, 1, "%");
    table.atMost(model + " processor share with the radio gone", lost_, 1, "%");
  }

 private:
  /// Adds steps that measure the processor share for a while.
  void measure(std::vector<test::Step>& steps, const std::string& name, std::function<bool()> begin,
               double length, double& result) {
    steps.push_back({name, std::move(begin), [this] {
                       from_ = Clock::now();
                       processor_ = processorMilliseconds();
                     }});
    steps.push_back({name + " measured", after(length), [this, &result] {
                       result =
                           100 * (processorMilliseconds() - processor_) / millisecondsSince(from_);
                     }});
  }

  [[nodiscard]] double lengthOfATick() const {
    if (ticks_.size() < 2) {
      return kNotTaken;
    }
    return std::chrono::duration<double, std::milli>(ticks_.back() - ticks_.front()).count() /
           static_cast<double>(ticks_.size() - 1);
  }

  double seconds_;
  QTemporaryDir folder_;
  QString log_ = folder_.filePath("log");
  test::ProgramRig rig_;
  std::vector<Clock::time_point> ticks_;
  platform::Connection connection_;
  Clock::time_point from_;
  double processor_ = 0;
  double tick_ = kNotTaken;
  double polling_ = kNotTaken;
  double noticed_ = kNotTaken;
  double lost_ = kNotTaken;
};

}  // namespace

void benchPoll(Table& table) {
  for (const Radio& radio : kRadios) {
    PollRun run(radio, table.choose(12, 4));
    run.play();
    run.report(table, radio.name);
  }
}

}  // namespace tarnvex::bench
