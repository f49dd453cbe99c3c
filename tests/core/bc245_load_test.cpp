#include <gmock/gmock.h>

#include "poll_rig.h"

namespace tarnvex::shell {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A window that loads with a radio that has these switches on.
struct Loading : test::World {
  Form2 form{services, outside()};

  explicit Loading(const std::string& switchesOn = "") {
    state.ModelKey = "BC245";
    radio.answer = [switchesOn](std::string_view command) {
      const bool on = switchesOn.find(command) != std::string::npos;
      const char* state = on ? "N" : command == "MU" ? "A" : "F";
      return std::vector<test::Piece>{{std::string(command) + state + "\r"}};
    };
  }
};

TEST(Bc245Load, AsksForTheSwitchesAndEchoesThoseThatAreOn) {
  const std::string opened = "open COM 1 at 9600,n,8,1; ";
  const std::pair<const char*, const char*> cases[] = {
      {"", "FI; BT; AT; AL; AF; MU; TD"},
      {"FI BT AT AL AF MU TD", "FI; FIN; BT; BTN; AT; ATN; AL; ALN; AF; AFN; MU; MUN; TD; TDN"},
      {"AT", "FI; BT; AT; ATN; AL; AF; MU; TD"},
      {"AF TD", "FI; BT; AT; AL; AF; AFN; MU; TD; TDN"},
      {"FI MU", "FI; FIN; BT; AT; AL; AF; MU; MUN; TD"}};
  for (const auto& [on, log] : cases) {
    SCOPED_TRACE(on);
    Loading world(on);
    world.form.load();
    EXPECT_EQ(world.radio.takeLog(), opened + log);
    const auto& form = world.form;
    std::string ticked;
    for (const auto& [word, box] : {std::pair{"FI ", &form.receiver.Check5},
                                    {"BT ", &form.receiver.Check4},
                                    {"AT ", &form.receiver.Check3},
                                    {"AL ", &form.receiver.Check2},
                                    {"AF ", &form.receiver.Check1},
                                    {"MU ", &form.Check6},
                                    {"TD ", &form.receiver.Check7}}) {
      ticked += box->value() ? word : "";
    }
    EXPECT_EQ(ticked, *on == '\0' ? "" : std::string(on) + " ");
    EXPECT_EQ(form.panel.Att.visible(), ticked.find("AT") != std::string::npos);
    EXPECT_THAT(world.settings.saved, IsEmpty());
    EXPECT_TRUE(world.form.Scantimer.enabled());
    EXPECT_EQ(world.form.SSTab1.tab(), 2);
    EXPECT_EQ(world.form.window.caption(), "Tarnvex - Untitled");
  }
}

TEST(Bc245Load, AsksOnceMoreForASwitchThatCannotBeRead) {
  const std::tuple<const char*, const char*, bool, bool> cases[] = {
      // The answers, whether the second question comes, and whether the switch is on.
      {"FI\xCE", "FIN", true, true}, {"#", "FIN", false, false},   {"", "FIN", false, false},
      {"FIx", "OK", true, false},    {"FIF", "FIN", false, false}, {"ERR", "FIN", false, false},
      {"OK", "FIN", false, false}};
  for (const auto& [first, second, again, on] : cases) {
    SCOPED_TRACE(first);
    Loading world;
    std::deque<std::string> answers{first, second};
    world.radio.answer = [&](std::string_view command) {
      std::string answer = "OK\r";
      if (command == "FI") {
        answer = answers.front() + "\r";
        answers.pop_front();
      }
      return std::vector<test::Piece>{{answer}};
    };
    world.form.load();
    EXPECT_EQ(answers.empty(), again);
    EXPECT_EQ(world.form.receiver.Check5.value(), on);
  }
}

TEST(Bc245Load, TakesTheStoredValues) {
  Loading world;
  world.settings.values = {{{"BC245", "TrunkedView"}, "False"},
                           {{"SpeedE", "0"}, "1"},
                           {{"SpeedE", "9"}, "1"},
                           {{"SpeedE", "10"}, "1"},
                           {{"SpeedE", "3"}, "x"},
                           {{"BC245", "Baudrate"}, "19200"},
                           {{"Options", "COM"}, "2"},
                           {{"Options", "Keybeep"}, "0"}};
  world.form.load();
  EXPECT_TRUE(world.form.receiver.Option7.value());
  EXPECT_FALSE(world.form.receiver.Option8.value());
  for (int bank = 0; bank < 10; ++bank) {
    EXPECT_EQ(world.form.speed.MSBank[static_cast<std::size_t>(bank)].value(),
              bank == 0 || bank == 9);
  }
  EXPECT_TRUE(world.form.speed.Option5.enabled());
  EXPECT_FALSE(world.form.keyBeep.chkKeyBeep.value());
  EXPECT_EQ(world.form.linkControls.baudBox.text(), "19200");
  EXPECT_TRUE(world.form.linkControls.Option2.value());
  EXPECT_THAT(world.dialogs.boxes, IsEmpty()) << "the rate is shown before the poll is on";
  EXPECT_EQ(world.radio.takeLog(), "open COM 2 at 9600,n,8,1; FI; BT; AT; AL; AF; MU; TD");
  EXPECT_EQ(world.form.MSComm1->settings(), "19200,n,8,1");
}

TEST(Bc245Load, LeavesTheViewThatCannotBeRead) {
  const std::pair<const char*, bool> cases[] = {{"True", true}, {"False", false}, {"1", true},
                                                {"-1", true},   {"0", false},     {"", true},
                                                {"maybe", true}};
  for (const auto& [stored, activeBanks] : cases) {
    Loading world;
    world.settings.values[{"BC245", "TrunkedView"}] = stored;
    world.form.load();
    EXPECT_EQ(world.form.receiver.Option8.value(), activeBanks) << stored;
    EXPECT_EQ(world.form.receiver.Option7.value(), !activeBanks) << stored;
  }
}

TEST(Bc245Load, SurvivesASilentRadio) {
  Loading world;
  world.radio.answer = [](std::string_view) { return std::vector<test::Piece>{}; };
  // While the message is open, the user ticks a box that is read later.
  world.dialogs.whileOpen = [&] { world.form.receiver.Check1.userClick(); };
  world.form.load();
  EXPECT_EQ(world.radio.takeLog(), "open COM 1 at 9600,n,8,1; FI; close");
  EXPECT_EQ(world.dialogs.takeBoxes().size(), 1U);
  EXPECT_TRUE(world.form.receiver.Check1.value());
  EXPECT_TRUE(world.form.Scantimer.enabled()) << "the poll starts all the same, on a closed port";
}

TEST(Bc245Options, WriteASwitchAtOnce) {
  Loading world;
  world.form.MSComm1->open();
  world.radio.log.clear();
  struct Case {
    platform::CheckBox& box;
    const char* on;
    const char* off;
  };
  for (const auto& [box, on, off] :
       {Case{world.form.receiver.Check1, "AFN", "AFF"},
        Case{world.form.receiver.Check2, "ALN", "ALF"},
        Case{world.form.receiver.Check3, "ATN", "ATF"},
        Case{world.form.receiver.Check4, "BTN", "BTF"},
        Case{world.form.receiver.Check5, "FIN", "FIF"}, Case{world.form.Check6, "MUN", "MUA"},
        Case{world.form.receiver.Check7, "TDN", "TDF"}}) {
    for (const char* command : {on, off}) {
      box.userClick();
      EXPECT_EQ(world.radio.takeLog(), command);
      EXPECT_EQ(world.form.panel.Att.visible(), std::string_view(command) == "ATN");
    }
  }
  world.form.receiver.Option7.userClick();
  world.form.receiver.Option8.userClick();
  EXPECT_EQ(world.radio.takeLog(), "") << "the pair is the window's own";
  EXPECT_THAT(world.settings.saved,
              ElementsAre(test::SavedSetting{"BC245", "TrunkedView", "False"},
                          test::SavedSetting{"BC245", "TrunkedView", "True"}));
}

struct Bc245Speed : testing::Test, Loading {
  Bc245Speed() {
    form.MSComm1->open();
    form.panel.Frequency.setCaption("Scanning");
    radio.log.clear();
  }
  std::string tick() {
    gate.enterTimer(form.speed.timer);
    return radio.takeLog();
  }
  platform::CheckBox& bank(int index) { return form.speed.MSBank[static_cast<std::size_t>(index)]; }
};

TEST_F(Bc245Speed, GoesRoundTheChosenBanks) {
  for (const int chosen : {1, 4, 9}) {
    bank(chosen).userClick();
    EXPECT_EQ(radio.takeLog(), "KEY00");
  }
  EXPECT_EQ(tick(), "") << "off";
  form.speed.Option5.userClick();
  EXPECT_EQ(radio.takeLog(), "");
  EXPECT_TRUE(form.speed.timer.enabled());
  EXPECT_EQ(form.speed.timer.interval(), 2000);
  // Multiscan of the other window has stopped here.
  state.BankCursor = 17;
  for (const char* letter : {"B", "E", "J", "B"}) {
    EXPECT_EQ(tick(), std::string("SB ") + letter + "; KEY00");
  }
  for (const char* mode : {"MD11", "MD17"}) {
    form.panel.mode.setCaption(mode);
    EXPECT_THAT(tick(), testing::EndsWith("; KEY00; KEY13; KEY13"));
  }
  for (const char* shown : {"155.1150", "Searching", "- -   - - -", ""}) {
    form.panel.Frequency.setCaption(shown);
    EXPECT_EQ(tick(), "") << "held by what is shown";
  }
  form.speed.Option6.userClick();
  EXPECT_FALSE(form.speed.timer.enabled());
  EXPECT_EQ(radio.takeLog(), "");
}

TEST_F(Bc245Speed, LeavesATransferAlone) {
  bank(2).userClick();
  form.speed.Option5.userClick();
  radio.log.clear();
  state.TransferRunning = true;
  form.speed.Option6.userClick();
  form.speed.Option5.userClick();
  bank(5).userClick();
  EXPECT_EQ(tick(), "");
  EXPECT_EQ(form.panel.Frequency.caption(), "Scanning");
  state.TransferRunning = false;
  EXPECT_NE(tick(), "");
}

TEST_F(Bc245Speed, IsOffWithoutBanks) {
  form.speed.Option5.userClick();
  EXPECT_FALSE(form.speed.Option5.value()) << "nothing to scan yet";
  bank(3).userClick();
  form.speed.Option5.userClick();
  bank(3).userClick();
  EXPECT_EQ(radio.takeLog(), "KEY00; KEY00");
  EXPECT_FALSE(form.speed.Option5.value() || form.speed.Option5.enabled() ||
               form.speed.timer.enabled());
  EXPECT_TRUE(form.speed.Option6.value());
  EXPECT_THAT(settings.saved, ElementsAre(test::SavedSetting{"SpeedE", "3", "1"},
                                          test::SavedSetting{"SpeedE", "3", "0"}));
  form.speed.timer.setEnabled(true);
  EXPECT_EQ(tick(), "") << "ends";
}

}  // namespace
}  // namespace tarnvex::shell
