#include <gmock/gmock.h>

#include "shell/application.h"
#include "support/world.h"

namespace tarnvex::shell {
namespace {

using platform::Answer;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kIdentity = "SIBC245XLT 0123456789 0215";
constexpr const char* kReopened = "open COM 1 at 9600,n,8,1";

/// A line on which the test can replace one radio by the other.
struct SwitchTest : testing::Test, test::World {
  Application application{services, windows};
  bool bc895 = false;

  SwitchTest() {
    exchange();
    application.start();
    gate.enterTimer(windows.splash->Timer1);
    windows.takeCalls();
    radio.log.clear();
  }
  void exchange() {
    bc895 = !bc895;
    radio.answerAll("OK", {{"SI", bc895 ? "ERR" : kIdentity}, {"MD", "MD13"}, {"MA", "NG"}});
  }
  void tick() { gate.enterTimer(application.mainForm()->Scantimer); }
  /// The log up to the point where the new window has opened the port.
  std::string logUpToOpening() {
    std::string all = radio.takeLog();
    return all.substr(0, all.find(kReopened) + std::string(kReopened).size());
  }
};

TEST_F(SwitchTest, ExchangesTheWindowsWithTheRadios) {
  for (const char* name : {"BC245XLT", "BC895XLT"}) {
    SCOPED_TRACE(name);
    exchange();
    tick();
    EXPECT_THAT(windows.takeCalls(),
                ElementsAre("openNotice Switch Scanners|One Moment... Switching to the " +
                                std::string(name) + ". Please Wait",
                            "closeMain", std::string("openMain ") + (bc895 ? "Form4" : "Form2"),
                            "closeNotice"));
    // A radio that has named itself is asked once more.
    EXPECT_EQ(logUpToOpening(), std::string(bc895 ? "SI; SI; close; " : "SI; close; ") + kReopened);
    EXPECT_EQ(state.ModelKey, bc895 ? "BC895" : "BC245");
    EXPECT_EQ(state.ScannerName, name);
    EXPECT_THAT(std::exchange(dialogs.busyPointer, {}), ElementsAre(true, false));
    EXPECT_TRUE(state.SwitchingScanners);
    EXPECT_TRUE(application.mainForm()->Scantimer.enabled());
    tick();
    EXPECT_FALSE(state.SwitchingScanners) << "the new window's first tick";
    EXPECT_EQ(state.FirmwareText, bc895 ? "N/A" : "2.15");
    EXPECT_THAT(windows.takeCalls(), IsEmpty());
    radio.takeLog();
  }
  EXPECT_THAT(dialogs.boxes, IsEmpty());
}

TEST_F(SwitchTest, ShowsItsNoticeOnASilentAndClosedLine) {
  exchange();
  MainForm* old = application.mainForm();
  bool seen = false;
  windows.onCall = [&](const std::string& call) {
    if (call.starts_with("openNotice")) {
      EXPECT_FALSE(old->MSComm1->portOpen() || old->Scantimer.enabled());
      EXPECT_TRUE(state.SwitchingScanners);
      // The port of a window that is closing can't be opened, and its poll stays off.
      loop.onTurn(1, [&] {
        gate.enter([&] { seen = true; });
        gate.enterTimer(old->Scantimer);
      });
    }
    if (call == "closeMain") {
      EXPECT_TRUE(seen) << "pending events have run";
      EXPECT_TRUE(old->Scantimer.running()) << "the old window lives until its tick has returned";
      old->linkControls.Command3.userClick();
      EXPECT_FALSE(old->MSComm1->portOpen());
    }
  };
  tick();
  EXPECT_EQ(logUpToOpening(), std::string("SI; close; ") + kReopened);
}

TEST_F(SwitchTest, AsksOnlyForTheUnsavedPlan) {
  exchange();
  state.MemoryModified = true;
  dialogs.answers = {Answer::No};
  dialogs.whileOpen = [&] {
    EXPECT_THAT(windows.calls, ElementsAre(testing::StartsWith("openNotice")));
  };
  tick();
  EXPECT_THAT(dialogs.takeBoxes(),
              ElementsAre(test::Box{"Save Changes to Scanlist File?", "Save Changes", 36}));
  EXPECT_NE(windows.form2, nullptr);
  EXPECT_FALSE(gate.ended());
}

TEST_F(SwitchTest, KeepsPortAndBeepAndTakesTheOtherRadiosRate) {
  settings.values = {{{"Options", "Keybeep"}, "0"}, {{"BC245", "Baudrate"}, "19200"}};
  exchange();
  tick();
  EXPECT_EQ(windows.form2->MSComm1->settings(), "19200,n,8,1");
  EXPECT_FALSE(windows.form2->keyBeep.chkKeyBeep.value());
}

TEST_F(SwitchTest, StaysWithASilentRadio) {
  radio.answer = [](std::string_view) { return std::vector<test::Piece>{}; };
  tick();
  EXPECT_EQ(dialogs.takeBoxes().size(), 1U);
  EXPECT_THAT(windows.takeCalls(), IsEmpty());
}

TEST_F(SwitchTest, DoesNotRunDuringTheExitsQuestionAboutThePlan) {
  state.MemoryModified = true;
  dialogs.answers = {Answer::Yes, Answer::No};
  std::vector<bool> polls;
  dialogs.whileOpen = [&] { polls.push_back(application.mainForm()->Scantimer.enabled()); };
  gate.enter([&] { application.mainForm()->requestUnload(); });
  EXPECT_THAT(polls, ElementsAre(true, false));
  EXPECT_TRUE(gate.ended());
}

}  // namespace
}  // namespace tarnvex::shell
