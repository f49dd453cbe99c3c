#include <algorithm>
#include <array>

#include "line_trial/trial_window.h"
#include "line_trial/trials.h"
#include "link/scanner_replies.h"

namespace tarnvex::trial {
namespace {

using radio::Model;

constexpr int kExchangesPerMode = 400;

/// Modes that enter hits, and some that don't.
constexpr std::array kModes895{"MD00", "MD02", "MD07", "MD09", "MD03", "MD08"};
constexpr std::array kModes245{"MD00", "MD02", "MD09", "MD11", "MD03", "MD10"};

std::string headOf(const std::string& hit) {
  return hit.substr(0, hit.find(" - "));
}

bool isFrequency(const std::string& head) {
  return link::readsAsFrequency(head);
}

bool isId(const std::string& head) {
  return !head.empty() && head.find_first_not_of("0123456789- ") == std::string::npos;
}

/// The heads of a hit list. None may change or go, and each reads as what it is.
class HitWatch {
 public:
  HitWatch(const platform::ListBox& list, bool (*reads)(const std::string& head))
      : list_(list), reads_(reads) {}

  void look() {
    const auto& lines = list_.items();
    for (std::size_t i = 0; i < heads_.size(); ++i) {
      broken += i >= lines.size() || headOf(lines[i]) != heads_[i] ? 1 : 0;
    }
    heads_.clear();
    for (const std::string& line : lines) {
      heads_.push_back(headOf(line));
      broken += reads_(heads_.back()) ? 0 : 1;
    }
  }

  int broken = 0;

 private:
  const platform::ListBox& list_;
  bool (*reads_)(const std::string& head);
  std::vector<std::string> heads_;
};

template <class Form>
void hear(Report& report, Model model, int exchanges) {
  TrialWindow<Form> window(model, 9600, 11);
  window.line.radio.playScene("busy");
  window.load();
  HitWatch frequencies(window.form.hitLists.List1, isFrequency);
  HitWatch ids(window.form.hitLists.List2, isId);
  window.line.line.faults().set("noise 1");
  window.port().beforeCommand = [&](int number, std::string_view /*command*/) {
    if (number % kExchangesPerMode == 0) {
      const auto& modes = model == Model::BC895XLT ? kModes895 : kModes245;
      const auto turn = static_cast<std::size_t>(number / kExchangesPerMode);
      window.line.radio.setMode(modes[turn % modes.size()]);
    }
  };
  while (window.port().commands < exchanges) {
    window.tick();
    frequencies.look();
    ids.look();
  }
  const std::string name = radioName(model) + ", " + std::to_string(exchanges) +
                           " exchanges with 1 % of the bytes spoilt: ";
  report.atMost(name + "exchanges of windows", window.exchanges(), 0);
  report.atMost(name + "hits broken", frequencies.broken + ids.broken, 0);
  report.atMost(name + "plan changed", window.planChanged() ? 1 : 0, 0);
  report.atMost(name + "most exchanges in a row without their answer", window.port().mostMissed, 2);
  report.atMost(name + "waits without an end", window.port().endlessWaits, 0);
}

}  // namespace

void hearNoise(Report& report, bool quick) {
  const int exchanges = quick ? 4000 : 20000;
  hear<shell::Form4>(report, Model::BC895XLT, exchanges);
  hear<shell::Form2>(report, Model::BC245XLT, exchanges);
}

}  // namespace tarnvex::trial
