#include <numeric>

#include "line_trial/strike.h"
#include "line_trial/transfer_line.h"
#include "line_trial/trials.h"

namespace tarnvex::trial {
namespace {

using radio::Model;

/// From here on the commands repeat themselves.
constexpr int kEachUpTo = 30;
constexpr int kThenEvery = 17;
constexpr int kQuickStep = 37;

struct Stray {
  const char* fault;
  /// Noise and words such as "NG" may be the answer, and are then accepted as it.
  bool mayAnswer;
};
constexpr Stray kStrays[] = {{"extra noise after every 5", true},
                             {"extra previous after every 5", true},
                             {"extra copy after every 5", true},
                             {"extra id after every 5", false},
                             {"extra echo after every 5", false}};

std::vector<int> allBanks() {
  std::vector<int> banks(radio::kBanks);
  std::iota(banks.begin(), banks.end(), 0);
  return banks;
}

/// What many transfers have done beyond what their strikes tell.
struct Damage {
  int shifted = 0;
  int choicesLost = 0;

  void tell(Report& report, const std::string& name) const {
    report.atMost(name + ": rows shifted", shifted, 0);
    report.atMost(name + ": choices of banks lost", choicesLost, 0);
  }
};

bool strikeOnce(Model model, TransferKind kind, const char* fault, int nth, StrikeCount& count,
                Damage& damage) {
  TransferLine transfer(model, kind);
  Strike strike(transfer.line, *transfer.port, fault, nth);
  transfer.port->beforeCommand = [&](int number, std::string_view /*command*/) {
    strike.beforeCommand(number);
  };
  const std::vector<int> banks{TransferLine::kTrunkedBank};
  transfer.run(banks);
  if (strike.struck()) {
    const std::string where = radioName(model) + " " + nameOf(kind);
    count.add(where, strike, 0, transfer.messages());
    const int rows = transfer.shifted(banks);
    damage.shifted += rows;
    damage.choicesLost += transfer.choiceKept() ? 0 : 1;
    if (rows > 0 || !transfer.choiceKept()) {
      Report::detail(where + " spoilt by " + fault + " at exchange " + std::to_string(nth));
    }
  }
  return strike.struck();
}

}  // namespace

void strikeTransfers(Report& report, bool quick) {
  for (const Model model : {Model::BC895XLT, Model::BC245XLT}) {
    for (const TransferKind kind : kTransfers) {
      StrikeCount count;
      Damage damage;
      for (const char* fault : kFaults) {
        int nth = 1;
        while (strikeOnce(model, kind, fault, nth, count, damage)) {
          nth += quick ? kQuickStep : nth < kEachUpTo ? 1 : kThenEvery;
        }
      }
      const std::string name = radioName(model) + " " + nameOf(kind);
      count.tell(report, name);
      damage.tell(report, name);
    }
  }
}

void transferAll(Report& report, bool quick) {
  const std::vector<int> banks = quick ? std::vector<int>{0, 1} : allBanks();
  for (const Model model : {Model::BC895XLT, Model::BC245XLT}) {
    for (const TransferKind kind : kTransfers) {
      Damage damage;
      int wrong = 0;
      int messages = 0;
      int endless = 0;
      for (const Stray& stray : kStrays) {
        TransferLine transfer(model, kind);
        transfer.line.line.faults().set(stray.fault);
        transfer.run(banks);
        damage.shifted += transfer.shifted(banks);
        damage.choicesLost += transfer.choiceKept() ? 0 : 1;
        endless += transfer.port->endlessWaits;
        wrong += stray.mayAnswer ? 0 : transfer.wrong(banks);
        messages += transfer.messages();
      }
      const std::string name = radioName(model) + " " + nameOf(kind) + " between stray lines";
      damage.tell(report, name);
      report.atMost(name + ": rows wrong, without a possible answer", wrong, 0);
      report.atMost(name + ": messages", messages, 0);
      report.atMost(name + ": waits without an end", endless, 0);
    }
  }
}

}  // namespace tarnvex::trial
