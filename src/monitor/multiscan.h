#pragma once

#include <array>

#include "link/scanner_link.h"
#include "monitor/panel_state.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/event_gate.h"
#include "platform/settings_store.h"

namespace tarnvex::monitor {

/// Multiscan of the BC895XLT: alternates the radio between one pass of the chosen conventional
/// banks and each chosen trunked bank in turn, by pressing its keys. It acts only on a quiet radio,
/// which it knows by the word "Scanning" on the display: a reception thus holds it on the bank that
/// it has found.
class Multiscan {
 public:
  static constexpr int kConventionalBanks = 10;
  static constexpr int kBanks = 20;
  using BankBoxes = std::array<platform::CheckBox, kBanks>;

  /// The controls of its frame; the main window owns them.
  struct Parts {
    platform::OptionButton& Option5;
    platform::OptionButton& Option6;
    BankBoxes& MSBank;
    platform::Timer& Timer1;
  };
  struct Outside {
    PanelState& panel;
    link::ScannerLink& link;
    platform::EventGate& gate;
    platform::SharedState& state;
    platform::SettingsStore& settings;
    platform::Dialogs& dialogs;
    const platform::Clock& clock;
  };

  /// Takes over the clicks of the frame's controls and the timer's tick.
  Multiscan(Parts parts, Outside outside);

  /// Ticks the stored bank boxes.
  void loadBanks();

 private:
  void tick();
  void advance();
  [[nodiscard]] std::string chosenConventionalBanks() const;
  void scanConventional(const std::string& letters);
  void scanTrunked(int bank);
  void giveUp();
  void flashError();
  void waitBeyond(double seconds);
  void bankClicked(int index);

  Parts parts_;
  Outside outside_;
};

}  // namespace tarnvex::monitor
