#include "monitor/bank_rotation.h"

#include <algorithm>

#include "monitor/poll_cycle.h"

namespace tarnvex::monitor {

BankRotation::BankRotation(Outside outside, std::string_view section, int banks, int interval,
                           std::function<void()> step, const std::function<void()>& bankClicked)
    : timer(interval), outside_(outside) {
  platform::groupOptions({&Option5, &Option6});
  platform::passKeysOn({&Option5, &Option6});
  Option5.setEnabled(false);
  Option5.onClick = [this] { timer.setEnabled(true); };
  Option6.onClick = [this] { timer.setEnabled(false); };
  for (int bank = 0; bank < banks; ++bank) {
    const std::string index = std::to_string(bank);
    auto& box =
        MSBank.emplace_back("MSBank(" + index + ")", "",
                            platform::StoredCheckBox::Setting{outside.settings, section, index});
    box.passKeysOn();
    box.onStored = bankClicked;
  }
  timer.onTick = [this, step = std::move(step)] {
    if (panel().Frequency.caption() == kScanning && mayAct()) {
      step();
    }
  };
}

void BankRotation::loadBanks() {
  for (auto& box : MSBank) {
    box.load();
  }
}

void BankRotation::moveOn() {
  cursor() = cursor() >= static_cast<int>(MSBank.size()) - 1 ? 0 : cursor() + 1;
}

bool BankRotation::anyTicked() const {
  return std::ranges::any_of(MSBank, &platform::CheckBox::value);
}

void BankRotation::followBoxes() {
  if (anyTicked()) {
    Option5.setEnabled(true);
    return;
  }
  Option5.setValue(false);
  Option5.setEnabled(false);
  timer.setEnabled(false);
  Option6.setValue(true);
}

}  // namespace tarnvex::monitor
