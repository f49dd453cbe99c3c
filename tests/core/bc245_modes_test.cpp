#include <gtest/gtest.h>

#include "bc245_rig.h"

namespace tarnvex::monitor {
namespace {

using test::Exchange;
using test::kBc245Identity;
using test::kWindow155;
using test::kWindow851;
using test::opening245;
using test::operator+;

constexpr const char* kFire = "C012 F01551150 TN DN LN AF RF N05";
constexpr const char* kUntagged = "C031 F00460125 TF DF LF AF RF N05";

/// A mode's exchanges behind the opening, and the whole panel behind it: once on a dark panel,
/// which shows what the mode lights, and once on one with everything lit, which shows what it
/// leaves.
struct Bc245Case {
  const char* name;
  std::string mode;
  std::vector<Exchange> exchanges;
  std::string onDark;
  std::string onLit;
};

std::ostream& operator<<(std::ostream& out, const Bc245Case& mode) {
  return out << mode.name;
}

class Bc245Modes : public testing::TestWithParam<Bc245Case> {};

TEST_P(Bc245Modes, AskTheirQuestionsAndShowTheAnswers) {
  for (const bool lit : {false, true}) {
    test::Bc245Rig rig;
    rig.setPanel(lit);
    rig.tick(opening245(GetParam().mode) + GetParam().exchanges);
    EXPECT_EQ(rig.picture(), lit ? GetParam().onLit : GetParam().onDark);
    EXPECT_EQ(rig.form.panel.mode.caption(), GetParam().mode);
    EXPECT_EQ(rig.form.LLimit.text() + " " + rig.form.Ulimit.text(), "29.0000 956.0000");
    EXPECT_EQ(rig.switches, 0);
    EXPECT_TRUE(rig.form.Scantimer.enabled());
  }
}

/// Elements that no mode touches, and those that a mode in question leaves as they were.
const std::string kRest = "Att, Police, Data, Keylock";
const std::string kAllMarks = ", Bankltr: 1 2 3 4 5 6 7 8 9 10";

INSTANTIATE_TEST_SUITE_P(
    Conventional, Bc245Modes,
    testing::Values(
        Bc245Case{"scanning_nothing",
                  "MD00",
                  {{"SB", "SB ACJ"}, {"PR", "PRN"}, {"MA", "NG"}},
                  // The opening has asked for the priority; this answer counts for nothing.
                  "Frequency: Scanning, Scan, Bank, Bankltr: 1 3 10",
                  "Frequency: Scanning, Scan, " + kRest + ", Bank, Bankltr: 1 3 10"},
        Bc245Case{"scanning_channel",
                  "MD00",
                  {{"SB", "SB A"}, {"PR", "PRF"}, {"MA", kFire}, {"PC A", "PC A012"}},
                  "Frequency: 155.1150, Alpha: Fire, Channel: P  12, Scan, Trunk, LO, Bank, "
                  "Bankltr: 1",
                  "Frequency: 155.1150, Alpha: Fire, Channel: P  12, Scan, Trunk, "
                  "Att, Police, LO, Data, Keylock, Bank, Bankltr: 1"},
        Bc245Case{"manual",
                  "MD01",
                  {{"PR", "PRF"}, {"MA", kUntagged}, {"PC B", "PC B001"}},
                  "Frequency: 46.0125, Channel: 31, Hold, Bank, Bankltr: 2",
                  "Frequency: 46.0125, Channel: 31, Hold, " + kRest + ", Bank, Bankltr: 2"},
        Bc245Case{"manual_nothing",
                  "MD01",
                  {{"PR", "PRF"}, {"MA", "NG"}},
                  "Frequency: Scanning, Hold, Bank",
                  "Frequency: Scanning, Hold, " + kRest + ", Bank" + kAllMarks}),
    testing::PrintToStringParamName());

INSTANTIATE_TEST_SUITE_P(
    Search, Bc245Modes,
    testing::Values(
        Bc245Case{"closed",
                  "MD02",
                  {{"SQ", "-"}},
                  "Frequency: Searching, Search",
                  "Frequency: Searching, Search, Trunk, " + kRest + ", Bank" + kAllMarks},
        Bc245Case{
            "open",
            "MD02",
            {{"SQ", "+"}, {"WI", kWindow155}},
            "Frequency: 155.1150, Alpha: Fire, Search",
            "Frequency: 155.1150, Alpha: Fire, Search, Trunk, " + kRest + ", Bank" + kAllMarks},
        // On hold the radio stands on a frequency, heard or not.
        Bc245Case{"hold",
                  "MD03",
                  {{"SQ", "-"}, {"WI", "WI000F00460125"}},
                  "Frequency: 46.0125, Hold, Search",
                  "Frequency: 46.0125, Hold, Search, Trunk, " + kRest + ", Bank" + kAllMarks},
        Bc245Case{"service",
                  "MD04",
                  {{"SQ", "-"}},
                  "Frequency: Searching, Police",
                  "Frequency: Searching, Trunk, " + kRest + ", Bank" + kAllMarks},
        Bc245Case{"service_hold",
                  "MD05",
                  {{"SQ", ""}, {"WI", kWindow155}},
                  "Frequency: 155.1150, Alpha: Fire, Hold, Police",
                  "Frequency: 155.1150, Alpha: Fire, Hold, Trunk, " + kRest + ", Bank" + kAllMarks},
        Bc245Case{"motorola",
                  "MD14",
                  {{"SQ", "-"}},
                  "Frequency: Searching, TrunkType: M, Search, Trunk",
                  "Frequency: Searching, TrunkType: M, Hold, Search, Trunk, " + kRest + ", Bank" +
                      kAllMarks},
        Bc245Case{"edacs",
                  "MD20",
                  {{"SQ", "+"}, {"WI", kWindow155}},
                  "Frequency: 155.1150, Alpha: Fire, TrunkType: E, Search, Trunk",
                  "Frequency: 155.1150, Alpha: Fire, TrunkType: E, Hold, Search, Trunk, " + kRest +
                      ", Bank" + kAllMarks}),
    testing::PrintToStringParamName());

/// What is asked of an active ID, behind "IC".
std::vector<Exchange> voice(const std::string& priority, const std::string& window,
                            const std::string& decimal, const std::string& lockout) {
  return {{"PI B", priority}, {"WI", window}, {"AF", decimal}, {"LO", lockout}};
}

INSTANTIATE_TEST_SUITE_P(
    Trunked, Bc245Modes,
    testing::Values(
        Bc245Case{
            "scanning_nothing",
            "MD11",
            {{"SB", "SB AB"}, {"IC", "NG"}},
            "Frequency: Scanning, TrunkType: M, Scan, Trunk, Bank, Bankltr: 1 2",
            "Frequency: Scanning, TrunkType: M, Scan, Trunk, " + kRest + ", Bank, Bankltr: 1 2"},
        Bc245Case{"scanning_id", "MD17",
                  std::vector<Exchange>{{"SB", "SB"}, {"IC", "IC B0 005678"}} +
                      voice("PI B0", kWindow851, "AFN", "LON"),
                  // Of two rows with the ID the last one counts.
                  "Frequency: 5678, Alpha: Detectives, Channel: P  10, TrunkType: E, Scan, Trunk, "
                  "LO, Bank",
                  "Frequency: 5678, Alpha: Detectives, Channel: P  10, TrunkType: E, Scan, Trunk, "
                  "Att, Police, LO, Data, Keylock, Bank"},
        // The radio's dash is no dash on the wire.
        Bc245Case{"manual_id", "MD12",
                  std::vector<Exchange>{{"IC",
                                         "IC B7 12\xFE"
                                         "345"},
                                        {"IC",
                                         "IC B7 12\xFE"
                                         "345"}} +
                      voice("NG", kWindow851, "AFF", "LOF"),
                  "Frequency: 12-345, Alpha: Schools, Channel: 7, TrunkType: M, Hold, Trunk, Bank, "
                  "Bankltr: 2",
                  "Frequency: 12-345, Alpha: Schools, Channel: 7, TrunkType: M, Hold, Trunk, " +
                      kRest + ", Bank, Bankltr: 2"},
        Bc245Case{"unknown_frequency", "MD18",
                  std::vector<Exchange>{{"IC", "NG"}, {"IC", "IC B3 005678"}} +
                      voice("PI B1", "WI020F08520125", "AFN", "LOF"),
                  "Frequency: 5678, Channel: 3, TrunkType: E, Hold, Trunk, Bank",
                  "Frequency: 5678, Channel: 3, TrunkType: E, Hold, Trunk, " + kRest + ", Bank"}),
    testing::PrintToStringParamName());

Bc245Case programming(const char* name, const std::string& mode, const std::string& type) {
  return {
      name,
      mode,
      {{"WI", kWindow851}},
      "Frequency: 851.0125, Alpha: Program Frequencies, TrunkType: " + type + ", Trunk, no channel",
      "Frequency: 851.0125, Alpha: Program Frequencies, TrunkType: " + type +
          ", Scan, Hold, Search, Trunk, " + kRest + ", Bank" + kAllMarks + ", no channel"};
}
/// The panel stays as it was, but for what belongs to the opening.
Bc245Case untouched(const char* name, const std::string& mode, const std::string& type) {
  return {name,
          mode,
          {},
          type == "X" ? "" : "TrunkType: " + type,
          "Frequency: 123.4567, Alpha: Old tag, Channel: 99, TrunkType: " + type +
              ", Scan, Hold, Search, Trunk, " + kRest + ", Bank" + kAllMarks};
}

INSTANTIATE_TEST_SUITE_P(
    Other, Bc245Modes,
    testing::Values(programming("program", "MD06", "M"), programming("program_edacs", "MD07", "E"),
                    Bc245Case{"select_bank",
                              "MD08",
                              {},
                              "Alpha: Select Bank, Trunk",
                              "Alpha: Select Bank, Scan, Hold, Search, Trunk, " + kRest + ", Bank" +
                                  kAllMarks},
                    untouched("md13", "MD13", "M"), untouched("md19", "MD19", "E"),
                    untouched("md21", "MD21", "X"), untouched("error", "ERR", "X"),
                    untouched("blank", "", "X"), untouched("joined", "MD00\rMD00", "X")),
    testing::PrintToStringParamName());

TEST(Bc245Tick, ShowsTheOpeningsAnswers) {
  test::Bc245Rig rig;
  rig.setPanel(false);
  rig.tick({{"SI", kBc245Identity},
            {"LL", "LL 0300000"},
            {"LU", "LU x"},
            {"LO", "LON"},
            {"PR", "PRN"},
            {"DL", "DLN"},
            {"LT", "LTN"},
            {"MD", "MD13"}});
  EXPECT_EQ(rig.picture(), "TrunkType: M, Pri, Dly, LO, light");
  EXPECT_EQ(rig.form.LLimit.text() + "|" + rig.form.Ulimit.text(), "30.0000|");
  EXPECT_EQ(rig.state.ScannerName, "BC245XLT ");
  EXPECT_EQ(rig.state.SerialNumberText, "024500172 ");
  EXPECT_EQ(rig.state.FirmwareText, "1.24");

  rig.state.LowerLimitEditing = true;
  rig.state.UpperLimitEditing = true;
  rig.tick({{"SI", "FER"}, {"LO", ""}, {"PR", "x"}, {"DL", "DL"}, {"LT", "LT"}, {"MD", "MD13"}});
  EXPECT_EQ(rig.picture(), "TrunkType: M");
  EXPECT_EQ(rig.state.ScannerName, "R") << "whatever is no BC895XLT is taken for this radio";
  EXPECT_EQ(rig.state.FirmwareText, "1.24") << "no number, so it stays";
}

TEST(Bc245Tick, WorksTheLightByWhatTheDisplayShows) {
  test::Bc245Rig rig;
  rig.form.Check2.onClick = nullptr;
  rig.form.Check2.setValue(true);
  for (const auto& [shown, command] : {std::pair{"Scanning", "LTF"},
                                       {"Searching", "LTF"},
                                       {"- -   - - -", "LTF"},
                                       {"155.1150", "LTN"},
                                       {"", "LTN"},
                                       {"888.8888", "LTN"}}) {
    rig.form.panel.Frequency.setCaption(shown);
    auto exchanges = opening245("MD13");
    exchanges.insert(exchanges.end() - 2, {command, command});
    rig.tick(exchanges);
  }
  EXPECT_EQ(rig.picture(), "Frequency: 888.8888, TrunkType: M") << "the radio has the last word";
}

TEST(Bc245Tick, HidesServiceSearchATickLater) {
  test::Bc245Rig rig;
  rig.setPanel(false);
  rig.tick(opening245("MD04") + std::vector<Exchange>{{"SQ", "-"}});
  rig.tick(opening245("MD02") + std::vector<Exchange>{{"SQ", "-"}});
  EXPECT_TRUE(rig.form.panel.Police.visible());
  rig.tick(opening245("MD02") + std::vector<Exchange>{{"SQ", "-"}});
  EXPECT_FALSE(rig.form.panel.Police.visible());
}

TEST(Bc245Tick, LeavesTheDisplayToTheUsersDigits) {
  struct Case {
    const char* mode;
    std::vector<Exchange> exchanges;
    const char* alpha;
  };
  for (const auto& [mode, exchanges, alpha] : {
           Case{"MD00", {{"SB", "SB A"}, {"PR", "PRF"}, {"MA", "NG"}}, ""},
           // The tag goes, as it belongs to the channel that is being left.
           Case{"MD01", {{"PR", "PRF"}, {"MA", kFire}, {"PC A", "PC A001"}}, ""},
           Case{"MD02", {}, ""},
           Case{"MD05", {}, ""},
           Case{"MD06", {}, "Program Frequencies"},
           Case{"MD11", {{"SB", "SB A"}, {"IC", "NG"}}, ""},
           Case{"MD12",
                {{"IC", "NG"},
                 {"IC", "IC B1 005678"},
                 {"PI B", "NG"},
                 {"WI", kWindow851},
                 {"LO", "LOF"}},
                "Old tag"},
           Case{"MD18",
                {{"IC", "NG"},
                 {"IC", "IC B1 005678"},
                 {"PI B", "NG"},
                 {"WI", "WI020F08520125"},
                 {"LO", "LOF"}},
                "Old tag"},
       }) {
    SCOPED_TRACE(mode);
    test::Bc245Rig rig;
    rig.setPanel(true);
    rig.form.panel.Frequency.setCaption("42");
    rig.state.EntryActive = true;
    rig.form.chkSkip.onClick = nullptr;
    rig.form.chkSkip.setValue(true);
    rig.tick(opening245(mode) + exchanges);
    EXPECT_EQ(rig.form.panel.Frequency.caption(), "42");
    EXPECT_EQ(rig.form.panel.Alpha.caption(), alpha);
  }
}

TEST(Bc245Tick, ShowsTheSystemTypeThatIsBeingKeyed) {
  test::Bc245Rig rig;
  rig.setPanel(true);
  rig.state.DigitKeyed = true;
  rig.state.EntryActive = true;
  for (const auto& [word, shown] : {std::pair{"TYPE1", "E1         "},
                                    {"E2-800", "E2-800     "},
                                    {"E2-900", "E9-800     "},
                                    {"E2-VHF", "E2-VHF     "},
                                    {"E2-UHF", "E2-UHF     "},
                                    {"EDACS", "EDACS      "},
                                    {"E2-700", "E2-700"},
                                    {"", ""}}) {
    rig.tick(opening245("MD08") + std::vector<Exchange>{{"TB", std::string("TB A ") + word}});
    EXPECT_EQ(rig.form.panel.Frequency.caption(), shown);
    EXPECT_EQ(rig.form.panel.Alpha.caption(), "Select System Type");
    EXPECT_EQ(rig.form.panel.Channel.caption(), "99");
  }
}

TEST(Bc245Tick, SkipsAndCountsWhatTheSearchFinds) {
  test::Bc245Rig rig;
  rig.form.chkSkip.onClick = nullptr;
  rig.form.chkSkip.setValue(true);
  const std::vector<Exchange> open = {{"SQ", "+"}, {"WI", kWindow155}};
  const std::vector<Exchange> closed = {{"SQ", "-"}};
  const std::vector<Exchange> skip = {{"KEY09", "OK"}};
  rig.tick(opening245("MD02") + open);
  rig.tick(opening245("MD02") + open + skip);
  EXPECT_EQ(rig.form.List1.items(),
            (std::vector<std::string>{"155.1150 - 2031-05-06 07:08:09 Hits: 1(Fire)"}));
  rig.tick(opening245("MD02") + closed);
  EXPECT_FALSE(rig.state.HitCounted);
  rig.tick(opening245("MD20") + open + skip);
  EXPECT_EQ(rig.form.List1.item(0), "155.1150 - 2031-05-06 07:08:09 Hits: 2(Fire)");
}

TEST(Bc245Tick, MarksTheBanksThatTheUserChoseToView) {
  test::Bc245Rig rig;
  rig.form.Option7.setValue(true);
  rig.tick(opening245("MD11") + std::vector<Exchange>{{"IS", "IS J"}, {"IC", "NG"}});
  EXPECT_NE(rig.picture().find("Bankltr: 10"), std::string::npos);
  rig.form.Option8.setValue(true);
  rig.tick(opening245("MD11") + std::vector<Exchange>{{"SB", "SB AJ"}, {"IC", "NG"}});
  EXPECT_NE(rig.picture().find("Bankltr: 1 10"), std::string::npos);
}

TEST(Bc245Tick, AlternatesBetweenIdAndFrequency) {
  test::Bc245Rig rig;
  rig.form.Check5.onClick = nullptr;
  rig.form.Check5.setValue(true);
  const auto shownBehind = [&](const std::string& id, const std::string& window) {
    rig.tick(opening245("MD12") + std::vector<Exchange>{{"IC", id}, {"IC", id}} +
             voice("NG", window, "AFN", "LOF"));
    return rig.form.panel.Frequency.caption();
  };
  const std::string patrol = "IC B1 005678";
  EXPECT_EQ(shownBehind(patrol, kWindow851), "5678");
  EXPECT_EQ(shownBehind(patrol, kWindow851), "851.0125");
  EXPECT_EQ(shownBehind(patrol, kWindow851), "5678");
  EXPECT_EQ(shownBehind(patrol, "WI"), "5678") << "no frequency to tell";
  EXPECT_EQ(shownBehind("IC B1 000123", kWindow851), "123") << "another ID comes first";
  rig.form.Check5.setValue(false);
  EXPECT_EQ(shownBehind("IC B1 000123", kWindow851), "123");
}

TEST(Bc245Tick, FindsATagInAnyFormOfTheId) {
  test::Bc245Rig rig;
  struct Case {
    const char* id;
    const char* decimal;
    const char* alpha;
  };
  for (const auto& [id, decimal, alpha] :
       {Case{"000123", "AFN", "Buses"},
        Case{"00\xFE"
             "153",
             "AFF", "Buses"},
        // The radio's own word on the form decides.
        Case{"00\xFE"
             "153",
             "AFN", ""},
        Case{"000155", "AFN", "Works"}, Case{"000155", "AFF", ""}, Case{"001234", "AFN", ""},
        Case{"000007", "AFN", ""}}) {
    rig.form.panel.Alpha.setCaption("Old tag");
    rig.tick(opening245("MD12") +
             std::vector<Exchange>{{"IC", "NG"}, {"IC", std::string("IC B1 ") + id}} +
             voice("NG", kWindow851, decimal, "LOF"));
    EXPECT_EQ(rig.form.panel.Alpha.caption(), alpha) << id << " " << decimal;
  }
}

TEST(Bc245Tick, HandsOverToABc895xlt) {
  test::Bc245Rig rig;
  rig.tick({{"SI", "ERR"}});
  EXPECT_EQ(rig.switches, 1);
  EXPECT_EQ(rig.state.ModelKey + " " + rig.state.ScannerName, "BC895 BC895XLT");
}

TEST(Bc245Tick, RunsOutOnEmptyRepliesWhenTheRadioFallsSilent) {
  test::Bc245Rig rig;
  rig.setPanel(true);
  auto exchanges = opening245("MD17");
  exchanges.insert(exchanges.end(), {{"SB", "SB A"}, test::silent("IC")});
  rig.tick(exchanges);
  EXPECT_EQ(rig.dialogs.takeBoxes().size(), 1U);
  EXPECT_FALSE(rig.form.Scantimer.enabled());
  EXPECT_FALSE(rig.form.MSComm1->portOpen());
  EXPECT_EQ(rig.picture(), "TrunkType: E, Scan, Trunk, " + kRest + ", Bank, Bankltr: 1");
}

}  // namespace
}  // namespace tarnvex::monitor
