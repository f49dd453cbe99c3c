#pragma once

#include "platform/dialogs.h"
#include "platform/stored_check_box.h"

namespace tarnvex::monitor {

/// The beep that confirms a key pressed with the mouse. Typed keys never beep.
class KeyBeep {
 public:
  KeyBeep(platform::SettingsStore& settings, platform::Dialogs& dialogs)
      : chkKeyBeep("chkKeyBeep", "Beep When Key is Pressed", {settings, "Options", "Keybeep"},
                   true),
        dialogs_(dialogs) {}

  /// A step of the main window's load.
  void load() { chkKeyBeep.load(); }

  void sound() {
    if (chkKeyBeep.value()) {
      dialogs_.beep();
    }
  }

  platform::StoredCheckBox chkKeyBeep;

 private:
  platform::Dialogs& dialogs_;
};

}  // namespace tarnvex::monitor
