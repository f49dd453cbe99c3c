#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "link/insist.h"
#include "link/scanner_link.h"
#include "monitor/key_beep.h"
#include "monitor/panel_state.h"

namespace tarnvex::monitor {

/// The mouse button that pressed a key. The right one means holding the radio's key down.
enum class MouseButton { Left, Right, Other };

/// What a keypad works with besides its panel. All of it outlives the keypad.
struct KeypadOutside {
  link::ScannerLink& link;
  platform::SharedState& state;
  KeyBeep& keyBeep;
  /// Shows `frmLockouts`.
  std::function<void()> showLockouts;
};

/// What the keypads of both radios have in common. A key sends one command, and its reply is
/// ignored. From the first digit until a key that ends the entry, `EntryActive` keeps the poll from
/// writing to the display, which shows the digits. There is no time-out.
class KeyActions {
 public:
  /// In `lockoutModes`, holding the lockout key shows the lockouts.
  KeyActions(PanelBase& panel, KeypadOutside outside, link::ModeList lockoutModes);

  [[nodiscard]] platform::SharedState& state() { return outside_.state; }
  [[nodiscard]] const std::string& mode() const { return panel_.mode.caption(); }
  void beep() { outside_.keyBeep.sound(); }
  std::string send(std::string_view command) { return outside_.link.SendCommand(command); }
  /// The same with a question whose answer is sent back.
  std::string insist(std::string_view question) { return link::insist(outside_.link, question); }
  /// Reads and ignores a line that may still be on its way.
  void skipReply() { outside_.link.ReadReply(); }
  void endEntry() { outside_.state.EntryActive = false; }

  /// Appends a digit to those keyed before. The first one begins the entry.
  void echoDigit(platform::Label& target, int digit);
  static void append(platform::Label& target, char character);
  /// Whether a key may be echoed. Deliberate: compares with a line end that replies don't have, so
  /// the answer is always yes. A digit that the radio refuses is shown, too; the radio's own beep
  /// is the only sign of it.
  static bool accepted(std::string_view reply);

  void holdLockout();
  /// If the character means the same key on both radios, sends it and ends the entry. False for any
  /// other character.
  bool typeKey(char character);

 private:
  PanelBase& panel_;
  KeypadOutside outside_;
  link::ModeList lockoutModes_;
};

}  // namespace tarnvex::monitor
