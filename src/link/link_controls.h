#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "link/radio_model.h"
#include "platform/controls.h"
#include "platform/dialogs.h"
#include "platform/non_copyable.h"
#include "platform/serial_port.h"
#include "platform/settings_store.h"
#include "platform/shared_state.h"

namespace tarnvex::link {

/// The text for `SerialPort::setSettings` at a baud rate: no parity, eight data bits, one stop bit.
std::string lineSettings(std::string_view baudRate);

/// The COM options, the baud rate box and the Connect button of a main window's Options page.
/// Choosing a COM port opens it. A new baud rate is tried out on the radio before it is kept.
class LinkControls : private platform::NonCopyable {
 public:
  /// What the controls work on. Everything it refers to outlives them.
  struct Outside {
    platform::SerialPort& port;
    platform::Timer& pollTimer;
    platform::SharedState& state;
    platform::SettingsStore& settings;
    platform::Dialogs& dialogs;
  };

  /// `bankBox` is the box that picks the bank of the talkgroup table: see `showRestoredRate`.
  LinkControls(const RadioModel& model, platform::ComboBox& bankBox, const Outside& outside);

  platform::OptionButton Option1{"Option1", "COM 1", true};
  platform::OptionButton Option2{"Option2", "COM 2"};
  platform::OptionButton Option3{"Option3", "COM 3"};
  platform::OptionButton Option4{"Option4", "COM 4"};
  /// The four options, in the order of their slots.
  const std::array<platform::OptionButton*, 4> options{&Option1, &Option2, &Option3, &Option4};
  platform::ComboBox baudBox;
  platform::Button Command3{"Command3", "Connect"};

  /// Called when the window is about to close, so that the user can't open a port any more.
  void disable();

  /// How long the radio may take to answer after a change of the baud rate, in spins.
  static constexpr int kBaudProbeSpins = 12500;

  /// The next five are steps of a main window's load. A stored value that can't be read is skipped.
  [[nodiscard]] std::string storedPort() const;
  [[nodiscard]] std::string storedBaudRate() const;
  /// The index in a box of baud rates that the stored rate gives by calculation.
  [[nodiscard]] std::optional<int> storedRateIndex() const;
  /// Chooses the stored COM option, which opens the port unless it is the first one. Does nothing
  /// if the stored number isn't 1 to 4.
  void chooseStoredPort();
  /// Sets the port's slot and rate and opens it. Reports no failure. A port that is already open
  /// keeps its slot.
  void openStoredPort();

 private:
  void choosePort(int slot);
  void connect();
  void changeBaudRate();
  bool radioAnswers();
  void restoreBaudRate(const std::string& rate);
  void showRestoredRate();
  void reopen(const std::string& rate);

  const RadioModel& model_;
  platform::ComboBox& restoreBox_;
  Outside outside_;
};

}  // namespace tarnvex::link
