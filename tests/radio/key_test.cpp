// Key sequences and what they leave behind.
#include "script.h"

namespace tarnvex::radio {
namespace {

/// Each conversation with a radio of its own.
void playEach(Model model, const std::vector<std::string>& conversations) {
  for (const std::string& conversation : conversations) {
    SCOPED_TRACE(conversation);
    Radio radio(model);
    play(radio, conversation);
  }
}

TEST(Keys, ModesFollowTheKeys) {
  playEach(
      Model::BC895XLT,
      {"KEY01; MD > MD01; KEY00; MD > MD00", "KEY09; MD > MD02; KEY07; MD > MD03; KEY09; MD > MD02",
       "KEY10; MD > MD04; KEY07; MD > MD05; KEY09; MD > MD04; KEY00; MD > MD00",
       "KEY13H; MD > MD12; KEY09; MD > MD06",
       "KEY13; MD > MD09; KEY09; MD > MD07; KEY07; MD > MD08; KEY09; MD > MD07",
       "KEY13; KEY09; KEY00; MD > MD09; KEY13; MD > MD00", "KEY13; KEY07; MD > MD10",
       "KEY13; KEY01; MD > MD10", "KEY01; KEY13H; KEY13; MD > MD01; KEY20H; MD > MD13",
       "KEY18; MD > MD15", "KEY01; KEY18; KEY18; MD > MD01", "KEY19; MD > MD16"});
  playEach(Model::BC245XLT,
           {"KEY13H; MD > MD08", "KEY13H; KEY02 2; KEY04; MD > MD06",
            "KEY13H; KEY02 8; KEY04; MD > MD07", "KEY13H; KEY02 8; TB > TB H EDACS*",
            "KEY13H; KEY02 10; TB > TB J *", "KEY13; MD > MD14", "SB H; KEY13; MD > MD20",
            "SB A; KEY13; MD > MD14", "KEY18; MD > MD00"});
}

TEST(Keys, EntriesGoWhereTheyBelong) {
  playEach(
      Model::BC895XLT,
      {"KEY01; KEY02 3; KEY02 1; KEY01; MA > C031*",
       "KEY01; KEY02 3; KEY02 0; KEY02 0; KEY04; MA > C300*",
       "KEY01; KEY02 4; KEY02 5; KEY02 1; KEY03; KEY02 5; KEY04; MA > C001 F04515000*",
       "KEY01; KEY02 4; KEY02 6; KEY02 0; KEY04; MA > C001 F04600000*",
       "KEY01; KEY02 7; KEY02 0; KEY03; KEY04; MA > C001 F01551150*",
       "KEY09; KEY02 1; KEY02 4; KEY02 6; KEY03; KEY02 5; KEY04; SG > S013 F01465000*",
       "KEY08; KEY02 1; KEY02 4; KEY02 0; KEY04; LL > LL01400000",
       "KEY08; KEY08; KEY02 1; KEY02 7; KEY02 0; KEY04; LU > LU01700000",
       "KEY08H; KEY02 1; KEY04; LU > LU01620000",
       "MA002; KEY20H; KEY02 6; KEY02 7; KEY03; KEY02 0; KEY04; "
       "PM002 > PM002 01544300 TF DN LF AF RF N01",
       "MA001; KEY20H; KEY02 6; KEY02 7; KEY04; PM001 > PM001 01551150 TF DN LF AF RF N13",
       "KEY13H; KEY21 D; KEY04; KEY02 8; KEY02 6; KEY02 0; KEY04; PM095 > PM095 08600000 TN*"});
}

TEST(Keys, TheKnobStepsWhatStandsStill) {
  Radio radio;
  play(radio,
       "MA300; KEY07; MA > C001*; KEY08; MA > C300*; KEY08; MA > C299*; LL01551100; LU01551200; "
       "KEY09; KEY07; KEY07; KEY07; KEY07; KEY07");
  const int at = std::stoi(part(radio.exchange("SG"), 8, 14));
  EXPECT_TRUE(at >= 1551100 && at <= 1551200) << at;
  play(radio, "KEY00; KEY13; KEY01; KEY07; IC > IC A2*");
}

TEST(Keys, BankKeys) {
  Radio radio;
  play(radio,
       "KEY21 C > OK; SB > SB ABDE; KEY21 C > OK; SB > SB ABCDE; SB D > SB D; KEY21 D > ERR; "
       "SB > SB D; KEY01; KEY21 J; MA > C271*");
  Radio handheld(Model::BC245XLT);
  play(handheld, "KEY02 3 > OK; SB > SB ABDE; KEY02 0 > OK; SB > SB ABDEJ");
}

TEST(Keys, FlagsOfTheChannelInUse) {
  Radio radio;
  play(radio,
       "MA002; KEY12; KEY06; KEY05H; MA > C002 F01544300 TF DF LN AF RF N00; PC A > PC A002; "
       "KEY05 > OK; PR > PRF; KEY06 > OK; LO > LOF; KEY20 > OK; "
       "MA001 > C001 F01551150 TF DN LF AF RF N13; CT > CTF");
}

TEST(Keys, PriorityOfAnIdGroup) {
  Radio radio;
  play(radio,
       "KEY13 > OK; PI A > PI A1; PI C > NG; PI C1 > OK; PI C > PI C1; PI C2 > OK; "
       "PI C > PI C2; PI C3 > ERR; IC A0 > IC A0 001904; PI A0 > OK; PI A > PI A0");
}

}  // namespace
}  // namespace tarnvex::radio
