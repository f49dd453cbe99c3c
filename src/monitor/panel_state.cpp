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
  }
}

namespace {

/// What is on in the arrays of a panel: the banks' letters and digits, and the signal's bars.
struct ArraysOn {
  std::string digits;
  std::string banks;
  int bars = 0;

  /// False if the element is in no array.
  bool take(const platform::Label& label) {
    if (label.name().starts_with("Bankltr")) {
      banks += " " + label.caption();
    } else if (label.name().starts_with("Bank(")) {
      digits += " " + label.caption();
    } else if (label.name().starts_with("Sig")) {
      ++bars;
    } else {
      return false;
    }
    return true;
  }
};

/// Empty if the element shows nothing.
std::string lineOf(const platform::Label& label) {
  const std::string& name = label.name();
  if (name.starts_with("Knob")) {
    return "Knob: " + name.substr(5, name.size() - 6);
  }
  return label.caption().empty() ? "" : name + ": " + label.caption();
}

}  // namespace

std::vector<std::string> describe(const PanelBase& panel) {
  std::vector<std::string> lines;
  ArraysOn arrays;
  for (const platform::Label* label : panel.elements()) {
    if (label->visible() && !arrays.take(*label)) {
      lines.push_back(lineOf(*label));
    }
  }
  lines.push_back(arrays.digits.empty() ? "" : "Bank:" + arrays.digits);
  lines.push_back(arrays.banks.empty() ? "" : "Bankltr:" + arrays.banks);
  lines.push_back(arrays.bars == 0 ? "" : "Sig: " + std::to_string(arrays.bars));
  std::erase(lines, "");
  return lines;
}

}  // namespace tarnvex::monitor
