#pragma once

#include <array>

#include "monitor/keypad.h"

namespace tarnvex::monitor {

/// The keys of the BC895XLT: the label array `Keypad` on its front, gone by caption, and the
/// characters of the keyboard. Called through the event gate, between the exchanges of the poll.
class Bc895Keypad {
 public:
  /// Captions of `Keypad` by index. Enter has a blank, which tells it from the key of bank E. The
  /// last key isn't wired to anything: it beeps and sends nothing.
  static constexpr std::array<std::string_view, 41> kCaptions{
      "STEP",   "AUX", "DIM",   "WX",   "RMT", "SEND",  "HOLD",  "LIMIT",     "SRC", "AUTO", "SCAN",
      "MANUAL", "PRI", "TRUNK", "DATA", "L/O", "DELAY", "CTCSS", "1",         "2",   "3",    "4",
      "5",      "6",   "7",     "8",    "9",   ".",     "0",     "E ",        "A",   "B",    "C",
      "D",      "E",   "F",     "G",    "H",   "I",     "J",     "FREQ  CHAN"};

  /// `unload` asks for the end of the main window, as the key "RMT" does.
  Bc895Keypad(PanelState& panel, KeypadOutside outside, std::function<void()> unload);

  /// Whether a press of that key asks for the end of the program.
  static bool leaves(int index, MouseButton button);
  /// A mouse button went down on `Keypad(index)`. An index outside the array is passed over.
  void press(int index, MouseButton button);
  /// A character was typed on the keyboard; one that means nothing has no effect.
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
  /// What the point key stands for in this mode, and where it is echoed.
  Point point();

  PanelState& panel_;
  KeyActions actions_;
  std::function<void()> unload_;
};

}  // namespace tarnvex::monitor
