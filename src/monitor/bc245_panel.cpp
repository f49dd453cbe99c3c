#include "monitor/bc245_panel.h"

namespace tarnvex::monitor {
namespace {

/// Amber, as the lamp behind the display is, and the grey-green of the display itself.
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

std::vector<PanelElement> Bc245Panel::elements() const {
  std::vector<PanelElement> all = {{"Frequency", &Frequency},
                                   {"Alpha", &Alpha},
                                   {"Channel", &Channel},
                                   {"TrunkType", &TrunkType},
                                   {"Scan", &Scan},
                                   {"Hold", &Hold},
                                   {"Search", &Search},
                                   {"Trunk", &Trunk},
                                   {"Att", &Att},
                                   {"Police", &Police},
                                   {"Pri", &Pri},
                                   {"Dly", &Dly},
                                   {"LO", &LO},
                                   {"Data", &Data},
                                   {"Keylock", &Keylock}};
  addElements(all, "Bank", Bank);
  addElements(all, "Bankltr", Bankltr);
  return all;
}

}  // namespace tarnvex::monitor
