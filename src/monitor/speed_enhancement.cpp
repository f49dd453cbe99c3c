#include "monitor/speed_enhancement.h"

#include <algorithm>

#include "link/scanner_commands.h"
#include "platform/convert.h"

namespace tarnvex::monitor {
namespace {

constexpr std::string_view kSection = "SpeedE";

}  // namespace

SpeedEnhancement::SpeedEnhancement(Parts parts, Outside outside)
    : parts_(parts), outside_(outside) {
  platform::groupOptions({&parts_.Option5, &parts_.Option6});
  // Unlike Multiscan's, these send nothing.
  parts_.Option5.onClick = [this] { parts_.Timer2.setEnabled(true); };
  parts_.Option6.onClick = [this] { parts_.Timer2.setEnabled(false); };
  for (int i = 0; i < kBanks; ++i) {
    parts_.MSBank[static_cast<std::size_t>(i)].onClick = [this, i] { bankClicked(i); };
  }
  parts_.Timer2.onTick = [this] { tick(); };
}

void SpeedEnhancement::loadBanks() {
  for (int i = 0; i < kBanks; ++i) {
    const auto stored =
        platform::toInteger(outside_.settings.getSetting(kSection, std::to_string(i), "0"));
    if (stored) {
      parts_.MSBank[static_cast<std::size_t>(i)].setValue(*stored != 0);
    }
  }
}

void SpeedEnhancement::tick() {
  if (outside_.panel.Frequency.caption() != "Scanning" || !advance()) {
    return;
  }
  const char bank = link::bankLetter(outside_.state.BankCursor);
  outside_.link.SendCommand(link::command::scanBanks(std::string(1, bank)));
  outside_.link.SendCommand(link::key::kScan);
  const std::string& mode = outside_.panel.mode.caption();
  if (mode == link::mode245::kTrunkScan || mode == link::mode245::kTrunkScanEdacs) {
    // Out of the trunked system and in again, which takes the radio to the new bank's.
    outside_.link.SendCommand(link::key::kTrunk);
    outside_.link.SendCommand(link::key::kTrunk);
  }
}

bool SpeedEnhancement::advance() {
  if (std::ranges::none_of(parts_.MSBank, &platform::CheckBox::value)) {
    return false;
  }
  int& cursor = outside_.state.BankCursor;
  do {
    cursor = cursor >= kBanks - 1 ? 0 : cursor + 1;
  } while (!parts_.MSBank[static_cast<std::size_t>(cursor)].value());
  return true;
}

void SpeedEnhancement::bankClicked(int index) {
  const bool ticked = parts_.MSBank[static_cast<std::size_t>(index)].value();
  outside_.settings.saveSetting(kSection, std::to_string(index), ticked ? "1" : "0");
  if (std::ranges::any_of(parts_.MSBank, &platform::CheckBox::value)) {
    parts_.Option5.setEnabled(true);
  } else {
    parts_.Option5.setValue(false);
    parts_.Option5.setEnabled(false);
    parts_.Timer2.setEnabled(false);
    parts_.Option6.setValue(true);
  }
  outside_.link.SendCommand(link::key::kScan);
}

}  // namespace tarnvex::monitor
