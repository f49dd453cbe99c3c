#include "link/link_controls.h"

#include "link/poll_hold.h"
#include "link/resync.h"
#include "link/scanner_commands.h"
#include "platform/convert.h"

namespace tarnvex::link {

std::string lineSettings(std::string_view baudRate) {
  return std::string(baudRate) + ",n,8,1";
}

LinkControls::LinkControls(const RadioModel& model, Parts parts, Outside outside)
    : model_(model), parts_(parts), outside_(outside) {
  for (int slot = 1; slot <= 4; ++slot) {
    parts_.options[static_cast<std::size_t>(slot - 1)]->onClick = [this, slot] {
      choosePort(slot);
    };
  }
  platform::groupOptions({parts_.options.begin(), parts_.options.end()});
  parts_.baudBox.onClick = [this] { changeBaudRate(); };
  parts_.connectButton.onClick = [this] { connect(); };
}

std::string LinkControls::storedPort() const {
  return outside_.settings.getSetting("Options", "COM", "1");
}

std::string LinkControls::storedBaudRate() const {
  return outside_.settings.getSetting(model_.key, "Baudrate", "9600");
}

void LinkControls::chooseStoredPort() {
  const auto slot = platform::toInteger(storedPort());
  if (slot && *slot >= 1 && *slot <= 4) {
    parts_.options[static_cast<std::size_t>(*slot - 1)]->setValue(true);
  }
}

void LinkControls::openStoredPort() {
  if (const auto slot = platform::toInteger(storedPort())) {
    parts_.port.setCommPort(*slot);
  }
  parts_.port.setSettings(lineSettings(storedBaudRate()));
  openQuietly(parts_.port);
}

void LinkControls::choosePort(int slot) {
  parts_.port.close();
  parts_.port.setCommPort(slot);
  if (const auto failure = openQuietly(parts_.port)) {
    outside_.dialogs.messageBox("A communications error has occurred: " + *failure,
                                "COM Selection error", platform::kWarning);
    return;
  }
  parts_.pollTimer.setEnabled(true);
  outside_.settings.saveSetting("Options", "COM", std::to_string(slot));
}

void LinkControls::connect() {
  parts_.port.close();
  openQuietly(parts_.port);
  parts_.pollTimer.setEnabled(true);
}

void LinkControls::changeBaudRate() {
  // While the poll rests the index is being set by code, or there is no link to try the rate on.
  if (!parts_.pollTimer.enabled()) {
    return;
  }
  const PollHold hold(parts_.pollTimer);
  const auto answer = outside_.dialogs.messageBox(
      "This setting should only be changed if you are unable to connect to your scanner. The "
      "setting should match the baudrate of your scanner. Do you wish to continue?",
      "Confirm Baud Rate Change", platform::kYesNoQuestion);
  if (answer != platform::Answer::Yes) {
    showRestoredRate();
  } else {
    const std::string old = storedBaudRate();
    outside_.settings.saveSetting(model_.key, "Baudrate", parts_.baudBox.text());
    reopen(storedBaudRate());
    if (!radioAnswers()) {
      restoreBaudRate(old);
    }
  }
}

bool LinkControls::radioAnswers() {
  parts_.port.discardInput();
  parts_.port.output(std::string(command::kProvoke) + "\r");
  outside_.state.LinkWaiting = true;
  // Whatever answers is left in the buffer; the next exchange throws it away.
  platform::Spins budget{kBaudProbeSpins};
  return parts_.port.waitForInput(1, budget);
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

/// On the BC245XLT's window the restored index goes to the trunked bank selector, which then jumps,
/// while the baud box goes on showing what was chosen. Users know the window so; it stays.
void LinkControls::showRestoredRate() {
  if (const auto rate = platform::toReal(storedBaudRate())) {
    if (const auto index = platform::toInteger(*rate / model_.baudStep - 1)) {
      parts_.restoreBox.setListIndex(*index);
    }
  }
}

void LinkControls::reopen(const std::string& rate) {
  parts_.port.close();
  parts_.port.setSettings(lineSettings(rate));
  openQuietly(parts_.port);
}

}  // namespace tarnvex::link
