#pragma once

#include "monitor/bc245_panel.h"
#include "monitor/keypad.h"

namespace tarnvex::monitor {

/// The keys of the BC245XLT: labels on its front, identified by their control names such as
/// "Label2", and the characters of the keyboard. Called through the event gate, between the
/// exchanges of the poll.
///
/// While the radio scans, a digit switches a bank on or off. Digits keyed with the mouse are
/// collected in `EntryBuffer`, typed ones only on the display.
class Bc245Keypad {
 public:
  /// `Option8` ("Active Banks") chooses which of the radio's two bank lists the digits change.
  Bc245Keypad(Bc245Panel& panel, const platform::OptionButton& Option8, KeypadOutside outside);

  /// A mouse button was pressed on a label. Handles the keys that act on a press and ignores all
  /// others, which `click` handles.
  void press(std::string_view label, MouseButton button);
  /// The left button was pressed and released on a label.
  void click(std::string_view label);
  /// A character was typed on the keyboard. Characters without a meaning are ignored.
  void type(char character);

 private:
  /// Sends a panel key's command, with a second line end.
  std::string sendKey(std::string_view command);
  void clearEntry();
  [[nodiscard]] bool scanning();
  void pressLockout(MouseButton button);
  void clickLight();
  void clickEnter();
  void clickDigit(int digit);
  void clickPoint();
  void typeDigit(int digit);
  void typePoint();
  void addToEntry(char character, std::string_view reply);
  /// Adds the bank of a digit (0 is the tenth) to the radio's list, or removes it.
  void ToggleLetter(int digit);

  Bc245Panel& panel_;
  const platform::OptionButton& option8_;
  KeyActions actions_;
};

}  // namespace tarnvex::monitor
