#pragma once

#include <array>
#include <vector>

#include "monitor/panel_state.h"

namespace tarnvex::monitor {

/// The front of the BC245XLT.
struct Bc245Panel : PanelBase {
  Bc245Panel();

  /// What the main line shows before anything was read: all segments. The poll knows by it that the
  /// radio has to be started.
  static constexpr std::string_view kDesignText = "888.8888";

  /// "M" in a mode on a Motorola system, "E" on an EDACS one, else empty.
  platform::Label TrunkType;
  platform::Label Pri{"PRI", false};
  platform::Label Dly{"DLY", false};
  platform::Label Att{"ATT", false};
  platform::Label Police{"SERVICE SEARCH ON", false};
  /// Part of the picture; nothing in the poll touches them.
  platform::Label Data{"DATA", false};
  platform::Label Keylock{"KEYLOCK", false};
  /// The digits of the ten banks, over their marks, and the word before them.
  std::array<platform::Label, 11> Bank;
  static constexpr std::size_t kBankWord = 10;

  /// The display's background. Its back colour is that of one of the next two, which are never
  /// seen.
  platform::Label Display;
  platform::Label lighton{{}, false};
  platform::Label lightoff{{}, false};

  void light(bool on) { Display.setBackColor((on ? lighton : lightoff).backColor()); }

  /// All elements that are drawn, each under its name.
  [[nodiscard]] std::vector<PanelElement> elements() const;
};

/// See the other `describe`: "Bank: 1 2 3 4 5 6 7 8 9 10 BANK", "Bankltr: 1 3".
inline std::vector<std::string> describe(const Bc245Panel& panel) {
  return describe(panel.elements());
}

}  // namespace tarnvex::monitor
