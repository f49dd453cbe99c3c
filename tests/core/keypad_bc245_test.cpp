#include <gtest/gtest.h>

#include "keypad_rig.h"
#include "monitor/bc245_keypad.h"

namespace tarnvex::monitor {
namespace {

using test::kLeft;
using test::kRight;

struct Bc245KeypadTest : test::KeypadRig<Bc245Panel> {
  platform::OptionButton option8{"option8", "Active Banks", true};
  Bc245Keypad keypad{panel, option8, outside()};

  Bc245KeypadTest() {
    state.ModelKey = "BC245";
    setMode("MD01");
  }
  /// The state of the entry, as text.
  void enter() {
    state.EntryBuffer = "1";
    state.EntryActive = true;
    state.DigitKeyed = true;
  }
  std::string entry() {
    return state.EntryBuffer + (state.EntryActive ? " active" : "") +
           (state.DigitKeyed ? " digit" : "");
  }
  /// Presses and clicks a label with the mouse.
  void use(std::string_view label, MouseButton button) {
    keypad.press(label, button);
    if (button == kLeft) {
      keypad.click(label);
    }
  }
};

TEST_F(Bc245KeypadTest, PressesEveryKey) {
  struct Case {
    const char* label;
    const char* left;
    const char* leftEntry;
    const char* right = "";
    const char* rightEntry = "1 active digit";
    const char* other = "";
  };
  constexpr const char* kClear = " digit";
  const std::vector<Case> cases = {
      {"Label1", "KEY14|", " active digit", "KEY14H|", " active digit"},
      {"Label4", "KEY13|", kClear, "KEY13H|", "", "KEY13|"},
      {"Label6", "KEY05|", kClear, "KEY05H|", kClear, "KEY05|"},
      {"Label25", "KEY06|", kClear, "KEY06H", "1 digit", "KEY06H"},
      {"Label2", "KEY00|", kClear},
      {"Label3", "KEY01|", kClear},
      {"Label5", "KEY10|", kClear},
      {"Label20", "KEY04|", kClear},
      {"Label21", "KEY08|", kClear},
      {"Label22", "KEY09|", kClear},
      {"Label23", "KEY07|", kClear},
      {"Label24", "KEY12|", kClear},
      {"Label26", "KEY11|", kClear},
      {"Label7", "", "1 active digit"}};
  for (const auto& row : cases) {
    SCOPED_TRACE(row.label);
    enter();
    use(row.label, kLeft);
    EXPECT_EQ(sent(), row.left);
    EXPECT_EQ(entry(), row.leftEntry);
    EXPECT_EQ(beeps(), *row.left == '\0' ? 0 : 1);
    enter();
    use(row.label, kRight);
    EXPECT_EQ(sent(), row.right);
    EXPECT_EQ(entry(), row.rightEntry);
    const bool light = std::string_view(row.label) == "Label1";
    EXPECT_EQ(beeps(), *row.right == '\0' || light ? 0 : 1);
    use(row.label, MouseButton::Other);
    EXPECT_EQ(sent(), row.other);
    EXPECT_EQ(beeps(), *row.other == '\0' ? 0 : 1);
  }
}

TEST_F(Bc245KeypadTest, LeavesNoAnswerForTheNextQuestion) {
  use("Label2", kLeft);
  const auto before = radio.spins;
  EXPECT_EQ(link.SendCommand("SI"), "OK") << "the answer to the second line end would be ERR";
  EXPECT_EQ(radio.spins - before, 1) << "and no wait for a quiet line";
  replies["AT"] = "ATN";
  use("Label18", kLeft);
  EXPECT_TRUE(panel.Att.visible());
}

TEST_F(Bc245KeypadTest, HoldingLockoutDependsOnTheMode) {
  const std::string showing = "02 03 04 05 07 08 09 10 11 12 15 16 17 18";
  for (int code = 0; code <= 20; ++code) {
    const std::string digits = (code < 10 ? "0" : "") + std::to_string(code);
    const bool shows = showing.find(digits) != std::string::npos;
    SCOPED_TRACE(digits);
    panel.mode.setCaption("MD" + digits);
    for (const bool typed : {false, true}) {
      enter();
      lockouts = 0;
      typed ? keypad.type('L') : use("Label25", kRight);
      EXPECT_EQ(sent(), shows ? "" : "KEY06H");
      EXPECT_EQ(lockouts, shows ? 1 : 0);
      EXPECT_EQ(entry(), "1 digit") << "what was keyed is kept, and the entry ends";
    }
  }
}

TEST_F(Bc245KeypadTest, EntersDigits) {
  replies["KEY02 4\r"] = "ERR";
  const char* const labels[] = {"Label19", "Label8",  "Label9",  "Label10", "Label12",
                                "Label13", "Label14", "Label15", "Label16", "Label17"};
  std::string shown;
  for (int digit = 0; digit <= 9; ++digit) {
    use(labels[digit], kLeft);
    shown += std::to_string(digit);
    EXPECT_EQ(sent(), "KEY02 " + std::to_string(digit) + "|");
    EXPECT_EQ(panel.Frequency.caption(), shown);
    EXPECT_EQ(entry(), shown + " active digit");
  }
  EXPECT_EQ(beeps(), 10);
  use("Label20", kLeft);
  EXPECT_EQ(entry(), " digit");
  sent();

  panel.Frequency.setCaption("Old");
  state.DigitKeyed = false;
  for (const char key : std::string("05")) {
    keypad.type(key);
  }
  EXPECT_EQ(sent(), "KEY02 0; KEY02 5");
  EXPECT_EQ(panel.Frequency.caption(), "05");
  EXPECT_EQ(entry(), " active digit") << "the keyboard leaves the mouse's digits alone";
  EXPECT_EQ(beeps(), 1);
}

TEST_F(Bc245KeypadTest, PointsAndDashes) {
  const std::string mouseDashes = "MD09 MD12 MD16 MD18";
  const std::string keyboardDashes = "MD09 MD10 MD12 MD15 MD16 MD18";
  for (const std::string mode : {"MD01", "MD02", "MD09", "MD10", "MD12", "MD15", "MD16", "MD18"}) {
    SCOPED_TRACE(mode);
    panel.mode.setCaption(mode);
    const char mouse = mouseDashes.find(mode) == std::string::npos ? '.' : '-';
    const char keyboard = keyboardDashes.find(mode) == std::string::npos ? '.' : '-';
    for (const bool on : {true, false}) {
      replies["AT"] = on ? "ATN" : "ATF";
      enter();
      use("Label18", kLeft);
      use("Label18", kLeft);
      EXPECT_EQ(sent(), "KEY03|; AT; KEY03|; AT");
      EXPECT_EQ(panel.Frequency.caption(), std::string("1") + mouse) << "once";
      EXPECT_EQ(panel.Att.visible(), on);
    }
    panel.Frequency.setCaption("1");
    keypad.type('.');
    keypad.type('.');
    EXPECT_EQ(sent(), "KEY03; KEY03");
    EXPECT_EQ(panel.Frequency.caption(), std::string("1") + keyboard + keyboard) << "each time";
  }
  state.EntryActive = false;
  panel.Frequency.setCaption("Old");
  use("Label18", kLeft);
  keypad.type('.');
  EXPECT_EQ(sent(), "KEY03|; AT; KEY03");
  EXPECT_EQ(panel.Frequency.caption(), "Old");
}

TEST_F(Bc245KeypadTest, DigitsSwitchBanksWhileScanning) {
  const std::tuple<char, const char*, bool, const char*, const char*> cases[] = {
      {'3', "Label10", true, "SB ABC", "SB; SB AB"}, {'3', "Label10", true, "SB AB", "SB; SB ABC"},
      {'1', "Label8", false, "IS AJ", "IS; IS J"},   {'0', "Label19", false, "IS A", "IS; IS AJ"},
      {'0', "Label19", true, "SB J", "SB; SB "},     {'2', "Label9", false, "NG", "IS; ISB"},
      {'2', "Label9", true, "#", "SB; SB"},          {'2', "Label9", false, "ERR", "IS"}};
  for (const auto& [digit, label, banks, list, expected] : cases) {
    for (const char* mode : {"MD00", "MD11", "MD17"}) {
      SCOPED_TRACE(std::string(mode) + " " + list);
      state.CurrentMode = mode;
      option8.setValue(banks);
      replies[banks ? "SB" : "IS"] = list;
      panel.Frequency.setCaption("Scanning");
      state.DigitKeyed = false;
      for (const bool typed : {false, true}) {
        state.EntryActive = true;
        typed ? keypad.type(digit) : use(label, kLeft);
        EXPECT_EQ(sent(), expected);
        EXPECT_EQ(entry(), typed ? "" : " active");
      }
      EXPECT_EQ(panel.Frequency.caption(), "Scanning");
      EXPECT_EQ(beeps(), 1);
    }
  }
  enter();
  use("Label20", kLeft);
  EXPECT_EQ(sent(), "") << "enter means nothing here";
  EXPECT_EQ(beeps(), 1);
  EXPECT_EQ(entry(), "1 active digit");
  keypad.type('\r');
  EXPECT_EQ(sent(), "KEY04");
  EXPECT_EQ(entry(), "1 digit");
}

}  // namespace
}  // namespace tarnvex::monitor
