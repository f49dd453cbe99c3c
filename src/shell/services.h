#pragma once

#include "link/scanner_link.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/event_gate.h"
#include "platform/serial_port.h"
#include "platform/settings_store.h"
#include "platform/shared_state.h"

namespace tarnvex::shell {

/// What the windows of the core are given to work with. Everything outlives them.
struct Services {
  platform::SharedState& state;
  platform::EventGate& gate;
  platform::SerialPorts& ports;
  platform::Dialogs& dialogs;
  platform::SettingsStore& settings;
  const platform::Clock& clock;
  link::ScannerLink& link;
};

}  // namespace tarnvex::shell
