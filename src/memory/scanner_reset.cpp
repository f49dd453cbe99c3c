#include "memory/scanner_reset.h"

#include "link/scanner_commands.h"

namespace tarnvex::memory {

void resetScanner(platform::Dialogs& dialogs, link::ScannerLink& link) {
  const auto answer =
      dialogs.askToDestroy("WARNING: ALL CHANNELS OF YOUR SCANNER WILL BE CLEARED!!! Continue?",
                           "Confirm Scanner Reset", platform::kYesNoWarning);
  if (answer == platform::Answer::Yes) {
    link.ids().end();
    link.SendCommand(link::command::kClearChannels);
  }
}

}  // namespace tarnvex::memory
