#pragma once

#include "monitor/switch_box.h"
#include "platform/non_copyable.h"
#include "platform/settings_store.h"

namespace tarnvex::monitor {

/// The options of the BC245XLT: seven check boxes that mirror switches of the radio, and a pair of
/// options that chooses which of two bank lists the panel shows on a trunked system. The boxes get
/// their first state from the radio, the pair from the settings.
class ReceiverOptions : private platform::NonCopyable {
 public:
  /// `mute` is the window's mute box, which is one of these options. `att` is the attenuator's
  /// indicator on the panel.
  ReceiverOptions(SwitchBox& mute, platform::Label& att, link::ScannerLink& link,
                  platform::SettingsStore& settings);

  /// Chooses the stored option of the pair. A value that can't be read leaves the choice as it is.
  void loadView();
  /// Asks the radio for its switches and ticks the boxes of those that are on. Ticking a box sends
  /// the switch back to the radio, which changes nothing there.
  void readSwitches();

  SwitchBox Check1;
  /// With this on, the program and not the radio switches the light.
  SwitchBox Check2;
  SwitchBox Check3;
  SwitchBox Check4;
  /// With this on, the main line alternates between ID and frequency.
  SwitchBox Check5;
  SwitchBox& Check6;
  SwitchBox Check7;
  platform::Label Label48{"Label48", "When Trunking, View:"};
  /// What the bank marks show on a trunked system.
  platform::OptionButton Option7{"Option7", "Scanlists"};
  platform::OptionButton Option8{"Option8", "Active Banks", true};

 private:
  void saveView(bool activeBanks);

  platform::Label& att_;
  platform::SettingsStore& settings_;
};

}  // namespace tarnvex::monitor
