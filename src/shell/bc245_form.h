#pragma once

#include "monitor/bc245_keypad.h"
#include "monitor/bc245_panel.h"
#include "monitor/bc245_poll.h"
#include "monitor/receiver_options.h"
#include "monitor/speed_enhancement.h"
#include "shell/main_form.h"

namespace tarnvex::shell {

/// The main window of the BC245XLT.
/// `Combo1` is the baud rate, `Combo2` and `Combo4` pick scanlist and bank of the trunked table,
/// `Combo3` the bank of the channel table.
class Form2 : public MainForm {
 public:
  Form2(const Services& services, MainFormOutside outside);
  ~Form2() override;

  void load() override;

  /// A mouse button went down on the panel's label of that control name, or clicked it.
  void pressKey(std::string_view label, monitor::MouseButton button) {
    keypad_.press(label, button);
  }
  void clickKey(std::string_view label) { keypad_.click(label); }
  void typeKey(char character) override { keypad_.type(character); }
  void mnuUploadTrunk() override;
  void mnuOwnloadTrunk() override;
  /// The Trunked menu's editor of fleet maps.
  void mnuCustom();

  monitor::Bc245Panel panel;
  /// The Speed Enhancement frame: banks 1 to 10, and `Option5` and `Option6`.
  monitor::SpeedEnhancement::BankBoxes MSBank =
      platform::controlArray<platform::CheckBox, monitor::SpeedEnhancement::kBanks>("MSBank");
  platform::Timer Timer2{2000};
  /// The frame `Frame3`, "BC245XLT Options", with `Check6`.
  platform::CheckBox Check1{"Check1", "EDACS Decimal Mode"};
  platform::CheckBox Check2{"Check2", "Auto Light Mode"};
  platform::CheckBox Check3{"Check3", "Attenuator On"};
  platform::CheckBox Check4{"Check4", "Status Bit On"};
  platform::CheckBox Check5{"Check5", "Frequency ID On"};
  platform::CheckBox Check7{"Check7", "Tone Detection On"};
  platform::Label Label48{"Label48", "When Trunking, View:"};
  platform::OptionButton Option7{"Option7", "Scanlists"};
  platform::OptionButton Option8{"Option8", "Active Banks", true};

 protected:
  [[nodiscard]] monitor::PanelBase& front() override { return panel; }
  std::shared_ptr<QuickViewForm> openQuickView(WindowLayer& windows) override;

 private:
  void showStoredBaudRate();

  monitor::SpeedEnhancement speed_;
  monitor::Bc245Keypad keypad_;
  search::CustomSearch customSearch_;
  monitor::ReceiverOptions receiver_;
  monitor::Bc245Poll poll_;
  link::LinkControls link_;
};

}  // namespace tarnvex::shell
