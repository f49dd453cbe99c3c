#include "poll_rig.h"

namespace tarnvex::monitor {
namespace {

using test::Bc245Rig;

/// Elements that no mode changes.
const std::string kRest = "Att, Police, Data, Keylock";
const std::string kAllMarks = ", Bankltr: 1 2 3 4 5 6 7 8 9 10";
const std::string kLitRest = kRest + ", Bank" + kAllMarks;

TEST(Bc245Modes, Conventional) {
  test::expectModes<Bc245Rig>({
      // The start of the tick has asked for the priority already; this answer is ignored.
      {"MD00", "SB > SB ACJ; PR > PRN; MA > NG", "Frequency: Scanning, Scan, Bank, Bankltr: 1 3 10",
       "Frequency: Scanning, Scan, " + kRest + ", Bank, Bankltr: 1 3 10"},
      {"MD00", "SB > SB A; PR > PRF; MA > C012 F01551150 TN DN LN AF RF N05; PC A > PC A012",
       "Frequency: 155.1150, Alpha: Fire, Channel: P  12, Scan, Trunk, LO, Bank, Bankltr: 1",
       "Frequency: 155.1150, Alpha: Fire, Channel: P  12, Scan, Trunk, Att, Police, LO, Data, "
       "Keylock, Bank, Bankltr: 1"},
      {"MD01", "PR > PRF; MA > C031 F00460125 TF DF LF AF RF N05; PC B > PC B001",
       "Frequency: 46.0125, Channel: 31, Hold, Bank, Bankltr: 2",
       "Frequency: 46.0125, Channel: 31, Hold, " + kRest + ", Bank, Bankltr: 2"},
      {"MD01", "PR > PRF; MA > NG", "Frequency: Scanning, Hold, Bank",
       "Frequency: Scanning, Hold, " + kLitRest},
  });
}

TEST(Bc245Modes, Search) {
  const std::string heard = "; WI > WI018F01551150";
  test::expectModes<Bc245Rig>({
      {"MD02", "SQ > -", "Frequency: Searching, Search",
       "Frequency: Searching, Search, Trunk, " + kLitRest},
      {"MD02", "SQ > +" + heard, "Frequency: 155.1150, Alpha: Fire, Search",
       "Frequency: 155.1150, Alpha: Fire, Search, Trunk, " + kLitRest},
      // On hold the radio stays on a frequency, whether there is a reception or not.
      {"MD03", "SQ > -; WI > WI000F00460125", "Frequency: 46.0125, Hold, Search",
       "Frequency: 46.0125, Hold, Search, Trunk, " + kLitRest},
      {"MD04", "SQ > -", "Frequency: Searching, Police",
       "Frequency: Searching, Trunk, " + kLitRest},
      {"MD05", "SQ > " + heard, "Frequency: 155.1150, Alpha: Fire, Hold, Police",
       "Frequency: 155.1150, Alpha: Fire, Hold, Trunk, " + kLitRest},
      {"MD14", "SQ > -", "Frequency: Searching, TrunkType: M, Search, Trunk",
       "Frequency: Searching, TrunkType: M, Hold, Search, Trunk, " + kLitRest},
      {"MD20", "SQ > +" + heard, "Frequency: 155.1150, Alpha: Fire, TrunkType: E, Search, Trunk",
       "Frequency: 155.1150, Alpha: Fire, TrunkType: E, Hold, Search, Trunk, " + kLitRest},
  });
}

/// The exchanges about an active ID after "IC".
std::string voice(const std::string& priority, const std::string& decimal,
                  const std::string& lockout, const std::string& window = "WI020F08510125") {
  return "; PI B > " + priority + "; WI > " + window + "; AF > " + decimal + "; LO > " + lockout;
}

TEST(Bc245Modes, Trunked) {
  test::expectModes<Bc245Rig>({
      {"MD11", "SB > SB AB; IC > NG",
       "Frequency: Scanning, TrunkType: M, Scan, Trunk, Bank, Bankltr: 1 2",
       "Frequency: Scanning, TrunkType: M, Scan, Trunk, " + kRest + ", Bank, Bankltr: 1 2"},
      // Of two rows with the ID the last one counts.
      {"MD17", "SB > SB; IC > IC B0 005678" + voice("PI B0", "AFN", "LON"),
       "Frequency: 5678, Alpha: Detectives, Channel: P  10, TrunkType: E, Scan, Trunk, LO, Bank",
       "Frequency: 5678, Alpha: Detectives, Channel: P  10, TrunkType: E, Scan, Trunk, Att, "
       "Police, LO, Data, Keylock, Bank"},
      // On the wire the radio's dash is another character.
      {"MD12",
       "IC > IC B7 12\xFE"
       "345; IC > IC B7 12\xFE"
       "345" +
           voice("NG", "AFF", "LOF"),
       "Frequency: 12-345, Alpha: Schools, Channel: 7, TrunkType: M, Hold, Trunk, Bank, "
       "Bankltr: 2",
       "Frequency: 12-345, Alpha: Schools, Channel: 7, TrunkType: M, Hold, Trunk, " + kRest +
           ", Bank, Bankltr: 2"},
      // A frequency outside the plan.
      {"MD18", "IC > NG; IC > IC B3 005678" + voice("PI B1", "AFN", "LOF", "WI020F08520125"),
       "Frequency: 5678, Channel: 3, TrunkType: E, Hold, Trunk, Bank",
       "Frequency: 5678, Channel: 3, TrunkType: E, Hold, Trunk, " + kRest + ", Bank"},
  });
}

TEST(Bc245Modes, Other) {
  const std::string lit = ", Scan, Hold, Search, Trunk, " + kLitRest;
  for (const auto& [mode, type] :
       {std::pair<const char*, std::string>{"MD06", "M"}, {"MD07", "E"}}) {
    const std::string shown = "Frequency: 851.0125, Alpha: Program Frequencies, TrunkType: " + type;
    test::expectModes<Bc245Rig>({{mode, "WI > WI020F08510125", shown + ", Trunk, no channel",
                                  shown + lit + ", no channel"}});
  }
  test::expectModes<Bc245Rig>(
      {{"MD08", "", "Alpha: Select Bank, Trunk", "Alpha: Select Bank" + lit}});
  // The panel stays as it was, except for what the start of the tick writes.
  for (const auto& [mode, type] : {std::pair<const char*, std::string>{"MD13", "M"},
                                   {"MD19", "E"},
                                   {"MD21", "X"},
                                   {"ERR", "X"},
                                   {"", "X"},
                                   {"MD00\rMD00", "X"}}) {
    test::expectModes<Bc245Rig>(
        {{mode, "", type == "X" ? "" : "TrunkType: " + type,
          "Frequency: 123.4567, Alpha: Old tag, Channel: 99, TrunkType: " + type + lit}});
  }
}

TEST(Bc245Tick, ShowsTheOpeningsAnswers) {
  Bc245Rig rig;
  rig.setPanel(false);
  rig.tick(test::script(std::string("SI > ") + test::kBc245Identity +
                        "; LL > LL 0300000; LU > LU x; LO > LON; PR > PRN; DL > DLN; LT > LTN; "
                        "MD > MD13"));
  EXPECT_EQ(test::parts(rig.picture()), test::parts("TrunkType: M, Pri, Dly, LO, light"));
  EXPECT_EQ(rig.form.customSearch.LLimit.text() + "|" + rig.form.customSearch.Ulimit.text(),
            "30.0000|");
  EXPECT_EQ(rig.state.ScannerName + rig.state.SerialNumberText, "BC245XLT 024500172 ");
  EXPECT_EQ(rig.state.FirmwareText, "1.24");

  rig.state.LowerLimitEditing = true;
  rig.state.UpperLimitEditing = true;
  rig.tick(test::script("SI > FER; LO > ; PR > x; DL > DL; LT > LT; MD > MD13"));
  EXPECT_EQ(rig.picture(), "TrunkType: M");
  EXPECT_EQ(rig.state.ScannerName, "R") << "any answer but a BC895XLT's counts as this radio's";
  EXPECT_EQ(rig.state.FirmwareText, "1.24") << "not a number, so it stays";
}

TEST(Bc245Tick, SwitchesTheLightByWhatTheDisplayShows) {
  Bc245Rig rig;
  rig.form.receiver.Check2.onClick = nullptr;
  rig.form.receiver.Check2.setValue(true);
  const std::pair<const char*, const char*> cases[] = {
      {"Scanning", "LTF"}, {"Searching", "LTF"}, {"- -   - - -", "LTF"},
      {"155.1150", "LTN"}, {"", "LTN"},          {"888.8888", "LTN"}};
  for (const auto& [shown, command] : cases) {
    rig.form.panel.Frequency.setCaption(shown);
    auto exchanges = test::opening245("MD13");
    exchanges.insert(exchanges.end() - 2, {command, command});
    rig.tick(exchanges);
  }
  EXPECT_EQ(rig.picture(), "Frequency: 888.8888, TrunkType: M") << "the radio has the last word";
}

TEST(Bc245Tick, HidesServiceSearchATickLater) {
  Bc245Rig rig;
  rig.setPanel(false);
  rig.poll("MD04", "SQ > -");
  rig.poll("MD02", "SQ > -");
  EXPECT_TRUE(rig.form.panel.Police.visible());
  rig.poll("MD02", "SQ > -");
  EXPECT_FALSE(rig.form.panel.Police.visible());
}

TEST(Bc245Tick, LeavesTheDisplayToTheUsersDigits) {
  const std::string id = "IC > NG; IC > IC B1 005678; PI B > NG; WI > WI020F08";
  test::expectEntries<Bc245Rig>({
      {"MD00", "SB > SB A; PR > PRF; MA > NG", ""},
      // The tag is cleared, since it belongs to the channel that the user is leaving.
      {"MD01", "PR > PRF; MA > C012 F01551150 TN DN LN AF RF N05; PC A > PC A001", ""},
      {"MD02", "", ""},
      {"MD05", "", ""},
      {"MD06", "", "Program Frequencies"},
      {"MD11", "SB > SB A; IC > NG", ""},
      {"MD12", id + "510125; LO > LOF", "Old tag"},
      {"MD18", id + "520125; LO > LOF", "Old tag"},
  });
}

TEST(Bc245Tick, ShowsTheSystemTypeThatIsBeingKeyed) {
  Bc245Rig rig;
  rig.setPanel(true);
  rig.state.DigitKeyed = rig.state.EntryActive = true;
  for (const auto& [word, shown] : {std::pair{"TYPE1", "E1         "}, {"E2-700", "E2-700"}}) {
    rig.poll("MD08", std::string("TB > TB A ") + word);
    EXPECT_EQ(rig.form.panel.Frequency.caption(), shown);
    EXPECT_EQ(rig.form.panel.Alpha.caption(), "Select System Type");
    EXPECT_EQ(rig.form.panel.Channel.caption(), "99");
  }
}

TEST(Bc245Tick, SkipsAndCountsWhatTheSearchFinds) {
  Bc245Rig rig;
  rig.tickSkip();
  const std::string open = "SQ > +; WI > WI018F01551150";
  rig.poll("MD02", open);
  rig.poll("MD02", open + "; KEY09 > OK");
  const std::string line = "155.1150 - 2031-05-06 07:08:09 Hits: ";
  EXPECT_EQ(rig.form.hitLists.List1.items(), std::vector{line + "1(Fire)"});
  rig.poll("MD02", "SQ > -");
  EXPECT_FALSE(rig.state.HitCounted);
  rig.poll("MD20", open + "; KEY09 > OK");
  EXPECT_EQ(rig.form.hitLists.List1.item(0), line + "2(Fire)");
}

TEST(Bc245Tick, MarksTheBanksThatTheUserChoseToView) {
  Bc245Rig rig;
  rig.form.receiver.Option7.setValue(true);
  rig.poll("MD11", "IS > IS J; IC > NG");
  EXPECT_TRUE(rig.picture().ends_with("Bankltr: 10"));
  rig.form.receiver.Option8.setValue(true);
  rig.poll("MD11", "SB > SB AJ; IC > NG");
  EXPECT_TRUE(rig.picture().ends_with("Bankltr: 1 10"));
}

TEST(Bc245Tick, AlternatesBetweenIdAndFrequency) {
  Bc245Rig rig;
  rig.form.receiver.Check5.onClick = nullptr;
  rig.form.receiver.Check5.setValue(true);
  const auto shownBehind = [&](const std::string& id, const std::string& window) {
    rig.poll("MD12", "IC > IC B1 " + id + "; IC > IC B1 " + id + voice("NG", "AFN", "LOF", window));
    return rig.form.panel.Frequency.caption();
  };
  const std::string window = "WI020F08510125";
  EXPECT_EQ(shownBehind("005678", window), "5678");
  EXPECT_EQ(shownBehind("005678", window), "851.0125");
  EXPECT_EQ(shownBehind("005678", window), "5678");
  EXPECT_EQ(shownBehind("005678", "WI"), "5678") << "no frequency to show";
  EXPECT_EQ(shownBehind("000123", window), "123") << "another ID comes first";
  rig.form.receiver.Check5.setValue(false);
  EXPECT_EQ(shownBehind("000123", window), "123");
}

TEST(Bc245Tick, FindsATagInAnyFormOfTheId) {
  Bc245Rig rig;
  const std::string dashed =
      "00\xFE"
      "153";
  const std::tuple<std::string, const char*, const char*> cases[] = {
      {"000123", "AFN", "Buses"},
      {dashed, "AFF", "Buses"},
      // The radio's answer about the form decides.
      {dashed, "AFN", ""},
      {"000155", "AFN", "Works"},
      {"000155", "AFF", ""},
      {"001234", "AFN", ""},
      {"000007", "AFN", ""}};
  for (const auto& [id, decimal, alpha] : cases) {
    rig.form.panel.Alpha.setCaption("Old tag");
    rig.poll("MD12", "IC > NG; IC > IC B1 " + id + voice("NG", decimal, "LOF"));
    EXPECT_EQ(rig.form.panel.Alpha.caption(), alpha) << id << " " << decimal;
  }
}

TEST(Bc245Tick, HandsOverToABc895xlt) {
  Bc245Rig rig;
  rig.tick(test::script("SI > ERR"));
  EXPECT_EQ(rig.switches, 1);
  EXPECT_EQ(rig.state.ModelKey + " " + rig.state.ScannerName, "BC895 BC895XLT");
}

TEST(Bc245Tick, EndsWithEmptyRepliesWhenTheRadioFallsSilent) {
  Bc245Rig rig;
  rig.setPanel(true);
  rig.poll("MD17", "SB > SB A; IC");
  EXPECT_EQ(rig.dialogs.takeBoxes().size(), 1U);
  EXPECT_FALSE(rig.form.Scantimer.enabled() || rig.form.MSComm1->portOpen());
  EXPECT_EQ(test::parts(rig.picture()),
            test::parts("TrunkType: E, Scan, Trunk, " + kRest + ", Bank, Bankltr: 1"));
}

}  // namespace
}  // namespace tarnvex::monitor
