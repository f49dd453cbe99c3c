#pragma once

#include <functional>
#include <string>

#include "link/scanner_link.h"
#include "monitor/panel_state.h"
#include "platform/clock.h"
#include "platform/event_gate.h"
#include "platform/table.h"
#include "platform/window.h"

namespace tarnvex::monitor {

/// What a poll works with beside its panel. All of it outlives the poll.
struct PollOutside {
  link::ScannerLink& link;
  platform::EventGate& gate;
  platform::SharedState& state;
  const platform::Clock& clock;
  /// The other model has answered: exchanges the main windows. The tick ends behind it.
  std::function<void()> switchScanner;
  /// Full name of the frequency file in use, empty if there is none.
  std::function<std::string()> planName;
};

/// Controls of the main window that a poll reads or writes, alike on both radios.
struct PollControls {
  platform::Window& window;
  platform::Table& MSFlexGrid1;
  platform::Table& MSFlexGrid2;
  platform::TextBox& LLimit;
  platform::TextBox& Ulimit;
  platform::CheckBox& Check6;
  platform::CheckBox& chkSkip;
  platform::ListBox& List1;
  platform::ListBox& List2;
};

/// Title of a main window: the program's name and the frequency file's.
std::string mainTitle(const std::string& planName);

}  // namespace tarnvex::monitor
