#include "line_trial/strike.h"

#include <algorithm>

namespace tarnvex::trial {

void Strike::beforeCommand(int number) {
  if (struck_ && port_.missed > 0) {
    firstWrong_ = firstWrong_ == 0 ? number : firstWrong_;
    if (number > firstWrong_ + kMayBeWrong && !outOfStep()) {
      wrong_ = port_.lastExchanges();
    }
  }
  if (number == nth_) {
    struck_ = true;
    radio_.line.faults().set(fault_);
  }
}

std::string Strike::story() const {
  return fault_ + " at exchange " + std::to_string(nth_) + ": " + wrong_;
}

void StrikeCount::add(const std::string& where, const Strike& strike, int windowSwitches,
                      int notices) {
  ++cases;
  switches += windowSwitches > 0 ? 1 : 0;
  outOfStep += strike.outOfStep() ? 1 : 0;
  endlessWaits += strike.endlessWaits();
  mostNotices = std::max(mostNotices, notices);
  if (strike.outOfStep() || windowSwitches > 0 || notices > 1 || strike.endlessWaits() > 0) {
    Report::detail(where + ": " + strike.story());
  }
}

void StrikeCount::tell(Report& report, const std::string& where) const {
  const std::string name = where + ", " + std::to_string(cases) + " single faults: ";
  report.atMost(name + "exchanges of windows", switches, 0);
  report.atMost(name + "out of step after two exchanges", outOfStep, 0);
  report.atMost(name + "most messages", mostNotices, 1);
  report.atMost(name + "waits without an end", endlessWaits, 0);
}

}  // namespace tarnvex::trial
