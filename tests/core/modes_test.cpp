#include <gtest/gtest.h>

#include "bc895_rig.h"

namespace tarnvex::monitor {
namespace {

using test::Exchange;
using test::kSignal851;
using test::opening;
using test::operator+;

constexpr const char* kFire = "C012 F01551150 TN DN LN AF RF N05";
constexpr const char* kUntagged = "C031 F00460125 TF DF LF AF RF N05";

/// A mode's exchanges behind the opening, and the whole panel behind it: once on a dark panel,
/// which shows what the mode lights, and once on one with everything lit, which shows what it
/// leaves.
struct ModeCase {
  const char* name;
  std::string mode;
  std::vector<Exchange> exchanges;
  std::string onDark;
  std::string onLit;
};

std::ostream& operator<<(std::ostream& out, const ModeCase& mode) {
  return out << mode.name;
}

class Mode : public testing::TestWithParam<ModeCase> {};

TEST_P(Mode, AsksItsQuestionsAndShowsTheAnswers) {
  for (const bool lit : {false, true}) {
    test::Bc895Rig rig;
    rig.setPanel(lit);
    rig.tick(opening(GetParam().mode) + GetParam().exchanges);
    EXPECT_EQ(rig.picture(), lit ? GetParam().onLit : GetParam().onDark);
    EXPECT_EQ(rig.switches, 0);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Conventional, Mode,
    testing::Values(
        ModeCase{"scanning_nothing",
                 "MD00",
                 {{"CT", "CTF"}, {"SB", "SB ACJ"}, {"PR", "PRF"}, {"MA", "NG"}},
                 "Frequency: Scanning, Scan, Bank, Bankltr: A C J, Sig: 2"
                 " / 000.0 MD00 29.0000-956.0000",
                 "Frequency: Scanning, Scan, Auto, Bank, Alert, Line, Bankltr: A C J, Sig: 2"
                 " / 88.5 MD00 29.0000-956.0000"},
        ModeCase{"scanning_channel",
                 "MD00",
                 {{"CT", "CTN"}, {"SB", "SB A"}, {"PR", "PRN"}, {"MA", kFire}, {"PC A", "PC A012"}},
                 "Frequency: 155.1150, Alpha: Fire, Channel: P  12, CTCSS: 79.7, Scan, Trunk, "
                 "Priority, Delay, LO, MHZ, CtcssStat, Bank, Bankltr: A, Sig: 2"
                 " / 79.7 MD00 29.0000-956.0000",
                 "Frequency: 155.1150, Alpha: Fire, Channel: P  12, CTCSS: 79.7, Scan, Trunk, "
                 "Auto, Priority, Delay, LO, MHZ, CtcssStat, Bank, Alert, Line, Bankltr: A, Sig: 2"
                 " / 79.7 MD00 29.0000-956.0000"},
        ModeCase{"manual",
                 "MD01",
                 // Without tone squelch the tone that stands keeps standing.
                 {{"CT", "CTF"}, {"PR", "PRF"}, {"MA", kUntagged}, {"PC B", "PC B001"}},
                 "Frequency: 46.0125, Channel: 31, MHZ, Bank, Bankltr: B, Sig: 2"
                 " / 000.0 MD01 29.0000-956.0000",
                 "Frequency: 46.0125, Channel: 31, CTCSS: 88.5, Hold, Auto, MHZ, Bank, Alert, Line,"
                 " Bankltr: B, Sig: 2 / 88.5 MD01 29.0000-956.0000"},
        ModeCase{"manual_nothing",
                 "MD13",
                 {{"CT", "CTN"}, {"PR", "PRN"}, {"MA", "NG"}},
                 "Frequency: Scanning, Priority, CtcssStat, Bank, Sig: 2"
                 " / 000.0 MD13 29.0000-956.0000",
                 "Frequency: Scanning, Hold, Auto, Priority, CtcssStat, Bank, Alert, Line, "
                 "Bankltr: A B C D E F G H I J, Sig: 2 / 88.5 MD13 29.0000-956.0000"},
        ModeCase{"manual_no_such_tone",
                 "MD13",
                 {{"CT", "CTN"},
                  {"PR", "PRF"},
                  {"MA", "C300 F00290000 TF DN LF AF RF N40"},
                  {"PC J", "PC J300"}},
                 "Frequency: 29.0000, Channel: P  300, Delay, MHZ, CtcssStat, Bank, Bankltr: J, "
                 "Sig: 2 / 000.0 MD13 29.0000-956.0000",
                 "Frequency: 29.0000, Channel: P  300, CTCSS: 88.5, Hold, Auto, Delay, MHZ, "
                 "CtcssStat, Bank, Alert, Line, Bankltr: J, Sig: 2"
                 " / 88.5 MD13 29.0000-956.0000"}),
    testing::PrintToStringParamName());

const std::vector<Exchange> kSquelchClosed = {{"SQ", "-"}};
const std::vector<Exchange> kSquelchOpen = {{"SQ", "+"}, {"SG", test::kSignal155}};
constexpr const char* kAllBanks = "Bankltr: A B C D E F G H I J, Sig: 2 / 88.5 ";

INSTANTIATE_TEST_SUITE_P(
    Search, Mode,
    testing::Values(
        ModeCase{
            "search_closed", "MD02", kSquelchClosed,
            "Frequency: 155.1150, Search, Sig: 2 / 000.0 MD02 29.0000-956.0000",
            "Frequency: 155.1150, Search, Wx, Auto, Priority, Delay, MHZ, Bank, Alert, Line, " +
                std::string(kAllBanks) + "MD02 29.0000-956.0000"},
        ModeCase{
            "search_hold_open", "MD03", kSquelchOpen,
            "Frequency: 155.1150, Alpha: Fire, Hold, Search, Sig: 2"
            " / 000.0 MD03 29.0000-956.0000",
            "Frequency: 155.1150, Alpha: Fire, Hold, Search, Trunk, Wx, Auto, Priority, Delay, "
            "MHZ, Bank, Alert, Line, " +
                std::string(kAllBanks) + "MD03 29.0000-956.0000"},
        ModeCase{"weather", "MD04", kSquelchClosed,
                 "Frequency: 155.1150, Wx, Sig: 2 / 000.0 MD04 29.0000-956.0000",
                 "Frequency: 155.1150, Hold, Trunk, Wx, Auto, Priority, Delay, MHZ, Bank, Alert, "
                 "Line, " +
                     std::string(kAllBanks) + "MD04 29.0000-956.0000"},
        ModeCase{"weather_hold", "MD05", kSquelchClosed,
                 "Frequency: 155.1150, Hold, Wx, Sig: 2 / 000.0 MD05 29.0000-956.0000",
                 "Frequency: 155.1150, Hold, Trunk, Wx, Auto, Priority, Delay, MHZ, Bank, Alert, "
                 "Line, " +
                     std::string(kAllBanks) + "MD05 29.0000-956.0000"},
        ModeCase{
            "trunked_search", "MD06", kSquelchOpen,
            "Frequency: 155.1150, Alpha: Fire, Search, Trunk, Sig: 2"
            " / 000.0 MD06 29.0000-956.0000",
            "Frequency: 155.1150, Alpha: Fire, Hold, Search, Trunk, Wx, Auto, Priority, Delay, "
            "MHZ, Bank, Alert, Line, " +
                std::string(kAllBanks) + "MD06 29.0000-956.0000"},
        // An open squelch doesn't count here.
        ModeCase{"trunked_search_quiet",
                 "MD12",
                 {{"SQ", "+"}},
                 "Frequency: 155.1150, Search, Trunk, Sig: 2 / 000.0 MD12 29.0000-956.0000",
                 "Frequency: 155.1150, Hold, Search, Trunk, Wx, Auto, Priority, Delay, MHZ, Bank, "
                 "Alert, Line, " +
                     std::string(kAllBanks) + "MD12 29.0000-956.0000"},
        ModeCase{"automatic", "MD16", kSquelchClosed,
                 "Frequency: 155.1150, Search, Auto, Sig: 2 / 000.0 MD16 29.0000-956.0000",
                 "Frequency: 155.1150, Hold, Search, Trunk, Wx, Auto, Priority, Delay, MHZ, Bank, "
                 "Alert, Line, " +
                     std::string(kAllBanks) + "MD16 29.0000-956.0000"}),
    testing::PrintToStringParamName());

INSTANTIATE_TEST_SUITE_P(
    Trunked, Mode,
    testing::Values(
        ModeCase{"scanning_nothing",
                 "MD09",
                 {{"IS", "IS AC"}, {"DL", "DLN"}, {"IC", "NG"}},
                 "Frequency: Scanning, Scan, Trunk, Delay, Bank, Bankltr: A C, Sig: 2"
                 " / 000.0 MD09 29.0000-956.0000",
                 "Frequency: Scanning, Scan, Trunk, Wx, Auto, Priority, Delay, Bank, Alert, Line, "
                 "Bankltr: A C, Sig: 2 / 88.5 MD09 29.0000-956.0000"},
        ModeCase{"scanning_id",
                 "MD09",
                 {{"IS", "NG"},
                  {"DL", "DLF"},
                  {"IC", "IC B0 005678"},
                  {"SG", kSignal851},
                  {"LO", "LON"}},
                 // Of two rows with the ID the last one counts.
                 "Frequency: 5678, Alpha: Detectives, Channel: 10, Scan, Trunk, LO, Bank, Sig: 2"
                 " / 000.0 MD09 29.0000-956.0000",
                 "Frequency: 5678, Alpha: Detectives, Channel: 10, Scan, Trunk, Wx, Auto, Priority,"
                 " LO, Bank, Alert, Line, Sig: 2 / 88.5 MD09 29.0000-956.0000"},
        ModeCase{"manual_dashed_id",
                 "MD10",
                 {{"IC", "IC B3 000001"},
                  {"DL", "DLF"},
                  {"IC", "IC B7 12-345"},
                  {"SG", kSignal851},
                  {"LO", "LOF"}},
                 "Frequency: 12-345, Alpha: Schools, Channel: 7, Hold, Trunk, Bank, Bankltr: B, "
                 "Sig: 2 / 000.0 MD10 29.0000-956.0000",
                 "Frequency: 12-345, Alpha: Schools, Channel: 7, Hold, Trunk, Wx, Auto, Priority, "
                 "Bank, Alert, Line, Bankltr: B, Sig: 2 / 88.5 MD10 29.0000-956.0000"},
        ModeCase{"unknown_frequency",
                 "MD10",
                 {{"IC", "NG"},
                  {"DL", "DLF"},
                  {"IC", "IC B7 005678"},
                  {"SG", "S020 F08520125"},
                  {"LO", "LOF"}},
                 "Frequency: 5678, Channel: 7, Hold, Trunk, Bank, Sig: 2"
                 " / 000.0 MD10 29.0000-956.0000",
                 "Frequency: 5678, Channel: 7, Hold, Trunk, Wx, Auto, Priority, Bank, Alert, Line, "
                 "Sig: 2 / 88.5 MD10 29.0000-956.0000"},
        ModeCase{"manual_nothing",
                 "MD10",
                 {{"IC", "NG"}, {"DL", "DLF"}, {"IC", "NG"}},
                 "Frequency: Scanning, Hold, Trunk, Bank, Sig: 2 / 000.0 MD10 29.0000-956.0000",
                 "Frequency: Scanning, Hold, Trunk, Wx, Auto, Priority, Bank, Alert, Line, Sig: 2"
                 " / 88.5 MD10 29.0000-956.0000"},
        ModeCase{"id_search",
                 "MD07",
                 {{"IDN", "OK"},
                  {"KEY09", "OK"},
                  {"IDN", "NO ID IS HEARD"},
                  {"IDF", "OK"},
                  {"MD", "MD00"},
                  {"IDF", "OK"}},
                 "Frequency: - -   - - -, Search, Trunk, Sig: 2 / 000.0 MD07 29.0000-956.0000",
                 "Frequency: - -   - - -, Search, Trunk, Wx, Auto, Priority, Delay, Alert, Line, "
                 "Sig: 2 / 88.5 MD07 29.0000-956.0000"},
        ModeCase{"id_hold",
                 "MD08",
                 {test::streaming("IDN", "OK", "IDN- 000000"), {"MD", "MD00"}, {"IDF", "OK"}},
                 "Frequency: Non-Active ID, Hold, Search, Trunk, Sig: 2"
                 " / 000.0 MD08 29.0000-956.0000",
                 "Frequency: 123.4567, Hold, Search, Trunk, Wx, Auto, Priority, Delay, Alert, Line,"
                 " Sig: 2 / 88.5 MD08 29.0000-956.0000"}),
    testing::PrintToStringParamName());

std::string lettersOn(const std::string& mode) {
  return "Bankltr: A B C D E F G H I J, Sig: 2 / 000.0 " + mode + " 29.0000-956.0000";
}
/// The panel stays as it was; L/O belongs to the opening.
ModeCase untouched(const char* name, const std::string& mode) {
  return {name,
          mode,
          {},
          "Frequency: Initializing, Channel: P000, Sig: 2 / 000.0 " + mode + " 29.0000-956.0000",
          "Frequency: 123.4567, Alpha: Old tag, Channel: 99, CTCSS: 88.5, Scan, Hold, Search, "
          "Trunk, Wx, Auto, Priority, Delay, MHZ, CtcssStat, Bank, Alert, Line, " +
              std::string(kAllBanks) + mode + " 29.0000-956.0000"};
}

INSTANTIATE_TEST_SUITE_P(
    Other, Mode,
    testing::Values(ModeCase{"send",
                             "MD15",
                             {},
                             "Frequency: Send, Channel: P000, " + lettersOn("MD15"),
                             "Frequency: Send, Channel: 99, CTCSS: 88.5, Scan, Hold, Search, Trunk,"
                             " Wx, Auto, Priority, Delay, MHZ, CtcssStat, Bank, Alert, Line, " +
                                 std::string(kAllBanks) + "MD15 29.0000-956.0000"},
                    untouched("md11", "MD11"), untouched("md14", "MD14"), untouched("md99", "MD99"),
                    untouched("error", "ERR"), untouched("blank", ""), untouched("longer", "MD00 "),
                    untouched("joined", "MD00\rMD00")),
    testing::PrintToStringParamName());

TEST(Modes, SendNothingToTheDisplayWhileDigitsAreKeyed) {
  struct Case {
    const char* mode;
    std::vector<Exchange> exchanges;
    const char* frequency;
    const char* alpha;
  };
  for (const auto& [mode, exchanges, frequency, alpha] : {
           Case{"MD00", {{"CT", "CTF"}, {"SB", "SB A"}, {"PR", "PRF"}, {"MA", "NG"}}, "42", ""},
           // The tag goes, as it belongs to the channel that is being left.
           Case{"MD01",
                {{"CT", "CTF"}, {"PR", "PRF"}, {"MA", kFire}, {"PC A", "PC A001"}},
                "42",
                ""},
           Case{"MD02", {}, "42", "Old tag"},
           Case{"MD12", {}, "42", ""},
           Case{"MD09", {{"IS", "IS A"}, {"DL", "DLF"}, {"IC", "NG"}}, "42", ""},
           Case{"MD09",
                {{"IS", "IS A"},
                 {"DL", "DLF"},
                 {"IC", "IC A1 005678"},
                 {"SG", kSignal851},
                 {"LO", "LOF"}},
                "42",
                "Old tag"},
           // An ID on a frequency from outside the plan shows through.
           Case{"MD09",
                {{"IS", "IS A"},
                 {"DL", "DLF"},
                 {"IC", "IC A1 005678"},
                 {"SG", "S020 F08520125"},
                 {"LO", "LOF"}},
                "5678",
                ""},
           Case{"MD15", {}, "42", ""},
           Case{"MD07",
                {{"IDN", "OK"},
                 {"KEY09", "OK"},
                 {"IDN", "OK S  A 005678"},
                 {"SG", kSignal851},
                 {"IDF", "OK"},
                 {"MD", "MD00"},
                 {"IDF", "OK"}},
                "42",
                ""},
           Case{"MD08",
                {test::streaming("IDN", "OK", "IDNS 005678"),
                 {"SG", kSignal851},
                 {"MD", "MD00"},
                 {"IDF", "OK"}},
                "42",
                ""},
       }) {
    SCOPED_TRACE(mode);
    test::Bc895Rig rig;
    rig.setPanel(true);
    rig.form.panel.Frequency.setCaption("42");
    rig.state.EntryActive = true;
    rig.form.chkSkip.onClick = nullptr;
    rig.form.chkSkip.setValue(true);
    rig.tick(opening(mode) + exchanges);
    EXPECT_EQ(rig.form.panel.Frequency.caption(), frequency);
    EXPECT_EQ(rig.form.panel.Alpha.caption(), alpha);
  }
}

TEST(Modes, LeaveMarksForTheNextMode) {
  test::Bc895Rig rig;
  const auto search = [&](const char* mode) { rig.tick(opening(mode) + kSquelchClosed); };
  search("MD05");
  search("MD16");
  search("MD06");
  search("MD02");
  EXPECT_EQ(rig.picture(),
            "Frequency: 155.1150, Alpha: Fire, Search, Wx, Auto, Sig: 2"
            " / 000.0 MD02 29.0000-956.0000")
      << "hold and trunk go, weather and auto stay";
  rig.tick(opening("MD01") + std::vector<Exchange>{{"CT", "CTF"}, {"PR", "PRF"}, {"MA", "NG"}});
  EXPECT_EQ(rig.picture(), "Frequency: Scanning, Auto, Bank, Sig: 2 / 000.0 MD01 29.0000-956.0000");
}

}  // namespace
}  // namespace tarnvex::monitor
