#pragma once

#include "monitor/bc245_panel.h"
#include "monitor/keypad.h"

namespace tarnvex::monitor {

/// The keys of the BC245XLT: labels on its front by their control names ("Label2"), and the
/// characters of the keyboard. Called through the event gate, between the exchanges of the poll.
///
/// While the radio scans, a digit switches a bank on or off instead. Digits keyed with the mouse
/// gather in `EntryBuffer`, those of the keyboard on the display alone.
class Bc245Keypad {
 public:
  /// `Option8` ("Active Banks") tells which of the radio's two bank lists the digits switch.
  Bc245Keypad(Bc245Panel& panel, const platform::OptionButton& Option8, KeypadOutside outside);

  /// A mouse button was pressed on a label. Works the keys that a press holds down; all others work
  /// by `click`, and are ignored here.
  void press(std::string_view label, MouseButton button);
  /// The left button was pressed and released on a label.
  void click(std::string_view label);
  /// A character was typed on the keyboard; one that means nothing has no effect.
  void type(char character);

 private:
  /// Sends a panel key's command, with its doubled line end.
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
  /// Switches the bank of a digit (0 is the tenth) in the radio's list.
  void ToggleLetter(int digit);

  Bc245Panel& panel_;
  const platform::OptionButton& option8_;
  KeyActions actions_;
};

}  // namespace tarnvex::monitor
