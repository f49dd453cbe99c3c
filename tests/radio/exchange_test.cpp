// What is said on the line: replies by position, set commands that read back, refusals.
#include <sstream>

#include "radio/demo_plan.h"
#include "script.h"

namespace tarnvex::radio {
namespace {

TEST(Exchange, ChannelFieldsStandAtTheirPositions) {
  Radio radio;
  play(radio, "MA004; PM004 04512345; DLN; LON; ARN; CS07");
  for (const std::string line : {"MA", "PM004", "MA004"}) {
    EXPECT_EQ(part(radio.exchange(line), 7, 33), "04512345 TF DN LN AF RN N07") << line;
  }
  play(radio, "DLF; LOF; ARF; CS00; MA > C004 F04512345 TF DF LF AF RF N00");
}

TEST(Exchange, LiveReadingsStandAtTheirPositions) {
  Radio radio;
  radio.playScene("steady");
  radio.advance(400);
  const std::string signal = radio.exchange("SG");
  EXPECT_GE(std::stoi(part(signal, 2, 4)), 21);
  EXPECT_LE(std::stoi(part(signal, 2, 4)), 26);
  EXPECT_EQ(part(signal, 8, 14), "1551150");
  play(radio,
       "MD > MD00; SQ > +; CT > CTN; PR > PRN; LO > LOF; PC A > PC A001; SB > SB ABCDE; "
       "LL > LL01510000; LU > LU01620000");
}

TEST(Exchange, SettingsReadBack) {
  Radio radio;
  play(radio,
       "MUN > MUN; MU > MUN; MUA > MUA; MU > MUA; SB CA > SB AC; SB > SB AC; LL00290000 > OK; "
       "LL > LL00290000; LU09560000 > OK; LU > LU09560000; IDF > IDF");
}

TEST(Exchange, WhatMakesNoSenseIsRefusedAndChangesNothing) {
  Radio radio;
  const std::string before = describe(radio.state());
  const char* const lines[] = {"",
                               "SI",
                               "TEST",
                               "md",
                               "MD ",
                               "MA000",
                               "MA301",
                               "MA1",
                               "PM301",
                               "PM000 01551150",
                               "PM001 00010000",
                               "PM001 1551150",
                               "LL00289999",
                               "LU09560001",
                               "SB ",
                               "SB K",
                               "SBA",
                               "PC K",
                               "IC A1",
                               "IC K1",
                               "PI F1",
                               "CS40",
                               "CS07",
                               "DLN",
                               "LON",
                               "ARN",
                               "KEY02",
                               "KEY02 x",
                               "KEY21 K",
                               "KEY99",
                               "WI",
                               "TB",
                               "LT",
                               "AFN",
                               "SS00000000",
                               "ILR",
                               "ILR x",
                               "ILR 000000",
                               "TR A 7",
                               "TR A 4",
                               "TR A 1 04500000 0005",
                               "FB A 0 04",
                               "KEY06",
                               "KEY05H",
                               "KEY20H"};
  for (const char* line : lines) {
    EXPECT_EQ(radio.exchange(line), "ERR") << line;
  }
  EXPECT_EQ(describe(radio.state()), before);
  EXPECT_EQ(radio.exchange("PM001"), Radio().exchange("PM001"));
}

TEST(Exchange, AnEmptiedChannelKeepsItsToneAndAClearedOneItsBanksIds) {
  Radio radio;
  play(radio, "PM001 00000000 > OK; PM001 > PM001 00000000 TF DN LF AF RF N13; AC");
  for (const std::string line : {"PM001", "PM032", "PM300"}) {
    play(radio, line + " > " + line + " 00000000 TF DF LN AF RF N00");
  }
  play(radio, "MD > MD00; KEY13 > OK; IC A1 > IC A1 001616");
}

TEST(Exchange, ListingsAreManyLinesClosedByEnd) {
  Radio radio;
  play(radio,
       "SS > SS01525500\rSS01588200\rEND; IL > IL006416\rEND; KEY09; KEY07; KEY06H; SS > END; "
       "SS08510125 > OK; SS08510125 > OK; SS > SS08510125\rEND; ILR 1616 > OK; ILD 006416 > OK; "
       "ILR 100-12 > OK; IL > IL001616\rIL100-12\rEND");
  for (int i = 0; i < 49; ++i) radio.exchange("SS0" + std::to_string(1550000 + i));
  EXPECT_EQ(radio.exchange("SS01600000"), "ERR") << "50 is the most";
  EXPECT_EQ(radio.exchange("SS08510125"), "OK") << "already there";
}

TEST(ExchangeBc245, IdentityAndReadings) {
  Radio radio(Model::BC245XLT);
  play(radio, "SI > SIBC245XLT 0024500172 V124");
  radio.playScene("steady");
  radio.advance(300);
  EXPECT_EQ(part(radio.exchange("WI"), 8, 14), "1551150");
  EXPECT_EQ(radio.exchange("WI").size(), 14U) << "all from 8 on is read as a number";
  play(radio, "LL > LL01510000; SG > ERR; CT > ERR; KEY21 A > ERR; KEY18 > ERR; SS > ERR");
}

TEST(ExchangeBc245, SwitchesReadBack) {
  Radio radio(Model::BC245XLT);
  for (const std::string word : {"AF", "AL", "AT", "BT", "FI", "TD", "LT"}) {
    play(radio, word + " > " + word + "F; " + word + "N > " + word + "N; " + word + " > " + word +
                    "N; " + word + "F > " + word + "F");
  }
  play(radio, "KEY03 > OK; AT > ATN; KEY14 > OK; LT > LTN; KEY14H > OK; AL > ALN");
}

TEST(ExchangeBc245, ListsAreReadByNumber) {
  Radio radio(Model::BC245XLT);
  play(radio,
       "SS01 > SS01525500; SS02 > SS01588200; SS03 > SS00000000; SS50 > SS00000000; "
       "IL001 > IL 006416; IL002 > IL ------; IL100 > IL ------; ILR01-157 > OK; "
       "ILD 006416 > OK; IL001 > IL 01-157");
}

TEST(Exchange, TurningIntoTheOtherModelKeepsTheMemory) {
  Radio radio;
  play(radio, "PM005 01600000; MUN; KEY13H; IDN");
  radio.become(Model::BC245XLT);
  play(radio, "PM005 > PM005 01600000*; MD > MD00; MU > MUN");
  radio.become(Model::BC895XLT);
  play(radio, "SI > ERR");
}

TEST(DemoPlan, MatchesTheRadioChannelByChannel) {
  Radio radio;
  std::istringstream plan(demoPlan());
  std::vector<std::string> lines;
  for (std::string line; std::getline(plan, line);) {
    ASSERT_TRUE(line.ends_with('\r'));
    lines.push_back(line.substr(0, line.size() - 1));
  }
  ASSERT_EQ(lines.size(), 1300U);
  EXPECT_EQ(lines[0], R"("1","155.1150"," ","X"," "," ","103.5","Fire dispatch")");
  EXPECT_EQ(lines[9], R"("10","0.0000"," "," ","X"," ","","")");
  EXPECT_EQ(lines[300 + 100 + 9], R"("Bank B: A10","001904","Police command","")");
  EXPECT_EQ(lines[300 + 700], R"("Bank H: A1","04-032","County roads","X")");
  EXPECT_EQ(lines[1299], R"("Bank J: J10","-----","","")");
  for (int n = 1; n <= 300; ++n) {
    const std::string reply = radio.exchange("PM" + digits(n, 3));
    const std::string shown = std::to_string(std::stoi(part(reply, 8, 10))) + '.' +
                              part(reply, 11, 14) + "\",\"" + (reply[16] == 'N' ? 'X' : ' ') +
                              "\",\"" + (reply[19] == 'N' ? 'X' : ' ') + "\",\"" +
                              (reply[22] == 'N' ? 'X' : ' ');
    EXPECT_NE(lines[n - 1].find('"' + shown + '"'), std::string::npos) << lines[n - 1];
  }
}

}  // namespace
}  // namespace tarnvex::radio
