#pragma once

#include <string>

#include "link/scanner_link.h"
#include "monitor/reception_log.h"
#include "platform/backups.h"
#include "platform/clock.h"
#include "platform/common_dialog.h"
#include "platform/dialogs.h"
#include "platform/event_gate.h"
#include "platform/media_control.h"
#include "platform/sequential_files.h"
#include "platform/serial_port.h"
#include "platform/settings_store.h"
#include "platform/shared_state.h"

namespace tarnvex::shell {

/// What the forms work with. All of it outlives them.
struct Services {
  platform::SharedState& state;
  platform::EventGate& gate;
  platform::SerialPortMaker makePort;
  platform::Dialogs& dialogs;
  platform::SettingsStore& settings;
  const platform::Clock& clock;
  link::ScannerLink& link;
  platform::SequentialFiles& files;
  platform::CommonDialogMaker makeDialog;
  platform::Backups& backups;
  platform::MediaControlMaker makeMediaControl;
  monitor::ReceptionLog& receptions;
  /// The folder of the program's own files, without a slash at its end.
  std::string programDirectory;
};

}  // namespace tarnvex::shell
