#pragma once

#include <array>
#include <string>

#include "line_trial/report.h"
#include "line_trial/trial_port.h"

namespace tarnvex::trial {

/// Faults that strike one exchange.
inline constexpr std::array kFaults{"extra echo before",
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

/// One fault at the n-th exchange of a run. Tells whether the program is in step again two
/// exchanges after the first wrong answer. That may be a later one than the n-th: a line may come
/// late, and an extra "OK" fits the keys that follow, too.
class Strike {
 public:
  Strike(TrialRadio& radio, TrialPort& port, std::string fault, int nth)
      : radio_(radio), port_(port), fault_(std::move(fault)), nth_(nth) {}

  /// The run calls it before each command.
  void beforeCommand(int number);
  /// False if the run was over before the n-th exchange.
  [[nodiscard]] bool struck() const { return struck_; }
  [[nodiscard]] bool outOfStep() const { return !wrong_.empty(); }
  [[nodiscard]] int endlessWaits() const { return port_.endlessWaits; }
  /// The fault, and the exchanges up to the wrong one.
  [[nodiscard]] std::string story() const;

 private:
  static constexpr int kMayBeWrong = 2;

  TrialRadio& radio_;
  TrialPort& port_;
  std::string fault_;
  int nth_;
  bool struck_ = false;
  /// The number of the command after the first wrong answer.
  int firstWrong_ = 0;
  std::string wrong_;
};

/// What many strikes have led to.
struct StrikeCount {
  int cases = 0;
  int switches = 0;
  int outOfStep = 0;
  int mostNotices = 0;
  int endlessWaits = 0;

  void add(const std::string& where, const Strike& strike, int windowSwitches, int notices);
  void tell(Report& report, const std::string& where) const;
};

}  // namespace tarnvex::trial
