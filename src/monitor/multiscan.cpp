#include "monitor/multiscan.h"

#include <algorithm>

#include "link/scanner_commands.h"
#include "platform/convert.h"

namespace tarnvex::monitor {
namespace {

constexpr std::string_view kSection = "Multiscan";
/// How long a pass of the conventional banks and a stay on a trunked bank last, in milliseconds.
constexpr int kConventionalInterval = 1000;
constexpr int kTrunkedInterval = 1750;

}  // namespace

Multiscan::Multiscan(Parts parts, Outside outside) : parts_(parts), outside_(outside) {
  platform::groupOptions({&parts_.Option5, &parts_.Option6});
  parts_.Option5.onClick = [this] {
    parts_.Timer1.setEnabled(true);
    outside_.link.SendCommand(link::key::kScan);
  };
  parts_.Option6.onClick = [this] { parts_.Timer1.setEnabled(false); };
  for (int i = 0; i < kBanks; ++i) {
    parts_.MSBank[static_cast<std::size_t>(i)].onClick = [this, i] { bankClicked(i); };
  }
  parts_.Timer1.onTick = [this] { tick(); };
}

void Multiscan::loadBanks() {
  for (int i = 0; i < kBanks; ++i) {
    const auto stored =
        platform::toInteger(outside_.settings.getSetting(kSection, std::to_string(i), "0"));
    if (stored) {
      parts_.MSBank[static_cast<std::size_t>(i)].setValue(*stored != 0);
    }
  }
}

void Multiscan::tick() {
  if (outside_.panel.Frequency.caption() == "Scanning") {
    advance();
  }
}

/// With no box ticked this would never end; bankClicked sees to it that Multiscan is off then.
void Multiscan::advance() {
  int& cursor = outside_.state.BankCursor;
  for (;;) {
    cursor = cursor >= kBanks - 1 ? 0 : cursor + 1;
    if (outside_.link.SendCommand(link::command::kMode) == link::mode895::kTrunkScan) {
      outside_.link.SendCommand(link::key::kTrunk);
    }
    if (cursor < kConventionalBanks) {
      const std::string letters = chosenConventionalBanks();
      if (!letters.empty()) {
        scanConventional(letters);
        return;
      }
    } else if (parts_.MSBank[static_cast<std::size_t>(cursor)].value()) {
      scanTrunked(cursor - kConventionalBanks);
      return;
    }
    if (std::ranges::none_of(parts_.MSBank, &platform::CheckBox::value)) {
      return;
    }
  }
}

std::string Multiscan::chosenConventionalBanks() const {
  std::string letters;
  for (int i = 0; i < kConventionalBanks; ++i) {
    if (parts_.MSBank[static_cast<std::size_t>(i)].value()) {
      letters += link::bankLetter(i);
    }
  }
  return letters;
}

void Multiscan::scanConventional(const std::string& letters) {
  outside_.link.SendCommand(link::command::scanBanks(letters));
  outside_.link.SendCommand(link::key::kScan);
  parts_.Timer1.setInterval(kConventionalInterval);
  // The next tick goes on with the first trunked bank.
  outside_.state.BankCursor = kConventionalBanks - 1;
}

void Multiscan::scanTrunked(int bank) {
  outside_.link.SendCommand(link::key::kTrunk);
  outside_.link.SendCommand(link::key::bank(link::bankLetter(bank)));
  outside_.link.SendCommand(link::key::kScan);
  if (outside_.link.SendCommand(link::command::kTrunkScanBanks) == link::reply::kNothing) {
    giveUp();
  }
  parts_.Timer1.setInterval(kTrunkedInterval);
}

/// The bank has no ID to scan.
void Multiscan::giveUp() {
  flashError();
  parts_.Option5.setValue(false);
  parts_.Option6.setValue(true);
  outside_.link.SendCommand(link::key::kTrunk);
  outside_.link.SendCommand(link::key::kScan);
}

void Multiscan::flashError() {
  outside_.dialogs.beep();
  outside_.state.EntryActive = true;
  for (int flash = 0; flash < 2; ++flash) {
    outside_.panel.Frequency.setCaption("Error");
    waitBeyond(0.3);
    outside_.panel.Frequency.setCaption("");
    waitBeyond(0.1);
  }
  outside_.state.EntryActive = false;
}

/// The difference is in whole seconds, so this lasts until the clock's second changes: from a
/// moment to a second. The flash has that uneven beat, and Multiscan's users know it.
void Multiscan::waitBeyond(double seconds) {
  const auto start = outside_.clock.seconds();
  outside_.gate.waitUntil(
      [&] { return static_cast<double>(outside_.clock.seconds() - start) > seconds; });
}

void Multiscan::bankClicked(int index) {
  const bool ticked = parts_.MSBank[static_cast<std::size_t>(index)].value();
  outside_.settings.saveSetting(kSection, std::to_string(index), ticked ? "1" : "0");
  if (parts_.Timer1.enabled()) {
    outside_.panel.Frequency.setCaption("Scanning");
    outside_.panel.Alpha.setCaption("");
    parts_.Timer1.fire();
  }
  if (std::ranges::any_of(parts_.MSBank, &platform::CheckBox::value)) {
    parts_.Option5.setEnabled(true);
    return;
  }
  parts_.Option5.setValue(false);
  parts_.Option5.setEnabled(false);
  parts_.Timer1.setEnabled(false);
  parts_.Option6.setValue(true);
}

}  // namespace tarnvex::monitor
