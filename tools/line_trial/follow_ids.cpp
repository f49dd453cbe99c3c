#include <algorithm>
#include <map>
#include <set>

#include "line_trial/trial_window.h"
#include "line_trial/trials.h"
#include "radio/replies.h"

namespace tarnvex::trial {
namespace {

using radio::Millis;
using radio::Model;

/// A look that is longer than a few rounds.
constexpr int kLongLook = 30;

/// The ID at the head of a line of the hit list, without blanks and leading zeros.
std::string normal(std::string id) {
  id = id.substr(0, id.find(" - "));
  id.erase(0, std::min(id.find_first_not_of(" 0"), id.size()));
  return id.substr(0, id.find_last_not_of(' ') + 1);
}

std::string idMode(Model model, bool hold) {
  if (model == Model::BC895XLT) {
    return hold ? "MD08" : "MD07";
  }
  return hold ? "MD10" : "MD09";
}

/// A radio in an ID mode, which it leaves for a moment now and then.
class Follower {
 public:
  Follower(radio::Radio& radio, std::string mode) : radio_(radio), mode_(std::move(mode)) {
    radio_.playScene("busy");
    radio_.setMode(mode_);
  }
  void beforeCommand(std::string_view command, const std::string& shownMode, Millis now) {
    if (command == "MD") {
      late_ = (shownMode == mode_) == follows_ ? 0 : late_ + 1;
      mostLate = std::max(mostLate, late_);
      change(now);
    }
    const std::string line = streamedLine(radio_.state());
    if (follows_ && line.starts_with("ID S")) {
      ++heard[normal(line.substr(5))];
    }
  }

  std::map<std::string, int> heard;
  int mostLate = 0;

 private:
  void change(Millis now) {
    if (now >= nextChange_) {
      follows_ = !follows_;
      nextChange_ = now + (follows_ ? 15000 : 2000);
      radio_.setMode(follows_ ? mode_ : "MD00");
      late_ = 0;
    }
  }

  radio::Radio& radio_;
  std::string mode_;
  bool follows_ = true;
  Millis nextChange_ = 5000;
  int late_ = 0;
};

/// Hits of IDs that were never heard, and IDs heard for long that are no hits.
std::pair<int, int> judgeHits(const std::vector<std::string>& hits,
                              const std::map<std::string, int>& heard) {
  std::set<std::string> listed;
  for (const std::string& hit : hits) {
    listed.insert(normal(hit));
  }
  const auto wrong =
      std::ranges::count_if(listed, [&](const auto& id) { return !heard.contains(id); });
  const auto lost = std::ranges::count_if(
      heard, [&](const auto& id) { return id.second > kLongLook && !listed.contains(id.first); });
  return {static_cast<int>(wrong), static_cast<int>(lost)};
}

template <class Form>
void follow(Report& report, Model model, bool hold, int baud, int seconds) {
  TrialWindow<Form> window(model, baud, 7);
  Follower follower(window.line.radio, idMode(model, hold));
  window.form.panel.Frequency.setCaption("Scanning");
  window.port().beforeCommand = [&](int /*number*/, std::string_view command) {
    follower.beforeCommand(command, window.mode(), window.line.milliseconds());
  };
  window.form.MSComm1->open();
  window.form.Scantimer.setEnabled(true);
  window.line.line.faults().set("extra stream before every 3");
  while (window.line.milliseconds() < seconds * 1000LL) {
    window.tick();
    window.line.waited += std::chrono::milliseconds(1);
  }
  const std::string name =
      radioName(model) + (hold ? " ID hold " : " ID search ") + std::to_string(baud) + ": ";
  const auto [wrong, lost] = judgeHits(window.form.hitLists.List2.items(), follower.heard);
  report.atMost(name + "exchanges of windows", window.exchanges(), 0);
  report.atMost(name + "rounds until a mode change is seen", follower.mostLate, 3);
  report.atMost(name + "wrong hits", wrong, 0);
  // An ID that is held is no hit.
  report.atMost(name + "IDs heard and not found, of " + std::to_string(follower.heard.size()),
                hold ? 0 : lost, 0);
  report.atMost(name + "waits without an end", window.port().endlessWaits, 0);
}

}  // namespace

void followIds(Report& report, bool quick) {
  const int seconds = quick ? 60 : 600;
  for (const int baud : {4800, 9600}) {
    for (const bool hold : {false, true}) {
      follow<shell::Form4>(report, Model::BC895XLT, hold, baud, seconds);
      follow<shell::Form2>(report, Model::BC245XLT, hold, baud, seconds);
    }
  }
}

}  // namespace tarnvex::trial
