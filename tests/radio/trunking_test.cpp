// Trunked systems: programming them, their IDs, and the long conversations of a program with both
// radios.
#include "script.h"

namespace tarnvex::radio {
namespace {

/// An ID as it is keyed.
std::string keysOf(std::string_view id) {
  std::string keys;
  for (const char c : id) keys += c == '-' ? "KEY03; " : std::string("KEY02 ") + c + "; ";
  return keys + "KEY04";
}

TEST(Trunking, ChannelsJoinTheBankThatIsProgrammed) {
  Radio radio;
  play(radio,
       "KEY13H > OK; KEY21 C > OK; KEY04 > OK; PM070 08512500 > OK; PM001 08512500 > ERR; "
       "KEY13 > OK; MD > MD00; MA070 > C070 F08512500 TN DF LN AF RF N00; LOF > LOF; "
       "PM070 01512500");
  EXPECT_EQ(part(radio.exchange("PM070"), 16, 17), "TF") << "written outside programming";
}

TEST(Trunking, IdsAreKeyedIntoSlots) {
  for (const auto& [keyed, kept] : {std::pair<std::string, std::string>{"00123", "000123"},
                                    {"100-12", "100-12"},
                                    {"65535", "065535"},
                                    {"65536", "001648"},
                                    {"0", "------"},
                                    {"1-", "001648"}}) {
    Radio radio;
    radio.playScene("city");
    play(radio, "KEY13; IC A2");
    radio.advance(5000);  // a reception in another slot mustn't catch the entry
    play(radio, keysOf(keyed) + "; IC A2 > IC A2 " + kept + "; IC A1 > IC A1 001616");
  }
}

TEST(Trunking, BanksTakeTurnsInAMultiscan) {
  Radio radio;
  play(radio, "MD > MD00; KEY13 > OK; KEY21 H > OK; KEY00 > OK; IS > IS AB; MD > MD09");
  EXPECT_EQ(part(radio.exchange("SG"), 8, 14), "8554625") << "control channel of bank H";
  play(radio,
       "KEY13 > OK; SB AC > SB AC; KEY00 > OK; MD > MD00; KEY13 > OK; KEY21 D > OK; KEY00 > OK; "
       "IS > NG; KEY13 > OK; KEY00 > OK; MD > MD00; KEY13 > OK; KEY00 > OK; KEY21 D > OK; "
       "MD > MD09");
  EXPECT_EQ(radio.exchange("IS"), "NG") << "after KEY00 the bank keys switch groups";
}

TEST(TrunkingBc245, TheSystemIsFoundAfterAWhile) {
  Radio radio(Model::BC245XLT);
  play(radio, "SB H > SB H; KEY13 > OK; KEY01 > OK; MD > MD01; KEY13 > OK; MD > MD20");
  radio.advance(1600);
  play(radio, "MD > MD17; KEY01 > OK; MD > MD18; SB B > SB B; KEY13 > OK; KEY13 > OK");
  radio.advance(2900);
  play(radio, "KEY01 > OK; MD > MD12; KEY13 > OK; SB C > SB C; KEY13 > OK");
  radio.advance(2900);
  play(radio, "MD > MD14; KEY01 > OK; MD > MD01");
}

TEST(TrunkingBc245, IdsAreWrittenAndJudged) {
  Radio radio(Model::BC245XLT);
  play(radio, "SB B; KEY13");
  radio.advance(1600);
  play(radio,
       "IC J0 000123 > OK; IC J0 > IC J0 000123; IC A1 000000 > OK; IC A1 > IC A1 "
       "\xFE\xFE\xFE\xFE\xFE\xFE; PI A > NG; IC A2 065536 > ERR; IC A2 100-12 > ERR; IC A2  > ERR; "
       "IC A2 > IC A2 001648; KEY13; SB H; KEY13");
  radio.advance(1600);
  play(radio,
       "IC A1 > IC A1 04\xFE"
       "032; IC A1 15-157 > OK; IC A1 16-157 > ERR; IC A1 15-168 > ERR; "
       "IC A1 002047 > OK; IC A1 002048 > ERR");
}

TEST(TrunkingBc245, Type1TakesIdsOfMappedBlocksOnly) {
  Radio radio(Model::BC245XLT);
  play(radio,
       "MA001 > C001 F01551150 TF DN LF AF RF N13; TR B 1 > OK; FB B 0 04 > OK; FB B 4 13 > OK; "
       "FB B 5 13 > ERR; FB B 7 12 > ERR; FB B 8 00 > ERR; FB B 1 15 > ERR; FB C 0 04 > ERR; "
       "KEY13 > OK; MD > MD01; SB B > SB B; KEY13 > OK");
  radio.advance(1600);
  play(radio,
       "IC A1 000-12 > OK; IC A2 100-12 > ERR; IC A3 700-1 > OK; IC A4 800-1 > ERR; "
       "IC A5 000-16 > ERR");
}

TEST(TrunkingBc245, ScanGroupsAreSetWithAndWithoutABlank) {
  Radio radio(Model::BC245XLT);
  play(radio,
       "IS > IS ABCE; IS BC > OK; IS > IS BC; IS  > OK; IS > NG; ISA > OK; IS > IS A; ISK > ERR");
}

}  // namespace
}  // namespace tarnvex::radio
