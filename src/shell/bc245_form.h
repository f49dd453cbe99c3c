#pragma once

#include "monitor/bc245_keypad.h"
#include "monitor/bc245_panel.h"
#include "monitor/bc245_poll.h"
#include "monitor/receiver_options.h"
#include "monitor/speed_enhancement.h"
#include "shell/main_form.h"

namespace tarnvex::shell {

/// The main window of the BC245XLT.
class Form2 : public MainForm {
 public:
  Form2(const Services& services, MainFormOutside outside);

  void load() override;

  /// The user pressed a mouse button on the panel's label with this control name, or clicked it.
  void pressKey(std::string_view label, monitor::MouseButton button) {
    keypad_.press(label, button);
  }
  void clickKey(std::string_view label) { keypad_.click(label); }
  void typeKey(char character) override { keypad_.type(character); }
  void mnuUploadTrunk() override;
  void mnuOwnloadTrunk() override;
  /// The Trunked menu's command for fleet maps.
  void mnuCustom();

  monitor::Bc245Panel panel;
  /// The Speed Enhancement frame.
  monitor::SpeedEnhancement speed;
  /// The frame `Frame3`, "BC245XLT Options".
  monitor::ReceiverOptions receiver;

 protected:
  [[nodiscard]] monitor::PanelBase& front() override { return panel; }
  std::shared_ptr<QuickViewForm> openQuickView(WindowLayer& windows) override;

 private:
  void showStoredBaudRate();

  monitor::Bc245Keypad keypad_;
  monitor::Bc245Poll poll_;
};

}  // namespace tarnvex::shell
