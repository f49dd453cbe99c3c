#include "monitor/knob.h"

#include <utility>

#include "link/scanner_commands.h"

namespace tarnvex::monitor {

void Knob::step() {
  if (std::exchange(state_.KnobUpPressed, false) || state_.KnobUpHeld) {
    turn(1, link::key::kKnobUp);
  }
  if (std::exchange(state_.KnobDownPressed, false) || state_.KnobDownHeld) {
    turn(-1, link::key::kKnobDown);
  }
}

void Knob::forgetPresses() {
  state_.KnobUpPressed = state_.KnobDownPressed = false;
}

void Knob::turn(int direction, std::string_view key) {
  if (state_.CurrentMode == link::mode895::kScan) {
    link_.SendCommand(link::key::kManual);
  }
  const int first = direction > 0 ? 0 : PanelState::kKnobMarks - 1;
  for (int i = 0; i < PanelState::kKnobMarks; ++i) {
    if (moveMark(first + direction * i, direction)) {
      break;
    }
    gate_.yield();
  }
  link_.SendCommand(key);
}

bool Knob::moveMark(int mark, int direction) {
  const auto from = static_cast<std::size_t>(mark);
  if (!panel_.KnobMark[from].visible()) {
    return false;
  }
  const auto to = static_cast<std::size_t>((mark + direction + PanelState::kKnobMarks) %
                                           PanelState::kKnobMarks);
  panel_.KnobMark[from].setVisible(false);
  panel_.KnobMark[to].setVisible(true);
  return true;
}

}  // namespace tarnvex::monitor
