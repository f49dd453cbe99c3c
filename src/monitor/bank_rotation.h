#pragma once

#include <deque>
#include <functional>
#include <string_view>

#include "link/scanner_link.h"
#include "monitor/panel_state.h"
#include "platform/event_gate.h"
#include "platform/settings_store.h"
#include "platform/stored_check_box.h"

namespace tarnvex::monitor {

/// What Multiscan and Speed Enhancement share: a frame with a check box for each bank, and a pair
/// of options that switches a timer on and off. At each tick of the timer the rotation moves on to
/// the next ticked bank, but only while the display shows "Scanning". So a reception keeps the
/// radio in the bank in which it was found.
///
/// The rotation can't be on while no box is ticked. While a transfer runs it presses no keys and
/// leaves the display alone, whatever the user clicks.
class BankRotation : private platform::NonCopyable {
 public:
  /// Ticks the stored boxes.
  void loadBanks();

  platform::OptionButton Option5{"Option5", "On"};
  platform::OptionButton Option6{"Option6", "Off", true};
  std::deque<platform::StoredCheckBox> MSBank;
  platform::Timer timer;

  /// What the rotation works on. All of it outlives the rotation.
  struct Outside {
    PanelBase& panel;
    link::ScannerLink& link;
    platform::EventGate& gate;
    platform::SharedState& state;
    platform::SettingsStore& settings;
  };

 protected:
  /// `section` is the settings section of the boxes. `step` runs at each tick while the display
  /// shows "Scanning", and `bankClicked` after a change of a box has been stored.
  BankRotation(Outside outside, std::string_view section, int banks, int interval,
               std::function<void()> step, const std::function<void()>& bankClicked);
  ~BankRotation() { outside_.gate.forget(timer); }

  [[nodiscard]] PanelBase& panel() { return outside_.panel; }
  std::string send(std::string_view command) { return outside_.link.SendCommand(command); }
  /// The current position among the boxes. It is kept in the shared state.
  [[nodiscard]] int& cursor() { return outside_.state.BankCursor; }
  [[nodiscard]] platform::SharedState& state() { return outside_.state; }
  /// Moves the cursor to the next place, and from the last to the first.
  void moveOn();
  [[nodiscard]] bool ticked(int bank) const {
    return MSBank[static_cast<std::size_t>(bank)].value();
  }
  [[nodiscard]] bool anyTicked() const;
  [[nodiscard]] bool mayAct() const { return !outside_.state.TransferRunning; }
  /// Enables "On" if a box is ticked. Otherwise disables it and switches the rotation off.
  void followBoxes();

 private:
  Outside outside_;
};

}  // namespace tarnvex::monitor
