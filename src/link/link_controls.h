#pragma once

#include <array>
#include <string>
#include <string_view>

#include "link/radio_model.h"
#include "platform/controls.h"
#include "platform/dialogs.h"
#include "platform/serial_port.h"
#include "platform/settings_store.h"
#include "platform/shared_state.h"

namespace tarnvex::link {

/// Text of the `Settings` property for a baud rate: no parity, eight data bits, one stop bit.
std::string lineSettings(std::string_view baudRate);

/// How a main window keeps its link: the COM options, the baud rate box and the Connect button of
/// its Options page. The main window owns the controls; this class is what they do. Choosing a COM
/// port opens it, and a change of the baud rate is tried out on the radio before it is kept.
class LinkControls {
 public:
  using Options = std::array<platform::OptionButton*, 4>;
  struct Parts {
    platform::SerialPort& port;
    platform::Timer& pollTimer;
    Options options;
    platform::ComboBox& baudBox;
    /// Receives the list index of the old rate: see RadioModel::baudStep.
    platform::ComboBox& restoreBox;
    platform::Button& connectButton;
  };
  struct Outside {
    platform::SharedState& state;
    platform::SettingsStore& settings;
    platform::Dialogs& dialogs;
  };

  LinkControls(const RadioModel& model, Parts parts, Outside outside);

  /// Spins that the radio has for an answer after a change of the baud rate.
  static constexpr int kBaudProbeSpins = 12500;

  /// Steps of a main window's load. An unreadable value is skipped.
  [[nodiscard]] std::string storedPort() const;
  [[nodiscard]] std::string storedBaudRate() const;
  /// Chooses the stored COM option, which opens the port unless it is the first one. Outside 1 to
  /// 4: none.
  void chooseStoredPort();
  /// Gives the port its slot and rate and opens it, silently. An open port keeps its slot.
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
  Parts parts_;
  Outside outside_;
};

}  // namespace tarnvex::link
