#include "monitor/bc245_panel.h"

namespace tarnvex::monitor {
namespace {

/// Amber, the colour of the lamp behind the display, and the grey-green of the display itself.
constexpr platform::Colour kLit = 0x4DB2FF;
constexpr platform::Colour kUnlit = 0x96B0A3;

}  // namespace

Bc245Panel::Bc245Panel() {
  Frequency.setCaption(std::string(kDesignText));
  for (std::size_t bank = 0; bank < Bankltr.size(); ++bank) {
    const std::string digit = std::to_string(bank + 1);
    Bank[bank].setCaption(digit);
    Bankltr[bank].setCaption(digit);
  }
  Bank[kBankWord].setCaption("BANK");
  Bank[kBankWord].setVisible(false);
  hideBanks();
  lighton.setBackColor(kLit);
  lightoff.setBackColor(kUnlit);
  light(false);
}

}  // namespace tarnvex::monitor
