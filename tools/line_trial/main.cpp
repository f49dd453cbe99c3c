// Tries out whether the program keeps in step with a radio that talks out of turn: hours of the
// radio's time in minutes, without a window. Prints a table. The exit status is 1 if a limit is
// missed.
//
//   line_trial [--quick]
#include <cstdio>
#include <cstring>
#include <map>
#include <set>

#include "line_trial/trial_window.h"
#include "memory/download_dialog.h"
#include "radio/replies.h"

namespace tarnvex::trial {
namespace {

using radio::Model;

bool allMet = true;

void report(const std::string& name, double value, double limit, bool atMost = true) {
  const bool met = atMost ? value <= limit : value >= limit;
  allMet = allMet && met;
  std::printf("%-78s %9g  %s %-7g %s\n", name.c_str(), value, atMost ? "<=" : ">=", limit,
              met ? "" : "MISSED");
  std::fflush(stdout);
}

const char* radioName(Model model) {
  return model == Model::BC895XLT ? "BC895XLT" : "BC245XLT";
}

/// The ID at the start of a line in the talkgroup hit list, without blanks and leading zeros.
std::string normal(std::string id) {
  id = id.substr(0, id.find(" - "));
  id.erase(0, std::min(id.find_first_not_of(" 0"), id.size()));
  return id.substr(0, id.find_last_not_of(' ') + 1);
}

/// Minutes in an ID mode, which is left for a moment now and then. One command in three has a
/// streamed line before its reply.
template <class Form>
class IdTrial {
 public:
  IdTrial(Model model, bool hold, int baud)
      : window_(model, baud, 7),
        hold_(hold),
        name_(std::string(radioName(model)) + (hold ? " ID hold " : " ID search ") +
              std::to_string(baud) + ": "),
        idMode_(model == Model::BC895XLT ? (hold ? "MD08" : "MD07") : (hold ? "MD10" : "MD09")) {
    radio().playScene("busy");
    window_.form.panel.Frequency.setCaption("Scanning");
    radio().setMode(idMode_);
    window_.port().beforeCommand = [this](int /*number*/, std::string_view command) {
      watch(command);
    };
  }

  void play(int seconds) {
    window_.form.MSComm1->open();
    window_.form.Scantimer.setEnabled(true);
    window_.line.line.faults().set("extra stream before every 3");
    while (window_.line.milliseconds() < seconds * 1000LL) {
      window_.tick();
      window_.line.now += std::chrono::milliseconds(1);
    }
    report(name_ + "window exchanges", window_.exchanges(), 0);
    report(name_ + "rounds until a mode change is seen", mostLate_, 3);
    reportHits();
  }

 private:
  radio::Radio& radio() { return window_.line.radio; }

  void watch(std::string_view command) {
    if (command == "MD") {
      late_ = (window_.mode() == idMode_) == follows_ ? 0 : late_ + 1;
      mostLate_ = std::max(mostLate_, late_);
      changeMode();
    }
    const std::string line = streamedLine(radio().state());
    if (follows_ && line.starts_with("ID S")) {
      ++heard_[normal(line.substr(5))];
    }
  }

  void changeMode() {
    if (window_.line.milliseconds() >= nextChange_) {
      follows_ = !follows_;
      nextChange_ = window_.line.milliseconds() + (follows_ ? 15000 : 2000);
      radio().setMode(follows_ ? idMode_ : "MD00");
      late_ = 0;
    }
  }

  void reportHits() {
    int wrong = 0;
    std::set<std::string> listed;
    for (const std::string& hit : window_.form.hitLists.List2.items()) {
      listed.insert(normal(hit));
      wrong += heard_.contains(normal(hit)) ? 0 : 1;
    }
    report(name_ + "wrong hits", wrong, 0);
    int lost = 0;
    for (const auto& [id, looks] : heard_) {
      // Only IDs that were on the air for a few rounds count.
      lost += !hold_ && looks > 30 && !listed.contains(id) ? 1 : 0;
    }
    report(name_ + "IDs on the air but not listed, of " + std::to_string(heard_.size()), lost, 0);
  }

  TrialWindow<Form> window_;
  bool hold_;
  std::string name_;
  std::string idMode_;
  /// How often each ID was on the line.
  std::map<std::string, int> heard_;
  /// Rounds in which the program hasn't seen the change of mode yet.
  int late_ = 0;
  int mostLate_ = 0;
  radio::Millis nextChange_ = 5000;
  bool follows_ = true;
};

constexpr const char* kFaults[] = {"extra echo before",
                                   "extra noise before",
                                   "extra noise after",
                                   "extra copy late 40",
                                   "extra previous before",
                                   "cut 0",
                                   "join",
                                   "8bit",
                                   "slow",
                                   "extra flood before",
                                   "extra id before",
                                   "extra id after",
                                   "extra text # before",
                                   "extra copy after",
                                   "delay 400"};

struct FaultCount {
  int cases = 0;
  int exchanged = 0;
  int outOfStep = 0;
  int notices = 0;
};

/// What is seen from the fault on.
struct Strike {
  /// Exchanges since the fault, -1 before it.
  int since = -1;
  int outOfStep = 0;
};

/// Sets the fault before the n-th exchange, and leaves the mode after a while.
template <class Form>
void prepareStrike(TrialWindow<Form>& window, const char* fault, int nth, Strike& strike) {
  window.port().beforeCommand = [&window, &strike, fault, nth, modes = 0](
                                    int number, std::string_view command) mutable {
    modes += command == "MD" ? 1 : 0;
    if (modes == 4) {
      window.line.radio.setMode("MD00");
    }
    strike.since = number == nth ? 0 : strike.since < 0 ? -1 : strike.since + 1;
    if (number == nth) {
      window.line.line.faults().set(fault);
    }
    strike.outOfStep += strike.since > 3 && window.port().missed > 0 ? 1 : 0;
  };
}

/// Loads a window and runs some ticks in one mode, with one fault at the n-th exchange. False if
/// there are fewer than n exchanges.
template <class Form>
bool strikeAt(Model model, const std::string& mode, const char* fault, int nth, FaultCount& count) {
  TrialWindow<Form> window(model, 9600, 3);
  window.line.radio.playScene("steady");
  window.line.radio.setMode(mode);
  Strike strike;
  prepareStrike(window, fault, nth, strike);
  window.load();
  for (int tick = 0; tick < 5; ++tick) {
    window.tick();
  }
  if (strike.since < 0) {
    return false;
  }
  ++count.cases;
  count.exchanged += window.exchanges() > 0 ? 1 : 0;
  count.outOfStep += strike.outOfStep > 0 ? 1 : 0;
  count.notices = std::max(count.notices, window.notices);
  if (strike.outOfStep > 0 || window.exchanges() > 0) {
    std::printf("  %s %s: %s at exchange %d\n", radioName(model), mode.c_str(), fault, nth);
  }
  return true;
}

template <class Form>
void strikeAll(Model model, bool quick) {
  FaultCount count;
  const int modes = model == Model::BC895XLT ? 17 : 21;
  for (int code = 0; code < modes; code += quick ? 5 : 1) {
    const std::string mode = "MD" + std::to_string(100 + code).substr(1);
    if (!radio::activityOf(model, mode)) {
      continue;
    }
    for (const char* fault : kFaults) {
      for (int nth = 1; strikeAt<Form>(model, mode, fault, nth, count); nth += quick ? 9 : 1) {
      }
    }
  }
  const std::string name =
      std::string(radioName(model)) + " " + std::to_string(count.cases) + " single faults: ";
  report(name + "window exchanges", count.exchanged, 0);
  report(name + "out of step after two exchanges", count.outOfStep, 0);
  report(name + "most notices", count.notices, 1);
}

template <class Form>
void noise(Model model, int exchanges) {
  TrialWindow<Form> window(model, 9600, 11);
  window.line.radio.playScene("busy");
  window.load();
  window.line.line.faults().set("noise 1");
  window.port().beforeCommand = [](int, std::string_view) {};
  while (window.port().commands < exchanges) {
    if (window.port().commands % 400 < 20) {
      window.line.radio.setMode(window.port().commands / 400 % 2 == 0 ? "MD02" : "MD00");
    }
    window.tick();
  }
  const std::string name = std::string(radioName(model)) + " 1 % noise: ";
  report(name + "window exchanges", window.exchanges(), 0);
  report(name + "most exchanges in a row without their answer", window.port().mostMissed, 3);
}

}  // namespace
}  // namespace tarnvex::trial

int main(int argc, char** argv) {
  using namespace tarnvex;
  using radio::Model;
  const bool quick = argc > 1 && std::strcmp(argv[1], "--quick") == 0;
  if (argc > 1 && !quick) {
    std::fprintf(stderr, "line_trial [--quick]\n");
    return 2;
  }
  for (const int baud : {4800, 9600}) {
    for (const bool hold : {false, true}) {
      trial::IdTrial<shell::Form4>(Model::BC895XLT, hold, baud).play(quick ? 60 : 600);
      trial::IdTrial<shell::Form2>(Model::BC245XLT, hold, baud).play(quick ? 60 : 600);
    }
  }
  trial::strikeAll<shell::Form4>(Model::BC895XLT, quick);
  trial::strikeAll<shell::Form2>(Model::BC245XLT, quick);
  trial::noise<shell::Form4>(Model::BC895XLT, quick ? 2000 : 20000);
  trial::noise<shell::Form2>(Model::BC245XLT, quick ? 2000 : 20000);
  return trial::allMet ? 0 : 1;
}
