// Whether the window ever freezes: a user types into full tables while the whole program polls a
// radio at 9600 baud, and while it waits for a radio that has fallen silent.
#include <QApplication>

#include "bench/full_plan.h"
#include "bench/line.h"
#include "bench/measure.h"
#include "bench/typing.h"
#include "desktop/program_rig.h"

namespace tarnvex::bench {
namespace {

/// A cell of the plan to type into.
struct Spot {
  int tab;
  const char* table;
  int row;
};

class TypingRun {
 public:
  /// `slice` is how long each period of typing lasts, in milliseconds.
  TypingRun(const Radio& radio, double slice) : slice_(slice), rig_(radioAt9600(radio)) {
    // Searching the panel for its text too often would count as the program's own work.
    rig_.lookMilliseconds = 10;
    steps_ = {{"scanning", rig_.panelShows("Frequency: Scanning"),
               [this] { fillPlan(rig_.form()->MSFlexGrid1, rig_.form()->MSFlexGrid2); }}};
  }

  void addSlice(const Spot& spot) { addTyping(spot, after(300)); }
  /// Typing within the 2.9 s in which the program waits for the radio.
  void addSilentSlice(const Spot& spot) {
    steps_.push_back({"falls silent", rig_.polled(), [this] { rig_.radio.say("silence on"); }});
    addTyping(spot, after(300));
    steps_.push_back({"notice", rig_.boxShows("Scanner Not Responding"), [this] {
                        rig_.press(QMessageBox::Ok);
                        rig_.radio.say("silence off");
                      }});
    steps_.push_back({"given up", [this] { return !rig_.form()->MSComm1->portOpen(); },
                      [this] { rig_.connectAgain(); }});
  }

  void play(Table& table, const std::string& when) {
    rig_.play(steps_);
    table.note(when + ": keys typed", static_cast<double>(delays_.size()));
    table.note(when + ": key to painted cell, median", quantile(delays_, 0.5), "ms");
    table.atMost(when + ": key to painted cell, 99th percentile", quantile(delays_, 0.99), 8, "ms");
    table.atMost(when + ": longest gap of a 10 ms beat, median", quantile(longestGaps_, 0.5), 16,
                 "ms");
    table.note(when + ": longest gap of all", quantile(longestGaps_, 1), "ms");
  }

 private:
  void addTyping(const Spot& spot, std::function<bool()> begin) {
    steps_.push_back({"typing", std::move(begin), [this, spot] {
                        open(spot);
                        heartbeat_.start();
                        typist_ = std::make_unique<Typist>(tableOf(spot));
                      }});
    steps_.push_back({"typed", after(slice_), [this] {
                        longestGaps_.push_back(quantile(heartbeat_.stop(), 1));
                        delays_.insert(delays_.end(), typist_->delays.begin(),
                                       typist_->delays.end());
                        typist_.reset();
                      }});
    // Avoids the question whether to save what was typed here. The wait is for the last keys.
    steps_.push_back({"calm", after(200), [this] { rig_.program.state.MemoryModified = false; }});
  }

  QTableView& tableOf(const Spot& spot) {
    return *rig_.program.windows.mainWindow()->findChild<QTableView*>(QLatin1String(spot.table));
  }

  void open(const Spot& spot) {
    rig_.form()->SSTab1.setTab(spot.tab);
    QTableView& table = tableOf(spot);
    table.setFocus();
    table.setCurrentIndex(table.model()->index(spot.row - 1, 1));
    // The page is painted before the first key.
    table.window()->repaint();
  }

  double slice_;
  test::ProgramRig rig_;
  std::vector<test::Step> steps_;
  Heartbeat heartbeat_;
  std::unique_ptr<Typist> typist_;
  std::vector<double> longestGaps_;
  std::vector<double> delays_;
};

}  // namespace

void benchStill(Table& table) {
  const double slice = table.choose(2000, 700);
  const auto play = [&](const Radio& radio, const char* when, std::vector<Spot> spots,
                        void (TypingRun::*addSlice)(const Spot&)) {
    TypingRun run(radio, slice);
    spots.resize(table.choose<std::size_t>(spots.size(), 2));
    for (const Spot& spot : spots) {
      (run.*addSlice)(spot);
    }
    run.play(table, std::string(radio.name) + when);
  };
  const auto rowsOf = [](int tab, const char* table, std::initializer_list<int> rows) {
    std::vector<Spot> spots;
    for (const int row : rows) {
      spots.push_back({tab, table, row});
    }
    return spots;
  };
  for (const Radio& radio : kRadios) {
    play(radio, " polling, 300 channels", rowsOf(0, "MSFlexGrid1", {3, 300, 151, 30, 240}),
         &TypingRun::addSlice);
    play(radio, " polling, 1000 IDs", rowsOf(1, "MSFlexGrid2", {3, 1000, 501, 299, 720}),
         &TypingRun::addSlice);
    play(radio, " silent",
         {{0, "MSFlexGrid1", 3}, {1, "MSFlexGrid2", 1000}, {0, "MSFlexGrid1", 300}},
         &TypingRun::addSilentSlice);
  }
}

}  // namespace tarnvex::bench
