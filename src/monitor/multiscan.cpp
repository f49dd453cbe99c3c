#include "monitor/multiscan.h"

#include "link/insist.h"
#include "link/scanner_commands.h"
#include "monitor/poll_cycle.h"

namespace tarnvex::monitor {
namespace {

/// How long the radio stays in the conventional banks and in a trunked bank, in milliseconds.
constexpr int kConventionalInterval = 1000;
constexpr int kTrunkedInterval = 1750;

}  // namespace

Multiscan::Multiscan(Outside outside)
    : BankRotation(
          {outside.panel, outside.link, outside.gate, outside.state, outside.settings}, "Multiscan",
          kBanks, kConventionalInterval, [this] { step(); }, [this] { bankClicked(); }),
      outside_(outside) {
  Option5.onClick = [this] {
    timer.setEnabled(true);
    if (mayAct()) {
      send(link::key::kScan);
    }
  };
}

void Multiscan::step() {
  do {
    moveOn();
    if (link::insist(outside_.link, link::command::kMode) == link::mode895::kTrunkScan) {
      send(link::key::kTrunk);
    }
    if (cursor() < kConventionalBanks) {
      const std::string letters = tickedConventionalBanks();
      if (!letters.empty()) {
        scanConventional(letters);
        return;
      }
    } else if (ticked(cursor())) {
      scanTrunked(cursor() - kConventionalBanks);
      return;
    }
  } while (anyTicked());
}

std::string Multiscan::tickedConventionalBanks() const {
  std::string letters;
  for (int bank = 0; bank < kConventionalBanks; ++bank) {
    if (ticked(bank)) {
      letters += link::bankLetter(bank);
    }
  }
  return letters;
}

void Multiscan::scanConventional(const std::string& letters) {
  send(link::command::scanBanks(letters));
  send(link::key::kScan);
  timer.setInterval(kConventionalInterval);
  // So that the next tick goes on to the first trunked bank.
  cursor() = kConventionalBanks - 1;
}

void Multiscan::scanTrunked(int bank) {
  send(link::key::kTrunk);
  send(link::key::bank(link::bankLetter(bank)));
  send(link::key::kScan);
  if (send(link::command::kTrunkScanBanks) == link::reply::kNothing) {
    giveUp();
  }
  timer.setInterval(kTrunkedInterval);
}

/// Called if the bank has no ID to scan.
void Multiscan::giveUp() {
  flashError();
  Option5.setValue(false);
  Option6.setValue(true);
  send(link::key::kTrunk);
  send(link::key::kScan);
}

void Multiscan::flashError() {
  outside_.dialogs.beep();
  state().EntryActive = true;
  for (int flash = 0; flash < 2; ++flash) {
    panel().Frequency.setCaption("Error");
    waitBeyond(0.3);
    panel().Frequency.setCaption("");
    waitBeyond(0.1);
  }
  state().EntryActive = false;
}

/// Deliberate: the clock counts whole seconds, so the wait ends when the second changes, after
/// anything from a moment to a second. "Error" therefore flashes unevenly.
void Multiscan::waitBeyond(double seconds) {
  platform::waitBeyond(seconds, outside_.gate, outside_.clock);
}

/// Deliberate: a running Multiscan moves on at once, and only then is it switched off if no box is
/// ticked.
void Multiscan::bankClicked() {
  if (timer.enabled() && mayAct()) {
    panel().Frequency.setCaption(std::string(kScanning));
    panel().Alpha.setCaption("");
    timer.fire();
  }
  followBoxes();
}

}  // namespace tarnvex::monitor
