#include <gtest/gtest.h>

#include "keypad_rig.h"
#include "monitor/bc895_keypad.h"

namespace tarnvex::monitor {
namespace {

using test::kLeft;
using test::kRight;

struct Bc895KeypadTest : test::KeypadRig<PanelState> {
  int unloads = 0;
  Bc895Keypad keypad{panel, outside(), [this] { ++unloads; }};

  static int indexOf(std::string_view caption) {
    const auto& all = Bc895Keypad::kCaptions;
    return static_cast<int>(std::find(all.begin(), all.end(), caption) - all.begin());
  }
  void press(std::string_view caption, MouseButton button = kLeft) {
    keypad.press(indexOf(caption), button);
  }
};

TEST_F(Bc895KeypadTest, PressesEveryKey) {
  struct Case {
    int index;
    const char* left;
    bool leftKeepsEntry;
    const char* right;
  };
  const std::vector<Case> cases = {{0, "KEY15", false, nullptr},    {1, "KEY16", false, nullptr},
                                   {2, "KEY14", true, nullptr},     {3, "KEY10", false, nullptr},
                                   {4, nullptr, true, nullptr},     {5, "KEY18", false, nullptr},
                                   {6, "KEY07", false, "KEY07H"},   {7, "KEY08", false, "KEY08H"},
                                   {8, "KEY09", false, nullptr},    {9, "KEY19", false, nullptr},
                                   {10, "KEY00", false, nullptr},   {11, "KEY01", false, nullptr},
                                   {12, "KEY05", false, "KEY05H"},  {13, "KEY13", false, "KEY13H"},
                                   {14, "KEY11", false, nullptr},   {15, "KEY06", false, "KEY06H"},
                                   {16, "KEY12", false, "KEY12H"},  {17, "KEY20", true, "KEY20H"},
                                   {18, "KEY02 1", true, nullptr},  {22, "KEY02 5", true, nullptr},
                                   {26, "KEY02 9", true, nullptr},  {27, "KEY03", true, nullptr},
                                   {28, "KEY02 0", true, nullptr},  {29, "KEY04", false, nullptr},
                                   {30, "KEY21 A", false, nullptr}, {34, "KEY21 E", false, nullptr},
                                   {39, "KEY21 J", false, nullptr}, {40, nullptr, true, nullptr}};
  setMode("MD00");
  for (const auto& [index, left, leftKeepsEntry, right] : cases) {
    SCOPED_TRACE(index);
    for (const bool held : {false, true}) {
      const char* command = held ? right : left;
      state.EntryActive = true;
      keypad.press(index, held ? kRight : kLeft);
      EXPECT_EQ(sent(), command == nullptr ? "" : command);
      EXPECT_EQ(state.EntryActive, held ? command == nullptr : leftKeepsEntry);
      EXPECT_EQ(beeps(), 1);
    }
    keypad.press(index, MouseButton::Other);
    EXPECT_EQ(sent(), "");
    EXPECT_EQ(beeps(), 1) << "whatever the button";
  }
  EXPECT_EQ(unloads, 1) << "by RMT";
  EXPECT_EQ(lockouts, 0);
  keyBeep.chkKeyBeep.setValue(false);
  keypad.press(-1, kLeft);
  keypad.press(41, kLeft);
  press("SCAN");
  EXPECT_EQ(sent(), "KEY00");
  EXPECT_EQ(beeps(), 0);
}

TEST_F(Bc895KeypadTest, TheLockoutKeyDependsOnTheMode) {
  constexpr const char* kId = "ILR 12-345";
  const std::tuple<const char*, const char*, bool> cases[] = {
      {"MD00", "KEY06", false}, {"MD01", "KEY06", false}, {"MD02", "KEY06", true},
      {"MD03", "KEY06", true},  {"MD04", "KEY06", true},  {"MD05", "KEY06", true},
      {"MD06", "KEY06", false}, {"MD07", kId, true},      {"MD08", kId, true},
      {"MD09", kId, true},      {"MD10", kId, true},      {"MD11", "KEY06", false},
      {"MD16", "KEY06", false}, {"", "KEY06", false}};
  for (const auto& [mode, left, shows] : cases) {
    SCOPED_TRACE(mode);
    panel.mode.setCaption(mode);
    panel.Frequency.setCaption("12-345");
    for (const bool typed : {false, true}) {
      state.EntryActive = true;
      typed ? keypad.type('l') : press("L/O");
      EXPECT_EQ(sent(), typed ? "KEY06" : left);
      EXPECT_FALSE(state.EntryActive);

      state.EntryActive = true;
      lockouts = 0;
      typed ? keypad.type('L') : press("L/O", kRight);
      EXPECT_EQ(sent(), shows ? "" : "KEY06H");
      EXPECT_EQ(lockouts, shows ? 1 : 0);
      EXPECT_FALSE(state.EntryActive);
    }
  }
}

TEST_F(Bc895KeypadTest, EchoesWhatIsKeyed) {
  struct Case {
    const char* mode;
    const char* mouse;
    const char* keyboard;
    const char* tone;
  };
  replies["KEY03"] = "ERR";
  for (const auto& [mode, mouse, keyboard, tone] :
       {Case{"MD00", "146.5", "146.5.", "000.0"}, Case{"MD07", "146.5", "146.5.", "000.0"},
        Case{"MD08", "146-5", "146-5-", "000.0"}, Case{"MD09", "146-5", "146-5-", "000.0"},
        Case{"MD10", "146-5", "146-5-", "000.0"}, Case{"MD13", "Old", "Old", "146.5"}}) {
    SCOPED_TRACE(mode);
    panel.mode.setCaption(mode);
    for (const bool typed : {false, true}) {
      state.EntryActive = false;
      panel.Frequency.setCaption("Old");
      panel.CTCSS.setCaption("000.0");
      for (const char key : std::string(".146.5.")) {
        typed ? keypad.type(key) : press(std::string(1, key));
      }
      EXPECT_EQ(sent(), "KEY03; KEY02 1; KEY02 4; KEY02 6; KEY03; KEY02 5; KEY03");
      EXPECT_EQ(panel.Frequency.caption(), typed ? keyboard : mouse);
      EXPECT_EQ(panel.CTCSS.caption(),
                std::string(tone) + (typed && std::string_view(mode) == "MD13" ? "." : ""));
      EXPECT_TRUE(state.EntryActive);
    }
  }
  press("SCAN", kRight);
  EXPECT_TRUE(state.EntryActive) << "a key that does nothing doesn't end an entry";
  press("E ");
  press("7");
  EXPECT_EQ(panel.CTCSS.caption(), "7") << "a new entry begins afresh";
}

TEST_F(Bc895KeypadTest, TypedDigitsAndBankLettersGoOnWithTheEntry) {
  for (const auto& [keys, keepsEntry] :
       {std::pair<std::string, bool>{"PTsm\rphirwdtc", false}, {"AEJ90SKabMnq \n\x1b\xff", true}}) {
    for (const char key : keys) {
      state.EntryActive = true;
      keypad.type(key);
      EXPECT_EQ(state.EntryActive, keepsEntry) << key;
    }
  }
  EXPECT_EQ(beeps(), 0) << "the keyboard never beeps";
}

}  // namespace
}  // namespace tarnvex::monitor
