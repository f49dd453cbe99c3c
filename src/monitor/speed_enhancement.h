#pragma once

#include <array>

#include "link/scanner_link.h"
#include "monitor/panel_state.h"
#include "platform/settings_store.h"

namespace tarnvex::monitor {

/// Speed Enhancement of the BC245XLT: makes the chosen banks the active one in turn, so that the
/// radio scans one bank at a time. It acts only on a quiet radio, which it knows by the word
/// "Scanning" on the display: a reception thus holds it on the bank that it has found.
class SpeedEnhancement {
 public:
  static constexpr int kBanks = 10;
  using BankBoxes = std::array<platform::CheckBox, kBanks>;

  /// The controls of its frame; the main window owns them.
  struct Parts {
    platform::OptionButton& Option5;
    platform::OptionButton& Option6;
    BankBoxes& MSBank;
    platform::Timer& Timer2;
  };
  struct Outside {
    const PanelBase& panel;
    link::ScannerLink& link;
    platform::SharedState& state;
    platform::SettingsStore& settings;
  };

  /// Takes over the clicks of the frame's controls and the timer's tick.
  SpeedEnhancement(Parts parts, Outside outside);

  /// Ticks the stored bank boxes.
  void loadBanks();

 private:
  void tick();
  /// False if no bank is chosen.
  bool advance();
  void bankClicked(int index);

  Parts parts_;
  Outside outside_;
};

}  // namespace tarnvex::monitor
