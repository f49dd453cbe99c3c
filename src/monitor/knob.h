#pragma once

#include "link/scanner_link.h"
#include "monitor/panel_state.h"
#include "platform/event_gate.h"

namespace tarnvex::monitor {

/// The knob of the BC895XLT: 13 marks, one of which is lit. While the user holds one side of it, it
/// turns one step at each tick of the poll, and the radio steps with it. A press shorter than a
/// tick turns it one step, too.
class Knob {
 public:
  Knob(PanelState& panel, link::ScannerLink& link, platform::EventGate& gate,
       platform::SharedState& state)
      : panel_(panel), link_(link), gate_(gate), state_(state) {}

  /// Turns one step in each direction that is held or was pressed, up first. Called once per tick.
  void step();
  /// Forgets presses that are over. Called after a tick that may have lasted for minutes, and when
  /// the poll starts: by then the user no longer expects the step.
  void forgetPresses();

 private:
  void turn(int direction, std::string_view key);
  bool moveMark(int mark, int direction);

  PanelState& panel_;
  link::ScannerLink& link_;
  platform::EventGate& gate_;
  platform::SharedState& state_;
};

}  // namespace tarnvex::monitor
