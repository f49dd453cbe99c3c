#include "monitor/panel_state.h"

#include <algorithm>

namespace tarnvex::monitor {

void PanelBase::showBanks(std::string_view letters) {
  for (std::size_t bank = 0; bank < Bankltr.size(); ++bank) {
    Bankltr[bank].setVisible(letters.find(static_cast<char>('A' + bank)) != std::string_view::npos);
  }
}

PanelState::PanelState() {
  Frequency.setCaption("Initializing");
  Channel.setCaption("P000");
  Label1.setBackColor(0x80FFFF);
  for (std::size_t bank = 0; bank < Bankltr.size(); ++bank) {
    Bankltr[bank].setCaption(std::string(1, static_cast<char>('A' + bank)));
  }
  hideBanks();
  for (auto& bar : Sig) {
    bar.setVisible(false);
  }
  for (std::size_t mark = 1; mark < KnobMark.size(); ++mark) {
    KnobMark[mark].setVisible(false);
    KnobShadow[mark].setVisible(false);
  }
}

std::vector<std::string> describe(const PanelBase& panel) {
  std::vector<std::string> lines;
  std::string digits;
  std::string banks;
  int bars = 0;
  for (const platform::Label* label : panel.elements()) {
    const std::string& name = label->name();
    if (!label->visible()) {
      continue;
    }
    if (name.starts_with("Bankltr")) {
      banks += " " + label->caption();
    } else if (name.starts_with("Bank(")) {
      digits += " " + label->caption();
    } else if (name.starts_with("Sig")) {
      ++bars;
    } else if (name.starts_with("Knob")) {
      lines.push_back("Knob: " + name.substr(5, name.size() - 6));
    } else if (!label->caption().empty()) {
      lines.push_back(name + ": " + label->caption());
    }
  }
  if (!digits.empty()) {
    lines.push_back("Bank:" + digits);
  }
  if (!banks.empty()) {
    lines.push_back("Bankltr:" + banks);
  }
  if (bars > 0) {
    lines.push_back("Sig: " + std::to_string(bars));
  }
  return lines;
}

}  // namespace tarnvex::monitor
