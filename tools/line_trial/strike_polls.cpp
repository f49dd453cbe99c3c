#include "line_trial/strike.h"
#include "line_trial/trial_window.h"
#include "line_trial/trials.h"

namespace tarnvex::trial {
namespace {

using radio::Model;

constexpr int kTicks = 5;

/// A load and some ticks. The mode ends after four looks, so that an ID loop ends too. False if the
/// run has no n-th exchange.
template <class Form>
bool strikeOnce(Model model, const std::string& mode, const char* fault, int nth,
                StrikeCount& count) {
  TrialWindow<Form> window(model, 9600, 3);
  window.line.radio.playScene("steady");
  window.line.radio.setMode(mode);
  Strike strike(window.line, window.port(), fault, nth);
  int looks = 0;
  window.port().beforeCommand = [&](int number, std::string_view command) {
    looks += command == "MD" ? 1 : 0;
    if (looks == 4) {
      window.line.radio.setMode("MD00");
    }
    strike.beforeCommand(number);
  };
  window.load();
  for (int tick = 0; tick < kTicks; ++tick) {
    window.tick();
  }
  if (strike.struck()) {
    count.add(radioName(model) + " " + mode, strike, window.exchanges(), window.notices);
  }
  return strike.struck();
}

template <class Form>
void strikeAll(Report& report, Model model, bool quick) {
  StrikeCount count;
  const int modes = model == Model::BC895XLT ? 17 : 21;
  for (int code = 0; code < modes; code += quick ? 5 : 1) {
    const std::string mode = "MD" + std::to_string(100 + code).substr(1);
    if (!radio::activityOf(model, mode)) {
      continue;
    }
    for (const char* fault : kFaults) {
      int nth = 1;
      while (strikeOnce<Form>(model, mode, fault, nth, count)) {
        nth += quick ? 9 : 1;
      }
    }
  }
  count.tell(report, radioName(model) + " polls");
}

}  // namespace

void strikePolls(Report& report, bool quick) {
  strikeAll<shell::Form4>(report, Model::BC895XLT, quick);
  strikeAll<shell::Form2>(report, Model::BC245XLT, quick);
}

}  // namespace tarnvex::trial
