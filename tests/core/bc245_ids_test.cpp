#include <gmock/gmock.h>

#include "bc245_rig.h"

namespace tarnvex::monitor {
namespace {

using test::Exchange;
using test::kWindow851;
using test::opening245;
using test::operator+;
using test::streaming;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kNobody = "- -   - - -";

/// What a round asks behind a line that begins with "ID".
std::vector<Exchange> lookup(const std::string& window = kWindow851,
                             const std::string& decimal = "AFN") {
  return {{"WI", window}, {"AF", decimal}};
}

struct Bc245Ids : testing::Test, test::Bc245Rig {
  Bc245Ids() {
    setPanel(false);
    form.chkSkip.onClick = nullptr;
  }
  /// A round with a streamed line, or none; `next` is the mode that it ends with.
  static std::vector<Exchange> round(const std::string& line,
                                     const std::vector<Exchange>& behindLine,
                                     const std::string& next) {
    return std::vector<Exchange>{
               {"DL", "DLN"},
               line.empty() ? Exchange{"IDN", "IDN"} : streaming("IDN", "IDN", line)} +
           behindLine + std::vector<Exchange>{{"MD", next}, {"LT", "LTN"}};
  }
  static std::vector<Exchange> stay(const std::string& mode, const std::vector<Exchange>& rounds) {
    return opening245(mode) + std::vector<Exchange>{{"IDN", "IDN"}} + rounds +
           std::vector<Exchange>{{"IDF", "IDF"}};
  }
};

TEST_F(Bc245Ids, FirstSetARadioGoingThatHasNotScannedYet) {
  for (const char* mode : {"MD09", "MD15", "MD10", "MD16"}) {
    form.panel.Frequency.setCaption("888.8888");
    form.panel.Alpha.setCaption("Tag");
    form.panel.Hold.setVisible(true);
    tick(opening245(mode) + std::vector<Exchange>{{"KEY00", "OK"}});
    const bool held = std::string_view(mode) == "MD10" || std::string_view(mode) == "MD16";
    EXPECT_EQ(picture(), std::string("Frequency: 888.8888") + (held ? ", Alpha: Tag" : "") +
                             ", TrunkType: " + (mode[3] == '9' || mode[3] == '0' ? "M" : "E") +
                             ", Hold");
    EXPECT_TRUE(form.Scantimer.enabled());
  }
}

TEST_F(Bc245Ids, ShowTheSearchAsItGoes) {
  struct Case {
    const char* mode;
    const char* onDark;
    const char* onLit;
  };
  for (const auto& [mode, onDark, onLit] :
       {Case{"MD09", "Frequency: - -   - - -, TrunkType: M, Trunk, Dly, light",
             "Frequency: - -   - - -, TrunkType: M, Trunk, Att, Police, Dly, Data, Keylock, Bank, "
             "light"},
        Case{"MD15", "Frequency: - -   - - -, TrunkType: E, Trunk, Dly, light",
             "Frequency: - -   - - -, TrunkType: E, Trunk, Att, Police, Dly, Data, Keylock, Bank, "
             "light"},
        Case{"MD10", "Frequency: - -   - - -, TrunkType: M, Hold, Trunk, Dly, light",
             "Frequency: - -   - - -, Alpha: Old tag, TrunkType: M, Hold, Trunk, Att, Police, Dly, "
             "Data, Keylock, Bank, light"},
        Case{"MD16", "Frequency: - -   - - -, TrunkType: E, Hold, Trunk, Dly, light",
             "Frequency: - -   - - -, Alpha: Old tag, TrunkType: E, Hold, Trunk, Att, Police, Dly, "
             "Data, Keylock, Bank, light"}}) {
    for (const bool lit : {false, true}) {
      setPanel(lit);
      tick(stay(mode, round("", {}, "MD13")));
      EXPECT_EQ(picture(), lit ? onLit : onDark) << mode;
      EXPECT_EQ(form.panel.mode.caption(), "MD13");
    }
  }
}

TEST_F(Bc245Ids, FollowIdsFromRoundToRound) {
  std::vector<std::string> shown;
  const auto connection = form.panel.Frequency.changed.connect(
      [&] { shown.push_back(form.panel.Frequency.caption()); });
  std::vector<std::string> tags;
  const auto tagConnection =
      form.panel.Alpha.changed.connect([&] { tags.push_back(form.panel.Alpha.caption()); });
  tick(stay("MD15", round("ID S 005678", lookup(), "MD15") +
                        // Strayed in, a line of nobody's.
                        round("SB AC", {}, "MD15") +
                        // The other form of an ID of the plan, which the plan alone can name.
                        round("ID S 00-153", lookup(kWindow851, "AFF"), "MD15") +
                        round("ID E", lookup(), "MD15") +
                        // A frequency from outside the plan has no tags.
                        round("ID S 005678", lookup("WI020F08520125"), "MD16") +
                        // On hold neither a stray line nor another ID changes what is shown.
                        round("ID S 000123", lookup(), "MD16") + round("", {}, "MD10 ") +
                        round("ID E", lookup(), "MD00")));
  EXPECT_THAT(shown, ElementsAre(kNobody, "5678", kNobody, " 00-153", kNobody, "5678"));
  EXPECT_THAT(tags, ElementsAre("Detectives", "", "Buses", "", "Detectives"));
  EXPECT_THAT(form.List2.items(), ElementsAre("5678 - 2031-05-06 07:08:09 Bank: 2 (Detectives)",
                                              " 00-153 - 2031-05-06 07:08:09 Bank: 2 (Buses)"))
      << "what says that nobody is there is entered as what is shown, and that is listed already";
  EXPECT_EQ(state.CurrentMode, "MD00");
  EXPECT_TRUE(form.Scantimer.enabled());
}

TEST_F(Bc245Ids, ListWhatTheDisplayShows) {
  tick(stay("MD09", round("ID E", lookup("WI"), "MD09") + round("ID E", lookup(), "MD00")));
  EXPECT_THAT(form.List2.items(), ElementsAre("- -   - - - - 2031-05-06 07:08:09 Bank: 1 "));
  // The bank of the last frequency that the plan knows.
  form.List2.clear();
  tick(stay("MD09", round("ID S 000007", lookup(), "MD09") +
                        round("ID S 000011", lookup("WI020F08520125"), "MD00")));
  EXPECT_THAT(form.List2.items(),
              ElementsAre("7 - 2031-05-06 07:08:09 Bank: 2 ", "11 - 2031-05-06 07:08:09 Bank: 2 "));
  // Keyed digits stand on the display while the user enters them, and stay there.
  form.List2.clear();
  state.EntryActive = true;
  form.panel.Frequency.setCaption("42");
  tick(stay("MD09", round("ID S 005678", {{"WI", kWindow851}}, "MD00")));
  EXPECT_EQ(form.panel.Frequency.caption(), "42");
  EXPECT_THAT(form.List2.items(), ElementsAre("42 - 2031-05-06 07:08:09 Bank: 2 "));
}

TEST_F(Bc245Ids, PassOnFromEveryIdWithSkipTicked) {
  form.chkSkip.setValue(true);
  const std::vector<Exchange> skip = {{"KEY09", "OK"}};
  tick(stay("MD09", round("ID S 005678", lookup() + skip, "MD09") +
                        round("ID S 005678", lookup() + skip, "MD09") +
                        round("ID E", lookup() + skip, "MD09") + round("stray", {}, "MD00")));
  EXPECT_EQ(form.List2.count(), 1);
}

TEST_F(Bc245Ids, TakeNoStrayLineForAMode) {
  tick(stay("MD09", round("", {}, "ID S 005678") + round("", {}, "") + round("", {}, "ERR") +
                        round("", {}, "MD16 and more") + round("", {}, "ID E") +
                        round("", {}, "MD01")));
  EXPECT_EQ(form.panel.TrunkType.caption(), "E") << "of the last round's mode";
  EXPECT_EQ(form.panel.mode.caption(), "MD01");
  EXPECT_EQ(state.CurrentMode, "MD01");
}

TEST_F(Bc245Ids, LetTheUserInWhileTheTickStays) {
  int events = 0;
  int nested = 0;
  loop.onTurn(2, [&] {
    gate.enter([&] {
      ++events;
      EXPECT_FALSE(form.Scantimer.enabled());
      // A handler that has paused the poll sets it going again.
      form.Scantimer.setEnabled(true);
      link.SendCommand("KEY07");
    });
  });
  const auto connection = form.Scantimer.starting.connect([&] { ++nested; });
  loop.onTurn(4, [&] { gate.enterTimer(form.Scantimer); });
  tick(opening245("MD09") + std::vector<Exchange>{{"IDN", "IDN"},
                                                  {"KEY07", "OK"},
                                                  {"DL", "DLF"},
                                                  {"IDN", "IDN"},
                                                  {"MD", "MD10"},
                                                  {"LT", "LTF"},
                                                  {"DL", "DLF"},
                                                  {"IDN", "IDN"},
                                                  {"MD", "MD00"},
                                                  {"LT", "LTF"},
                                                  {"IDF", "IDF"}});
  EXPECT_EQ(events, 1);
  EXPECT_EQ(nested, 1) << "ticks never nest";
}

TEST_F(Bc245Ids, EndWithTheLine) {
  auto exchanges = opening245("MD09") + std::vector<Exchange>{{"IDN", "IDN"}, {"DL", "DLF"}};
  exchanges.push_back(test::silent("IDN"));
  tick(exchanges);
  EXPECT_EQ(dialogs.takeBoxes().size(), 1U);
  EXPECT_FALSE(form.Scantimer.enabled()) << "the poll stays off until the user connects";
  EXPECT_FALSE(form.MSComm1->portOpen());
  form.Command3.userClick();
  tick(stay("MD09", round("", {}, "MD00")));
  EXPECT_TRUE(form.Scantimer.enabled());
}

TEST_F(Bc245Ids, EndWithTheProgram) {
  dialogs.answers = {platform::Answer::Yes};
  loop.onTurn(3, [&] { gate.enterLeaving([&] { form.requestUnload(); }); });
  tick(opening245("MD10") + std::vector<Exchange>{{"IDN", "IDN"}, {"DL", "DLF"}});
  EXPECT_TRUE(gate.ended());
  EXPECT_FALSE(form.MSComm1->portOpen());
  EXPECT_FALSE(form.Scantimer.enabled());
}

}  // namespace
}  // namespace tarnvex::monitor
