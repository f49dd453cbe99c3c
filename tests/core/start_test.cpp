#include <gmock/gmock.h>

#include "shell/application.h"
#include "support/world.h"

namespace tarnvex::shell {
namespace {

using platform::Answer;
using test::Exchange;
using test::SavedSetting;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kIdentity = "SIBC245XLT 0123456789 0215";

struct StartTest : testing::Test, test::World {
  Application application{services, windows};

  StartTest() {
    // The BC245XLT's window asks for the radio's switches while it loads.
    radio.answerAll("OK");
  }
  /// Runs the splash with its exchange, and opens the main window.
  void start(const std::vector<Exchange>& exchanges) {
    application.start();
    radio.expect(exchanges);
    ASSERT_NE(windows.splash, nullptr);
    gate.enterTimer(windows.splash->Timer1);
    radio.expectSpent();
  }
  void start895() { start(test::script("SI > ERR")); }
  void start245() { start({{"SI", kIdentity}}); }
};

TEST_F(StartTest, SplashTellsTheRadiosApart) {
  const std::tuple<Exchange, const char*, const char*> cases[] = {
      {{"SI", "ERR"}, "BC895", "BC895XLT|N/A|N/A"},
      {{"SI", kIdentity}, "BC245", "BC245XLT|0123456789|2.15"},
      {{"SI", "SIBC245XLT 0123456789 0300"}, "BC245", "BC245XLT|0123456789|3"},
      {{"SI", std::vector<test::Piece>{}}, "BC245", "||"},
      {{"SI", ""}, "BC245", "||"},
      {{"SI", "FER"}, "BC245", "R||"},
      {{"SI", "SIBC245XLT 0123456789 0xyz"}, "BC245", "BC245XLT|0123456789|"}};
  for (const auto& [probe, key, texts] : cases) {
    SCOPED_TRACE(texts);
    test::World world;
    world.radio.answer = radio.answer;
    Application program(world.services, world.windows);
    program.start();
    EXPECT_THAT(world.windows.takeCalls(), ElementsAre("openSplash"));
    world.radio.expect({probe});
    bool closedInTime = false;
    world.windows.onCall = [&, key = key, texts = texts](const std::string& call) {
      if (call.starts_with("openMain")) {
        closedInTime = world.radio.log.back() == "close";
        EXPECT_EQ(world.state.ModelKey, key);
        EXPECT_EQ(world.state.ScannerName + "|" + world.state.SerialNumberText + "|" +
                      world.state.FirmwareText,
                  texts);
      }
    };
    world.gate.enterTimer(world.windows.splash->Timer1);
    EXPECT_THAT(
        world.windows.takeCalls(),
        ElementsAre(std::string("openMain ") + (std::string(key) == "BC895" ? "Form4" : "Form2"),
                    "closeSplash"));
    EXPECT_TRUE(closedInTime) << "the splash closes its port before the main window opens its own";
    EXPECT_THAT(world.dialogs.takeBoxes(), IsEmpty());
  }
}

TEST_F(StartTest, SplashTriesItsPortAt9600WhateverIsStored) {
  settings.values = {{{"BC895", "Baudrate"}, "4800"}, {{"Options", "COM"}, "1"}};
  start895();
  EXPECT_EQ(radio.takeLog(), "open COM 1 at 9600,n,8,1; SI; close; open COM 1 at 4800,n,8,1");
}

TEST_F(StartTest, SplashTreatsAPortThatWillNotOpenAsSilence) {
  settings.values[{"Options", "COM"}] = "nonsense";
  radio.refusals[1] = "No such device";
  start({});
  EXPECT_NE(windows.form2, nullptr);
  EXPECT_THAT(dialogs.takeBoxes(), IsEmpty());
  EXPECT_EQ(radio.takeLog(), "refused COM 1; refused COM 1");
  EXPECT_TRUE(windows.form2->Scantimer.enabled());
}

TEST_F(StartTest, FirstStartWritesNothing) {
  start895();
  const Form4& form = *windows.form4;
  EXPECT_THAT(settings.saved, IsEmpty());
  EXPECT_THAT(dialogs.boxes, IsEmpty());
  EXPECT_TRUE(form.linkControls.Option1.value() && form.keyBeep.chkKeyBeep.value() &&
              form.Scantimer.enabled());
  EXPECT_FALSE(form.recording.chkRecord.value() || form.hitLists.chkSkip.value() ||
               form.multiscan.timer.enabled());
  EXPECT_TRUE(std::ranges::none_of(form.multiscan.MSBank, &platform::CheckBox::value));
  EXPECT_EQ(form.panel.Label1.backColor(), 8454143U);
  EXPECT_EQ(form.window.caption(), "Tarnvex - Untitled");
  EXPECT_EQ(form.linkControls.baudBox.text(), "9600");
  EXPECT_EQ(form.trunkBank.text() + form.Combo2.text() + form.Combo3.text(), "AAA");
  EXPECT_EQ(form.SSTab1.tab(), 2);
  EXPECT_EQ(form.panel.Frequency.caption(), "Initializing");
}

TEST_F(StartTest, FirstStartOfTheHandHeldWritesNothing) {
  start245();
  const Form2& form = *windows.form2;
  EXPECT_THAT(settings.saved, IsEmpty());
  EXPECT_THAT(dialogs.boxes, IsEmpty());
  EXPECT_TRUE(form.linkControls.Option1.value() && form.keyBeep.chkKeyBeep.value() &&
              form.Scantimer.enabled());
  EXPECT_EQ(form.linkControls.baudBox.text(), "9600");
  EXPECT_EQ(form.Combo2.text() + form.Combo3.text() + form.trunkBank.text(), "111");
  EXPECT_EQ(form.SSTab1.tab(), 2);
  EXPECT_EQ(form.panel.Frequency.caption(), "888.8888");
}

TEST_F(StartTest, ReadsEachRateAsTheWindowKnowsIt) {
  const std::tuple<bool, const char*, const char*> cases[] = {
      {true, "4800", "4800"},  {true, "9600", "9600"},    {true, "2400", "4800"},
      {true, "19200", ""},     {true, "fast", ""},        {true, "", ""},
      {false, "2400", "2400"}, {false, "19200", "19200"}, {false, "1200", ""},
      {false, "9600 ", ""},    {false, "fast", ""}};
  for (const auto& [bc895, rate, shown] : cases) {
    SCOPED_TRACE(rate);
    test::World world;
    world.radio.answer = radio.answer;
    world.state.ModelKey = bc895 ? "BC895" : "BC245";
    world.settings.values[{world.state.ModelKey, "Baudrate"}] = rate;
    std::unique_ptr<MainForm> form;
    if (bc895) {
      form = std::make_unique<Form4>(world.services, world.outside());
    } else {
      form = std::make_unique<Form2>(world.services, world.outside());
    }
    form->load();
    EXPECT_EQ(form->linkControls.baudBox.text(), shown);
    EXPECT_EQ(form->MSComm1->settings(), std::string(rate) + ",n,8,1");
    EXPECT_THAT(world.settings.saved, IsEmpty());
    EXPECT_THAT(world.dialogs.boxes, IsEmpty());
  }
}

/// In the BC895XLT's window the poll is on before the rate is set, so the box asks its question.
TEST_F(StartTest, AsksForTheRateOnAnyOtherPortThanTheFirst) {
  for (const bool yes : {false, true}) {
    test::World world;
    world.settings.values = {{{"Options", "COM"}, "3"}, {{"BC895", "Baudrate"}, "4800"}};
    world.dialogs.answers = {yes ? Answer::Yes : Answer::No};
    if (yes) {
      world.radio.expect({{"TEST", "ERR"}});
    }
    Form4 form(world.services, world.outside());
    form.load();
    EXPECT_EQ(world.dialogs.takeBoxes().size(), 1U);
    EXPECT_EQ(world.radio.takeLog(), yes ? "open COM 3 at 9600,n,8,1; close; "
                                           "open COM 3 at 4800,n,8,1; TEST"
                                         : "open COM 3 at 9600,n,8,1");
    EXPECT_EQ(form.MSComm1->settings(), "4800,n,8,1");
    EXPECT_EQ(form.linkControls.baudBox.text(), "4800");
    EXPECT_TRUE(form.linkControls.Option3.value() && form.Scantimer.enabled() &&
                form.MSComm1->portOpen());
    EXPECT_EQ(world.settings.saved.front(), (SavedSetting{"Options", "COM", "3"}));
    EXPECT_EQ(world.settings.saved.size(), yes ? 2U : 1U);
  }
  settings.values[{"Options", "COM"}] = "4";
  start245();
  EXPECT_THAT(dialogs.takeBoxes(), IsEmpty()) << "the hand-held's window shows its rate first";
  EXPECT_THAT(settings.saved, ElementsAre(SavedSetting{"Options", "COM", "4"}));
}

TEST_F(StartTest, IgnoresInvalidPortsAndReportsARefusedOneIfItsOptionWasChosen) {
  for (const std::string com : {"0", "5", "-1", "x", "", "99999", "1", "2"}) {
    SCOPED_TRACE(com);
    test::World world;
    world.settings.values[{"Options", "COM"}] = com;
    const bool refused = com == "1" || com == "2";
    if (refused) {
      world.radio.refusals = {{1, "In use"}, {2, "In use"}};
    }
    Form4 form(world.services, world.outside());
    form.load();
    EXPECT_EQ(form.linkControls.Option1.value(), com != "2") << "chosen when the window is created";
    EXPECT_TRUE(form.Scantimer.enabled());
    EXPECT_EQ(form.MSComm1->portOpen(), !refused);
    EXPECT_THAT(world.settings.saved, IsEmpty());
    EXPECT_EQ(world.dialogs.takeBoxes().size(), com == "2" ? 1U : 0U);
  }
}

TEST_F(StartTest, TakesTheStoredBoxesAndSkipsNonsense) {
  const std::tuple<const char*, const char*, const char*, bool, platform::Colour, bool> cases[] = {
      {"0", "255", "1", false, 255, true},
      {"1", "0", "0", true, 0, false},
      {"x", "blue", "x", true, 8454143, false},
      {"", "-1", "", true, 8454143, false},
      {"-1", "99999999999", "2", true, 8454143, true}};
  for (const auto& [beep, colour, bank, beeps, back, ticked] : cases) {
    SCOPED_TRACE(colour);
    test::World world;
    world.settings.values = {{{"Options", "Keybeep"}, beep},
                             {{"Colors", "Backcolor"}, colour},
                             {{"Multiscan", "13"}, bank}};
    Form4 form(world.services, world.outside());
    form.load();
    EXPECT_EQ(form.keyBeep.chkKeyBeep.value(), beeps);
    EXPECT_EQ(form.panel.Label1.backColor(), back);
    for (int i = 0; i < 20; ++i) {
      EXPECT_EQ(form.multiscan.MSBank[static_cast<std::size_t>(i)].value(), ticked && i == 13);
    }
    EXPECT_EQ(form.multiscan.Option5.enabled(), ticked);
    EXPECT_FALSE(form.multiscan.timer.enabled());
  }
}

TEST_F(StartTest, EndsOnlyWithTheUsersConsent) {
  start895();
  windows.takeCalls();
  radio.takeLog();
  dialogs.answers = {Answer::No};
  dialogs.whileOpen = [&] { windows.form4->requestUnload(); };
  state.MemoryModified = true;
  gate.enterLeaving([&] { windows.form4->requestUnload(); });
  EXPECT_THAT(dialogs.takeBoxes(), ElementsAre(test::Box{"Exit Tarnvex?", "Confirm Exit", 36}))
      << "asked once, and nothing about the plan";
  EXPECT_TRUE(windows.form4->MSComm1->portOpen() && windows.form4->Scantimer.enabled());
  EXPECT_EQ(radio.takeLog(), "");
  dialogs.answers = {Answer::Yes, Answer::No};
  gate.enterLeaving([&] { windows.form4->requestUnload(); });
  EXPECT_THAT(dialogs.takeBoxes(),
              ElementsAre(test::Box{"Exit Tarnvex?", "Confirm Exit", 36},
                          test::Box{"Save Changes to Scanlist File?", "Save Changes", 36}));
  EXPECT_EQ(radio.takeLog(), "close") << "nothing is sent to the radio";
  EXPECT_THAT(windows.takeCalls(), ElementsAre("quit"));
  EXPECT_TRUE(gate.ended());
}

}  // namespace
}  // namespace tarnvex::shell
