#include <gmock/gmock.h>

#include "poll_rig.h"

namespace tarnvex::monitor {
namespace {

using testing::ElementsAre;

constexpr const char* kNobody = "- -   - - -";
const std::string kTime = " - 2031-05-06 07:08:09 Bank: ";

/// The exchanges of a round after a line that begins with "ID".
std::string lookup(const std::string& window = "WI020F08510125", const std::string& decimal = "N") {
  return "; WI > " + window + "; AF > AF" + decimal;
}

/// A round with a streamed line, or none. `next` is the mode at its end.
std::string round(const std::string& line, const std::string& afterLine, const std::string& next) {
  return "; DL > DLN; IDN > IDN" + (line.empty() ? "" : " > " + line) + afterLine + "; MD > " +
         next + "; LT > LTN";
}

struct Bc245Ids : testing::Test, test::Bc245Rig {
  Bc245Ids() {
    setPanel(false);
    form.hitLists.chkSkip.onClick = nullptr;
  }
  void stay(const std::string& mode, const std::string& rounds) {
    poll(mode, "IDN > IDN" + rounds + "; IDF > IDF");
  }
};

TEST_F(Bc245Ids, StartTheScanOfARadioThatHasNotScannedYet) {
  for (const std::string mode : {"MD09", "MD15", "MD10", "MD16"}) {
    form.panel.Frequency.setCaption("888.8888");
    form.panel.Alpha.setCaption("Tag");
    form.panel.Hold.setVisible(true);
    poll(mode, "KEY00 > OK");
    EXPECT_EQ(
        test::parts(picture()),
        test::parts(std::string("Frequency: 888.8888") +
                    (mode == "MD10" || mode == "MD16" ? ", Alpha: Tag" : "") +
                    ", TrunkType: " + (mode == "MD09" || mode == "MD10" ? "M" : "E") + ", Hold"));
    EXPECT_TRUE(form.Scantimer.enabled());
  }
}

TEST_F(Bc245Ids, ShowTheSearchAsItGoes) {
  const std::string rest = ", Trunk, Att, Police, Dly, Data, Keylock, Bank, light";
  const std::tuple<const char*, std::string, std::string> cases[] = {
      {"MD09", "", "TrunkType: M"},
      {"MD15", "", "TrunkType: E"},
      {"MD10", "Alpha: Old tag, ", "TrunkType: M, Hold"},
      {"MD16", "Alpha: Old tag, ", "TrunkType: E, Hold"}};
  for (const auto& [mode, alpha, type] : cases) {
    for (const bool lit : {false, true}) {
      setPanel(lit);
      stay(mode, round("", "", "MD13"));
      EXPECT_EQ(test::parts(picture()),
                test::parts(std::string("Frequency: - -   - - -, ") +
                            (lit ? alpha + type + rest : type + ", Trunk, Dly, light")))
          << mode;
      EXPECT_EQ(form.panel.mode.caption(), "MD13");
    }
  }
}

TEST_F(Bc245Ids, FollowIdsFromRoundToRound) {
  std::vector<std::string> shown;
  std::vector<std::string> tags;
  const auto connection = form.panel.Frequency.changed.connect(
      [&] { shown.push_back(form.panel.Frequency.caption()); });
  const auto tagConnection =
      form.panel.Alpha.changed.connect([&] { tags.push_back(form.panel.Alpha.caption()); });
  stay("MD15", round("ID S 005678", lookup(), "MD15") +
                   // A stray line.
                   round("SB AC", "", "MD15") +
                   // The other form of an ID in the plan.
                   round("ID S 00-153", lookup("WI020F08510125", "F"), "MD15") +
                   round("ID E", lookup(), "MD15") +
                   // A frequency outside the plan has no tags.
                   round("ID S 005678", lookup("WI020F08520125"), "MD16") +
                   // On hold, neither a stray line nor another ID changes the display.
                   round("ID S 000123", lookup(), "MD16") + round("", "", "MD10 ") +
                   round("ID E", lookup(), "MD00"));
  EXPECT_THAT(shown, ElementsAre(kNobody, "5678", kNobody, " 00-153", kNobody, "5678"));
  EXPECT_THAT(tags, ElementsAre("Detectives", "", "Buses", "", "Detectives"));
  EXPECT_THAT(form.hitLists.List2.items(),
              ElementsAre("5678" + kTime + "2 (Detectives)", " 00-153" + kTime + "2 (Buses)"))
      << "a line without an ID lists nothing new";
  EXPECT_EQ(state.CurrentMode, "MD00");
  EXPECT_TRUE(form.Scantimer.enabled());
}

TEST_F(Bc245Ids, ListWhatTheDisplayShows) {
  stay("MD09", round("ID E", lookup("WI"), "MD09") + round("ID E", lookup(), "MD00"));
  EXPECT_THAT(form.hitLists.List2.items(), ElementsAre()) << "a text that isn't an ID isn't a hit";
  // The bank is that of the last frequency in the plan.
  form.hitLists.List2.clear();
  stay("MD09", round("ID S 000007", lookup(), "MD09") +
                   round("ID S 000011", lookup("WI020F08520125"), "MD00"));
  EXPECT_THAT(form.hitLists.List2.items(), ElementsAre("7" + kTime + "2 ", "11" + kTime + "2 "));
  // Keyed digits stay on the display while the user enters them.
  form.hitLists.List2.clear();
  state.EntryActive = true;
  form.panel.Frequency.setCaption("42");
  stay("MD09", round("ID S 005678", "; WI > WI020F08510125", "MD00"));
  EXPECT_EQ(form.panel.Frequency.caption(), "42");
  EXPECT_THAT(form.hitLists.List2.items(), ElementsAre("42" + kTime + "2 "));
}

TEST_F(Bc245Ids, SkipEveryIdWithSkipTicked) {
  form.hitLists.chkSkip.setValue(true);
  const std::string known = round("ID S 005678", lookup() + "; KEY09 > OK", "MD09");
  stay("MD09", known + known + round("ID E", lookup() + "; KEY09 > OK", "MD09") +
                   round("stray", "", "MD00"));
  EXPECT_EQ(form.hitLists.List2.count(), 1);
}

TEST_F(Bc245Ids, TakeNoStrayLineForAMode) {
  std::string rounds;
  for (const char* next : {"ID S 005678", "", "ERR", "MD16 and more", "ID E", "MD01"}) {
    rounds += round("", "", next);
  }
  stay("MD09", rounds);
  EXPECT_EQ(form.panel.TrunkType.caption(), "E") << "that of the last round's mode";
  EXPECT_EQ(form.panel.mode.caption() + state.CurrentMode, "MD01MD01");
}

TEST_F(Bc245Ids, EndBeforeOthersUseTheLine) {
  for (const int turn : {2, 3}) {
    dialogs.answers = {platform::Answer::Yes};
    loop.onTurn(turn, [&] { gate.enter([&] { form.mnuReset(); }); });
    poll("MD09",
         std::string("IDN > IDN") + (turn == 3 ? "; DL > DLF" : "") + "; IDF > IDF; AC > OK");
    EXPECT_TRUE(form.Scantimer.enabled());
  }
}

TEST_F(Bc245Ids, TakeALineThatComesBeforeItsAnswer) {
  std::vector<std::string> shown;
  const auto connection = form.panel.Frequency.changed.connect(
      [&] { shown.push_back(form.panel.Frequency.caption()); });
  const std::string next = lookup() + "; MD > MD09; LT > LTN";
  stay("MD09", "; DL > DLF; IDN > ID S 005678 > IDN" + next +
                   "; DL > DLF; IDN > IDN > OK > ID S 000123" + next +
                   // A garbled line, and the answer itself in place of a line.
                   round("ID S 00#678 > ID", "", "MD09") + round("IDN > IDN", "", "MD00"));
  EXPECT_THAT(shown, ElementsAre(kNobody, "5678", "123"));
  EXPECT_EQ(form.hitLists.List2.count(), 2);
}

TEST_F(Bc245Ids, RunUserEventsWhileTheTickStays) {
  int events = 0;
  int nested = 0;
  loop.onTurn(2, [&] {
    gate.enter([&] {
      ++events;
      EXPECT_FALSE(form.Scantimer.enabled());
      // A handler that has paused the poll starts it again.
      form.Scantimer.setEnabled(true);
      link.SendCommand("KEY07");
    });
  });
  const auto connection = form.Scantimer.starting.connect([&] { ++nested; });
  loop.onTurn(4, [&] { gate.enterTimer(form.Scantimer); });
  poll("MD09",
       "IDN > IDN; KEY07 > OK; DL > DLF; IDN > IDN; MD > MD10; LT > LTF; DL > DLF; IDN > IDN; "
       "MD > MD00; LT > LTF; IDF > IDF");
  EXPECT_EQ(events, 1);
  EXPECT_EQ(nested, 1) << "ticks never nest";
}

TEST_F(Bc245Ids, EndWhenThePortIsClosed) {
  poll("MD09", "IDN > IDN; DL > DLF; IDN");
  EXPECT_EQ(dialogs.takeBoxes().size(), 1U);
  EXPECT_FALSE(form.Scantimer.enabled()) << "the poll stays off until the user connects";
  EXPECT_FALSE(form.MSComm1->portOpen());
  form.linkControls.Command3.userClick();
  stay("MD09", round("", "", "MD00"));
  EXPECT_TRUE(form.Scantimer.enabled());
}

TEST_F(Bc245Ids, EndWithTheProgram) {
  dialogs.answers = {platform::Answer::Yes};
  loop.onTurn(3, [&] { gate.enterLeaving([&] { form.requestUnload(); }); });
  poll("MD10", "IDN > IDN; DL > DLF");
  EXPECT_TRUE(gate.ended());
  EXPECT_FALSE(form.MSComm1->portOpen() || form.Scantimer.enabled());
}

}  // namespace
}  // namespace tarnvex::monitor
