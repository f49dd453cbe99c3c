#pragma once

#include "monitor/bc895_keypad.h"
#include "monitor/bc895_poll.h"
#include "monitor/multiscan.h"
#include "shell/main_form.h"
#include "trunking/bc895_id_transfer.h"

namespace tarnvex::shell {

/// The main window of the BC895XLT.
class Form4 : public MainForm {
 public:
  Form4(const Services& services, MainFormOutside outside);

  void load() override;
  /// The user presses or releases the knob area `Label2`.
  void pressKnob(bool up) {
    (up ? services_.state.KnobUpHeld : services_.state.KnobDownHeld) = true;
    (up ? services_.state.KnobUpPressed : services_.state.KnobDownPressed) = true;
  }
  void releaseKnob(bool up) {
    (up ? services_.state.KnobUpHeld : services_.state.KnobDownHeld) = false;
  }

  /// A mouse button was pressed on the key `Keypad(index)`.
  void pressKey(int index, monitor::MouseButton button) { keypad_.press(index, button); }
  void typeKey(char character) override { keypad_.type(character); }
  /// The user double-clicked the display's background, `Label1`.
  void chooseDisplayColour();
  void mnuUploadTrunk() override { idTransfer.upload(); }
  void mnuOwnloadTrunk() override { idTransfer.download(); }

  monitor::PanelState panel;
  /// The Multiscan frame: banks A to J conventional (0 to 9) and trunked (10 to 19).
  monitor::Multiscan multiscan;
  /// Runs without a dialog. The window shows its progress.
  trunking::Bc895IdTransfer idTransfer;

 protected:
  [[nodiscard]] monitor::PanelBase& front() override { return panel; }
  std::shared_ptr<QuickViewForm> openQuickView(WindowLayer& windows) override;
  void releaseSound() override;

 private:
  void loadColour();
  void loadLink();

  monitor::Bc895Keypad keypad_;
  monitor::Bc895Poll poll_;
  platform::Connection pollChanges_;
};

}  // namespace tarnvex::shell
