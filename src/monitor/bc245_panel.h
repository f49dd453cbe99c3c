#pragma once

#include <array>

#include "monitor/panel_state.h"

namespace tarnvex::monitor {

/// The front panel of the BC245XLT. The poll and the keys write it.
struct Bc245Panel : PanelBase {
  Bc245Panel();

  /// What the main line shows before anything has been read: all segments. If the poll finds it in
  /// an ID mode, it presses the scan key.
  static constexpr std::string_view kDesignText = "888.8888";

  /// "M" in a mode on a Motorola system, "E" on an EDACS system, otherwise empty.
  PanelElement TrunkType{"TrunkType", drawn_};
  PanelElement Pri{"Pri", drawn_, "PRI", false};
  PanelElement Dly{"Dly", drawn_, "DLY", false};
  PanelElement Att{"Att", drawn_, "ATT", false};
  PanelElement Police{"Police", drawn_, "SERVICE SEARCH ON", false};
  /// Only part of the picture. The poll never changes them.
  PanelElement Data{"Data", drawn_, "DATA", false};
  PanelElement Keylock{"Keylock", drawn_, "KEYLOCK", false};
  /// The digits of the ten banks, above their marks, and the word before them.
  std::array<PanelElement, 11> Bank = platform::controlArray<PanelElement, 11>("Bank", drawn_);
  static constexpr std::size_t kBankWord = 10;

  /// The display's background. It takes its colour from one of the next two labels, which are never
  /// visible.
  platform::Label Display{"Display"};
  platform::Label lighton{"lighton", {}, false};
  platform::Label lightoff{"lightoff", {}, false};

  void light(bool on) { Display.setBackColor((on ? lighton : lightoff).backColor()); }
};

}  // namespace tarnvex::monitor
