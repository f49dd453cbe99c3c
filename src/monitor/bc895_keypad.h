#pragma once

#include <array>

#include "monitor/keypad.h"

namespace tarnvex::monitor {

/// The keys of the BC895XLT: the label array `Keypad` on its front, whose captions say what a key
/// does, and the characters of the keyboard. Called through the event gate, between the exchanges
/// of the poll.
class Bc895Keypad {
 public:
  /// Captions of `Keypad` by index. The caption of Enter ends with a blank, which distinguishes it
  /// from the key of bank E. The last key only beeps and sends nothing.
  static constexpr std::array<std::string_view, 41> kCaptions{
      "STEP",   "AUX", "DIM",   "WX",   "RMT", "SEND",  "HOLD",  "LIMIT",     "SRC", "AUTO", "SCAN",
      "MANUAL", "PRI", "TRUNK", "DATA", "L/O", "DELAY", "CTCSS", "1",         "2",   "3",    "4",
      "5",      "6",   "7",     "8",    "9",   ".",     "0",     "E ",        "A",   "B",    "C",
      "D",      "E",   "F",     "G",    "H",   "I",     "J",     "FREQ  CHAN"};

  /// `unload` asks to close the main window. The key "RMT" calls it.
  Bc895Keypad(PanelState& panel, KeypadOutside outside, std::function<void()> unload);

  /// Whether a press of this key asks to close the program.
  static bool leaves(int index, MouseButton button);
  /// A mouse button was pressed on `Keypad(index)`. An index outside the array is ignored.
  void press(int index, MouseButton button);
  /// A character was typed on the keyboard. Characters without a meaning are ignored.
  void type(char character);

 private:
  struct Point {
    platform::Label& target;
    char character;
  };

  void pressLeft(std::string_view caption);
  void pressRight(std::string_view caption);
  void keyLockout();
  void keyDigit(int digit);
  void keyPoint();
  /// The character that the point key means in the current mode, and where it is echoed.
  Point point();

  PanelState& panel_;
  KeyActions actions_;
  std::function<void()> unload_;
};

}  // namespace tarnvex::monitor
