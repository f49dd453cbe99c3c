// Conversations on the line, each with a radio of its own: the positions in replies, commands that
// read back what others set, and keys and their results.
#include "script.h"

namespace tarnvex::radio {
namespace {

TEST(Conversation, ChannelsAndSettingsReadBack) {
  playEach(
      Model::BC895XLT,
      {"MA004; PM004 04512345; DLN; LON; ARN; CS07; MA > C004 F04512345 TF DN LN AF RN N07; "
       "PM004 > PM004 04512345 TF DN LN AF RN N07; MA004 > C004 F04512345 TF DN LN AF RN N07; "
       "DLF; LOF; ARF; CS00; MA > C004 F04512345 TF DF LF AF RF N00",
       "MD > MD00; SQ > -; CT > CTF; PR > PRN; LO > LOF; PC A > PC A001; SB > SB ABCDE; "
       "LL > LL01510000; LU > LU01620000; SI > ERR",
       "MUN > MUN; MU > MUN; MUA > MUA; MU > MUA; SB CA > SB AC; SB > SB AC; LL00290000 > OK; "
       "LL > LL00290000; LU09560000 > OK; LU > LU09560000; IDF > IDF",
       "PM001 00000000 > OK; PM001 > PM001 00000000 TF DN LF AF RF N13; AC; "
       "PM300 > PM300 00000000 TF DF LN AF RF N00; MD > MD00; KEY13 > OK; IC A1 > IC A1 001616",
       "SS > SS01525500\rSS01588200\rEND; IL > IL006416\rEND; KEY09; KEY07; KEY06H; SS > END; "
       "SS08510125 > OK; SS08510125 > OK; SS > SS08510125\rEND; ILR 1616 > OK; ILD 006416 > OK; "
       "ILR 100-12 > OK; IL > IL001616\rIL100-12\rEND"});
  std::vector<std::string> handheld{
      "SI > SIBC245XLT 0024500172 V124; LL > LL01510000; SG > ERR; CT > ERR; KEY21 A > ERR; "
      "KEY18 > ERR; SS > ERR; MA001 > C001 F01551150 TF DN LF AF RF N13; WI > WI013F01551150",
      "KEY03 > OK; AT > ATN; KEY14 > OK; LT > LTN; KEY14H > OK; AL > ALN",
      "SS01 > SS01525500; SS02 > SS01588200; SS03 > SS00000000; SS50 > SS00000000; "
      "IL001 > IL 006416; IL002 > IL ------; ILR01-157 > OK; ILD 006416 > OK; IL001 > IL 01-157",
      "IS > IS ABCE; IS BC > OK; IS > IS BC; IS  > OK; IS > NG; ISA > OK; IS > IS A; ISK > ERR"};
  for (const std::string word : {"AF", "AL", "AT", "BT", "FI", "TD", "LT"}) {
    handheld.push_back(word + " > " + word + "F; " + word + "N > " + word + "N; " + word + " > " +
                       word + "N; " + word + "F > " + word + "F");
  }
  playEach(Model::BC245XLT, handheld);
}

TEST(Conversation, InvalidCommandsAreRefusedAndChangeNothing) {
  Radio radio;
  const std::string before = describe(radio.state());
  play(radio,
       "TEST > ERR; md > ERR; MD  > ERR; MA000 > ERR; MA301 > ERR; MA1 > ERR; PM301 > ERR; "
       "PM000 01551150 > ERR; PM001 00010000 > ERR; PM001 1551150 > ERR; LL00289999 > ERR; "
       "LU09560001 > ERR; SB  > ERR; SB K > ERR; SBA > ERR; PC K > ERR; IC A1 > ERR; IC K1 > ERR; "
       "PI F1 > ERR; CS40 > ERR; CS07 > ERR; DLN > ERR; LON > ERR; ARN > ERR; KEY02 > ERR; "
       "KEY02 x > ERR; KEY21 K > ERR; KEY99 > ERR; WI > ERR; TB > ERR; LT > ERR; AFN > ERR; "
       "SS00000000 > ERR; ILR > ERR; ILR x > ERR; ILR 000000 > ERR; TR A 7 > ERR; TR A 4 > ERR; "
       "TR A 1 04500000 0005 > ERR; FB A 0 04 > ERR; KEY06 > ERR; KEY05H > ERR; KEY20H > ERR");
  EXPECT_EQ(describe(radio.state()), before);
  EXPECT_EQ(radio.exchange("PM001"), Radio().exchange("PM001"));
  for (int i = 0; i < 48; ++i) {
    radio.exchange("SS0" + std::to_string(1550000 + i));
  }
  play(radio, "SS01600000 > ERR; SS01550000 > OK");  // 50 is the most
}

TEST(Conversation, KeysOfTheBc895) {
  playEach(
      Model::BC895XLT,
      {"KEY01; MD > MD01; KEY00; MD > MD00", "KEY09; MD > MD02; KEY07; MD > MD03; KEY09; MD > MD02",
       "KEY10; MD > MD04; KEY07; MD > MD05; KEY09; MD > MD04; KEY00; MD > MD00",
       "KEY13H; MD > MD12; KEY09; MD > MD06", "KEY13; KEY07; MD > MD10", "KEY19; MD > MD16",
       "KEY13; MD > MD09; KEY09; MD > MD07; KEY07; MD > MD08; KEY09; MD > MD07",
       "KEY13; KEY09; KEY00; MD > MD09; KEY13; MD > MD00", "KEY01; KEY18; KEY18; MD > MD01",
       "KEY13; KEY01; MD > MD10", "KEY01; KEY13H; KEY13; MD > MD01; KEY20H; MD > MD13",
       // entries
       "KEY01; KEY02 3; KEY02 1; KEY01; MA > C031*",
       "KEY01; KEY02 3; KEY02 0; KEY02 0; KEY04; MA > C300*",
       "KEY01; KEY02 4; KEY02 5; KEY02 1; KEY03; KEY02 5; KEY04; MA > C001 F04515000*",
       "KEY01; KEY02 7; KEY02 0; KEY03; KEY04; MA > C001 F01551150*",
       "KEY09; KEY02 1; KEY02 4; KEY02 6; KEY03; KEY02 5; KEY04; SG > S013 F01465000*",
       "KEY08; KEY02 1; KEY02 4; KEY02 0; KEY04; LL > LL01400000",
       "KEY08; KEY08; KEY02 1; KEY02 7; KEY02 0; KEY04; LU > LU01700000",
       "KEY08H; KEY02 1; KEY04; LU > LU01620000",
       "MA002; KEY20H; KEY02 6; KEY02 7; KEY03; KEY02 0; KEY04; PM002 > PM002 01544300 TF DN LF AF "
       "RF N01",
       "MA001; KEY20H; KEY02 6; KEY02 7; KEY04; PM001 > PM001 01551150 TF DN LF AF RF N13",
       "KEY13H; KEY21 D; KEY04; KEY02 8; KEY02 6; KEY02 0; KEY04; PM095 > PM095 08600000 TN*",
       // knob, banks, flags
       "MA300; KEY07; MA > C001*; KEY08; MA > C300*; KEY13; KEY01; KEY07; IC > IC A2*",
       "KEY21 C > OK; SB > SB ABDE; KEY21 C > OK; SB > SB ABCDE; SB D > SB D; KEY21 D > ERR; "
       "SB > SB D; KEY01; KEY21 J; MA > C271*",
       "MA002; KEY12; KEY06; KEY05H; MA > C002 F01544300 TF DF LN AF RF N00; PC A > PC A002; "
       "KEY05 > OK; PR > PRF; KEY06 > OK; LO > LOF; KEY20 > OK; MA001; CT > CTF",
       "KEY13 > OK; PI A > PI A1; PI C > NG; PI C1 > OK; PI C > PI C1; PI C3 > ERR; "
       "IC A0 > IC A0 001904; PI A0 > OK; PI A > PI A0"});
}

TEST(Conversation, TrunkedBanksOfTheBc895) {
  playEach(Model::BC895XLT,
           {"KEY13H > OK; KEY21 C > OK; KEY04 > OK; PM070 08512500 > OK; PM001 08512500 > ERR; "
            "KEY13 > OK; MD > MD00; MA070 > C070 F08512500 TN DF LN AF RF N00; PM070 01512500; "
            "PM070 > PM070 01512500 TF*",
            "MD > MD00; KEY13 > OK; KEY21 H > OK; KEY00 > OK; IS > IS AB; MD > MD09; "
            "SG > S013 F08554625; KEY13 > OK; KEY13 > OK; KEY21 D > OK; KEY00 > OK; IS > NG; "
            "KEY21 B > OK; MD > MD09; IS > NG"});
  for (const auto& [keyed, kept] : {std::pair<std::string, std::string>{"00123", "000123"},
                                    {"100-12", "100-12"},
                                    {"65536", "001648"},
                                    {"0", "------"},
                                    {"1-", "001648"}}) {
    Radio radio;
    // A reception in another slot must not get the entry.
    play(radio, "scene city; KEY13; IC A2; wait 5000");
    for (const char c : keyed) {
      radio.exchange(c == '-' ? "KEY03" : std::string("KEY02 ") + c);
    }
    play(radio, "KEY04; IC A2 > IC A2 " + kept + "; IC A1 > IC A1 001616");
  }
}

TEST(Conversation, TrunkedBanksOfTheBc245) {
  playEach(
      Model::BC245XLT,
      {"KEY13H; MD > MD08; KEY02 2; KEY04; MD > MD06",
       "KEY13H; KEY02 8; TB > TB H EDACS*; KEY04; "
       "MD > MD07",
       "KEY13H; KEY02 10; TB > TB J *", "SB A; KEY13; MD > MD14",
       "KEY02 3 > OK; SB > SB ABDE; KEY02 0 > OK; SB > SB ABDEJ",
       "SB H > SB H; KEY13 > OK; KEY01 > OK; MD > MD01; KEY13 > OK; MD > MD20; wait 1500; MD > "
       "MD17; "
       "KEY01 > OK; MD > MD18; SB B > SB B; KEY13 > OK; KEY13 > OK; wait 1500; KEY01 > OK; MD > "
       "MD12",
       "SB B; KEY13; wait 1500; IC J0 000123 > OK; IC J0 > IC J0 000123; IC A1 000000 > OK; "
       "IC A1 > IC A1 \xFE\xFE\xFE\xFE\xFE\xFE; PI A > NG; IC A2 065536 > ERR; "
       "IC A2 100-12 > ERR; IC A2  > ERR; IC A2 > IC A2 001648; KEY13; SB H; KEY13; wait 1500; "
       "IC A1 > IC A1 04\xFE"
       "032; IC A1 15-157 > OK; IC A1 16-157 > ERR; IC A1 15-168 > ERR; "
       "IC A1 002047 > OK; IC A1 002048 > ERR",
       "TR B 1 > OK; FB B 0 04 > OK; FB B 4 13 > OK; FB B 5 13 > ERR; FB B 7 12 > ERR; "
       "FB B 8 00 > ERR; FB B 1 15 > ERR; FB C 0 04 > ERR; KEY13 > OK; MD > MD00; SB B > SB B; "
       "KEY13 > OK; wait 1500; IC A1 000-12 > OK; IC A2 100-12 > ERR; IC A3 700-1 > OK; IC A4 "
       "800-1 > ERR; "
       "IC A5 000-16 > ERR"});
}

TEST(Conversation, TurningIntoTheOtherModelKeepsTheMemory) {
  Radio radio;
  play(radio, "PM005 01600000; MUN; KEY13H; IDN");
  radio.become(Model::BC245XLT);
  play(radio, "PM005 > PM005 01600000*; MD > MD00; MU > MUN");
  radio.become(Model::BC895XLT);
  play(radio, "SI > ERR");
}

}  // namespace
}  // namespace tarnvex::radio
