#include <gmock/gmock.h>

#include "poll_rig.h"

namespace tarnvex::monitor {
namespace {

using testing::ElementsAre;

const std::string kTime = " - 2031-05-06 07:08:09 ";

/// A round of the ID search. If there is an ID, the frequency is asked for.
std::string searched(const std::string& reply, const std::string& mode = "MD07",
                     bool skips = false) {
  const bool id = reply.find('E') == std::string::npos && reply.size() > 8;
  return "; IDN > " + reply + (id ? "; SG > S020 F08510125" : "") + (skips ? "; KEY09 > OK" : "") +
         "; IDF > OK; MD > " + mode;
}

struct IdLoopsTest : testing::Test, test::Bc895Rig {
  std::string shown;
  platform::Connection watching = form.panel.Frequency.changed.connect(
      [this] { shown += form.panel.Frequency.caption() + "; "; });

  void search(const std::string& rounds) {
    poll("MD07", "IDN > OK; KEY09 > " + rounds + "; IDF > OK");
  }
};

TEST_F(IdLoopsTest, SearchShowsAndListsEachId) {
  search(searched("NO ID HERE") + searched("IDN SB1 005678") + searched("IDN SB1 005678") +
         searched("IDN SB1 12-345") + searched("IDN SB1 000000") + searched("IDN SB1") +
         searched("IDN SB1 000042", "MD09more"));
  EXPECT_EQ(shown, "- -   - - -; 5678; 12-345; 0; - -   - - -; 42; ");
  EXPECT_THAT(form.hitLists.List2.items(),
              ElementsAre("005678" + kTime + "(Detectives)", "12-345" + kTime + "(Schools)",
                          "000000" + kTime, "000042" + kTime));
  EXPECT_EQ(state.CurrentMode, "MD09") << "four characters of the answer";
  EXPECT_EQ(form.panel.mode.caption(), "MD07");
  EXPECT_EQ(form.panel.Alpha.caption(), "");
}

TEST_F(IdLoopsTest, SearchSkipsWhatIsListedAndGoesOnWhileNothingIsActive) {
  tickSkip();
  search(searched("NO ID HERE") + searched("IDN SB1 005678") +
         searched("IDN SB1 005678", "MD07", true) + searched("NO ID HERE", "MD07", true) +
         searched("IDN SB1 000042") + searched("NO ID HERE", "MD00"));
  EXPECT_EQ(form.hitLists.List2.count(), 2);
}

TEST_F(IdLoopsTest, SearchMirrorsTheDisplayInTheTitleWhileMinimised) {
  std::vector<std::string> titles;
  const auto watchTitle =
      form.window.changed.connect([&] { titles.push_back(form.window.caption()); });
  form.Dlg1->FileName = "/plans/county.tvf";
  // Each round yields twice. What the user does then shows in the title of the next round.
  loop.onTurn(4, [&] { form.window.setMinimised(true); });
  loop.onTurn(10, [&] { form.window.setMinimised(false); });
  search(searched("NO ID HERE") + searched("IDN SB1 005678") + searched("IDN SB1 000042") +
         searched("IDN SB1 000042") + searched("NO", "MD00"));
  EXPECT_THAT(titles, ElementsAre("Tarnvex - /plans/county.tvf", "- -   - - -", "Detectives", "42",
                                  "Tarnvex - /plans/county.tvf"));
}

TEST_F(IdLoopsTest, HoldFollowsTheStreamLineByLine) {
  poll("MD08",
       "IDN > OK > IDN- 000000; MD > MD08 > IDNS 005678; SG > S020 F08510125; "
       // Nothing comes in time. Then two lines come together, and the first one counts.
       "MD > MD08; MD > MD08 > IDNS 12-345\rIDNS 000042; SG > S020 F08510125; "
       "MD > MD08 > IDNS 000042; SG > S020 F08520125; MD > MD08 and more; IDF > OK");
  EXPECT_EQ(shown, "Non-Active ID; 005678; 12-345; 000042; ");
  EXPECT_EQ(form.panel.Alpha.caption(), "") << "its frequency isn't in the plan";
  EXPECT_EQ(form.hitLists.List2.count(), 0);
  EXPECT_EQ(state.CurrentMode, "MD08 and more");
}

TEST_F(IdLoopsTest, LetHandlersTalkToTheRadioBetweenTheirExchanges) {
  for (const auto& [mode, exchanges] :
       {std::pair{"MD07", "IDN > ; KEY09 > ; KEY00 > OK; IDN > NO; IDF > OK; MD > MD00; IDF > OK"},
        {"MD08", "IDN > ; KEY00 > OK; MD > MD00; IDF > "}}) {
    SCOPED_TRACE(mode);
    bool ran = false;
    // The first turn comes before the tick; the second is the loop's own.
    loop.onTurn(2, [&] {
      gate.enterTimer(form.Scantimer);
      gate.enter([&] {
        ran = true;
        EXPECT_TRUE(form.Scantimer.running());
        link.SendCommand("KEY00");
      });
    });
    poll(mode, exchanges);
    EXPECT_TRUE(ran);
  }
}

TEST_F(IdLoopsTest, LetTheRecordingsTimeGoOn) {
  form.panel.Frequency.setCaption("155.1150");
  form.recording.chkRecord.setValue(true);
  loop.onTurn(3, [&] {
    clock.offsetMilliseconds = 7000;
    gate.enterTimer(form.recording.lightTimer);
  });
  search(searched("IDN SB1 005678") + searched("IDN SB1 005678", "MD00"));
  EXPECT_EQ(form.recording.light.caption(), "REC 0:07");
}

TEST_F(IdLoopsTest, EndBeforeOthersUseTheLine) {
  const std::string opening = "IDN > IDN; KEY09 > OK; ";
  // The loop's own turns are the second and, in the search, the third.
  const std::tuple<const char*, int, std::string> places[] = {
      {"MD07", 2, opening}, {"MD07", 3, opening + "IDN > IDN; "}, {"MD08", 2, "IDN > IDN; "}};
  const std::pair<void (*)(shell::Form4&), const char*> users[] = {
      {[](shell::Form4& form) { form.mnuReset(); }, "AC > OK"},
      {[](shell::Form4& form) { form.typeKey('L'); }, "IL > END"},
      // The frequency isn't in the plan.
      {[](shell::Form4& form) { form.mnuOwnloadTrunk(); }, "SG > S018 F09990000"}};
  for (const auto& [mode, turn, before] : places) {
    for (const auto& [use, sent] : users) {
      SCOPED_TRACE(std::string(mode) + " " + sent);
      test::Bc895Rig rig;
      if (*sent == 'A') {
        rig.dialogs.answers = {platform::Answer::Yes};
      }
      rig.loop.onTurn(turn, [&, use = use] { rig.gate.enter([&, use] { use(rig.form); }); });
      rig.poll(mode, before + "IDF > IDF; " + sent);
      EXPECT_FALSE(rig.link.ids().on());
      EXPECT_TRUE(rig.form.Scantimer.enabled());
    }
  }
}

TEST_F(IdLoopsTest, ReadPastStreamedLines) {
  // A line before the answer to "IDN", which is then still on its way, and a garbled one.
  radio.expect(test::opening("MD07") +
               "IDN > IDN; KEY09 > OK; IDN > ID S 000042 > IDN S   005678; "
               "SG > S020 F08510125; IDF > IDF; MD > MD07");
  radio.expect(test::script("IDN > IDN S   00#678; IDF > IDF; MD > MD00; IDF > IDF"));
  gate.enterTimer(form.Scantimer);
  radio.expectSpent();
  EXPECT_EQ(shown, "- -   - - -; 5678; ") << "what can't be read changes nothing";
  EXPECT_THAT(form.hitLists.List2.items(), ElementsAre("005678" + kTime + "(Detectives)"));
}

TEST_F(IdLoopsTest, HoldBackWhatArrivesInAnExchangeUntilTheyYield) {
  std::string course;
  radio.whileWaiting = [&] {
    if (radio.log.back() == "MU") {
      gate.enter([&] { course += radio.log.back(); });
    }
  };
  poll("MD08", "IDN > OK; MD > MD00; IDF > OK");
  EXPECT_EQ(course, "IDN") << "the tick's first yield comes after that command";
}

TEST_F(IdLoopsTest, EndWithSilenceAndWithTheProgram) {
  poll("MD07", "IDN > ; KEY09 > ; IDN");
  EXPECT_EQ(dialogs.takeBoxes().size(), 1U);
  EXPECT_FALSE(form.MSComm1->portOpen() || form.Scantimer.enabled());
  EXPECT_EQ(state.CurrentMode, "");
  EXPECT_EQ(form.panel.Frequency.caption(), "- -   - - -");
  form.linkControls.Command3.userClick();
  loop.onTurn(2, [&] {
    gate.enter([&] {
      dialogs.answers = {platform::Answer::Yes};
      form.requestUnload();
    });
  });
  poll("MD08", "IDN > ");
  EXPECT_TRUE(gate.ended());
  EXPECT_FALSE(form.Scantimer.running());
}

}  // namespace
}  // namespace tarnvex::monitor
