#pragma once

#include <array>

#include "link/scanner_commands.h"
#include "link/scanner_link.h"
#include "platform/controls.h"
#include "platform/settings_store.h"

namespace tarnvex::monitor {

/// The options of the BC245XLT: seven check boxes that mirror switches of the radio, and an option
/// pair that says which of two bank lists the panel shows on a trunked system. A click writes the
/// switch to the radio at once; the boxes start from the radio's state, the pair from the settings.
class ReceiverOptions {
 public:
  /// The controls of its frame; the main window owns them.
  struct Parts {
    /// "EDACS Decimal Mode".
    platform::CheckBox& Check1;
    /// "Auto Light Mode".
    platform::CheckBox& Check2;
    /// "Attenuator On".
    platform::CheckBox& Check3;
    /// "Status Bit On".
    platform::CheckBox& Check4;
    /// "Frequency ID On".
    platform::CheckBox& Check5;
    /// "Speaker Mute".
    platform::CheckBox& Check6;
    /// "Tone Detection On".
    platform::CheckBox& Check7;
    /// "Scanlists".
    platform::OptionButton& Option7;
    /// "Active Banks".
    platform::OptionButton& Option8;
    /// The attenuator's indicator on the panel.
    platform::Label& Att;
  };

  /// Takes over the clicks of all the controls.
  ReceiverOptions(Parts parts, link::ScannerLink& link, platform::SettingsStore& settings);

  /// Chooses the stored one of the pair. A text that can't be read leaves the choice.
  void loadView();
  /// Asks the radio for its switches and ticks the boxes of those that are on. Ticking a box sends
  /// the switch back to the radio, which changes nothing there.
  void readSwitches();

 private:
  struct Row {
    platform::CheckBox* box;
    const link::Switch* subject;
  };

  void boxClicked(const Row& row);
  void saveView(bool activeBanks);

  Parts parts_;
  link::ScannerLink& link_;
  platform::SettingsStore& settings_;
  /// In the order in which they are read.
  std::array<Row, 7> rows_;
};

}  // namespace tarnvex::monitor
