#include "link/link_controls.h"

#include "link/poll_hold.h"
#include "link/resync.h"
#include "link/scanner_commands.h"
#include "platform/convert.h"

namespace tarnvex::link {
namespace {

/// The box that shows the old baud rate again after a change that was declined or failed.
constexpr std::string_view kRestoreBox = "Combo4";

}  // namespace

std::string lineSettings(std::string_view baudRate) {
  return std::string(baudRate) + ",n,8,1";
}

LinkControls::LinkControls(const RadioModel& model, platform::ComboBox& bankBox,
                           const Outside& outside)
    : baudBox(std::string(model.baudBox), model.baudRates),
      model_(model),
      restoreBox_(bankBox.name() == kRestoreBox ? bankBox : baudBox),
      outside_(outside) {
  for (std::size_t i = 0; i < options.size(); ++i) {
    options[i]->onClick = [this, slot = static_cast<int>(i) + 1] { choosePort(slot); };
    options[i]->passKeysOn();
  }
  platform::groupOptions({options.begin(), options.end()});
  baudBox.onClick = [this] { changeBaudRate(); };
  Command3.onClick = [this] { connect(); };
  Command3.passKeysOn();
}

void LinkControls::disable() {
  for (platform::OptionButton* option : options) {
    option->setEnabled(false);
  }
  Command3.setEnabled(false);
}

std::string LinkControls::storedPort() const {
  return outside_.settings.getSetting("Options", "COM", "1");
}

std::string LinkControls::storedBaudRate() const {
  return outside_.settings.getSetting(model_.key, "Baudrate", "9600");
}

std::optional<int> LinkControls::storedRateIndex() const {
  const auto rate = platform::toReal(storedBaudRate());
  return rate ? platform::toInteger(*rate / model_.baudStep - 1) : std::nullopt;
}

void LinkControls::chooseStoredPort() {
  const auto slot = platform::toInteger(storedPort());
  if (slot && *slot >= 1 && *slot <= 4) {
    options[static_cast<std::size_t>(*slot - 1)]->setValue(true);
  }
}

void LinkControls::openStoredPort() {
  if (const auto slot = platform::toInteger(storedPort())) {
    outside_.port.setCommPort(*slot);
  }
  outside_.port.setSettings(lineSettings(storedBaudRate()));
  openQuietly(outside_.port);
}

void LinkControls::choosePort(int slot) {
  outside_.port.close();
  outside_.port.setCommPort(slot);
  if (const auto failure = openQuietly(outside_.port)) {
    outside_.dialogs.messageBox("A communications error has occurred: " + *failure,
                                "COM Selection error", platform::kWarning);
    return;
  }
  outside_.pollTimer.setEnabled(true);
  outside_.settings.saveSetting("Options", "COM", std::to_string(slot));
}

void LinkControls::connect() {
  outside_.port.close();
  openQuietly(outside_.port);
  outside_.pollTimer.setEnabled(true);
}

void LinkControls::changeBaudRate() {
  // While the poll is stopped, the index is being set by code, or there is no link to try the rate
  // on.
  if (!outside_.pollTimer.enabled()) {
    return;
  }
  const PollHold hold(outside_.pollTimer);
  const auto answer = outside_.dialogs.messageBox(
      "This setting should only be changed if you are unable to connect to your scanner. The "
      "setting should match the baudrate of your scanner. Do you wish to continue?",
      "Confirm Baud Rate Change", platform::kYesNoQuestion);
  if (answer != platform::Answer::Yes) {
    showRestoredRate();
  } else {
    const std::string old = storedBaudRate();
    outside_.settings.saveSetting(model_.key, "Baudrate", baudBox.text());
    reopen(storedBaudRate());
    if (!radioAnswers()) {
      restoreBaudRate(old);
    }
  }
}

bool LinkControls::radioAnswers() {
  outside_.port.discardInput();
  outside_.port.output(std::string(command::kProvoke) + "\r");
  outside_.state.LinkWaiting = true;
  // Any answer will do. It stays in the buffer, and the next exchange discards it.
  platform::Spins budget{kBaudProbeSpins};
  return outside_.port.waitForInput(1, budget);
}

void LinkControls::restoreBaudRate(const std::string& rate) {
  outside_.dialogs.messageBox(
      "Your scanner is not responding. Your previous settings will be restored. If you are having "
      "problems connecting your scanner, you should determine it's baudrate per the instructions "
      "in your scanner's users manual.",
      "Scanner Not Responding", platform::kWarning);
  outside_.settings.saveSetting(model_.key, "Baudrate", rate);
  showRestoredRate();
  reopen(rate);
}

/// Deliberate: the index always goes to `Combo4`. On the BC245XLT's window that is the bank
/// selector of the talkgroup table, which then jumps, while the baud box goes on showing what was
/// chosen.
void LinkControls::showRestoredRate() {
  if (const auto index = storedRateIndex()) {
    restoreBox_.setListIndex(*index);
  }
}

void LinkControls::reopen(const std::string& rate) {
  outside_.port.close();
  outside_.port.setSettings(lineSettings(rate));
  openQuietly(outside_.port);
}

}  // namespace tarnvex::link
