// What is said on the line: replies by position, set commands that read back, refusals.
#include "radio/demo_plan.h"
#include "script.h"

namespace tarnvex::radio {
namespace {

TEST(Exchange, ChannelFieldsStandAtTheirPositions) {
  Radio radio;
  send(radio, {"MA004", "PM004 04512345", "DLN", "LON", "ARN", "CS07"});
  for (const std::string line : {"MA", "PM004", "MA004"}) {
    const std::string reply = radio.exchange(line);
    EXPECT_EQ(part(reply, 8, 10) + '.' + part(reply, 11, 14), "451.2345") << line;
    EXPECT_EQ(part(reply, 16, 17), "TF") << line;
    EXPECT_EQ(part(reply, 19, 20), "DN") << line;
    EXPECT_EQ(part(reply, 22, 23), "LN") << line;
    EXPECT_EQ(part(reply, 28, 29), "RN") << line;
    EXPECT_EQ(part(reply, 32, 33), "07") << line;
  }
  EXPECT_EQ(part(radio.exchange("MA"), 2, 4), "004");
  send(radio, {"DLF", "LOF", "ARF", "CS00"});
  EXPECT_EQ(part(radio.exchange("MA"), 15, 33), " TF DF LF AF RF N00");
}

TEST(Exchange, LiveReadingsStandAtTheirPositions) {
  Radio radio;
  radio.playScene("steady");
  radio.advance(400);
  const std::string signal = radio.exchange("SG");
  EXPECT_GE(std::stoi(part(signal, 2, 4)), 21);
  EXPECT_LE(std::stoi(part(signal, 2, 4)), 26);
  EXPECT_EQ(part(signal, 8, 14), "1551150");
  play(radio, {{"MD", "MD00"}, {"SQ", "+"}, {"CT", "CTN"}, {"PR", "PRN"}, {"LO", "LOF"}});
  EXPECT_EQ(part(radio.exchange("PC A"), 5, 7), "001");
  EXPECT_EQ(part(radio.exchange("SB"), 4, 13), "ABCDE");
  EXPECT_EQ(part(radio.exchange("LL"), 4, 10), "1510000");
  EXPECT_EQ(part(radio.exchange("LU"), 4, 10), "1620000");
}

TEST(Exchange, NothingOnTheAir) {
  Radio radio;
  radio.advance(50);
  play(radio, {{"MA", "NG"}, {"SQ", "-"}, {"IC", "NG"}, {"CT", "CTF"}, {"LO", "LOF"}});
  EXPECT_EQ(part(radio.exchange("SG"), 2, 4), "013");
}

TEST(Exchange, SettingsReadBack) {
  Radio radio;
  play(radio, {{"MUN", "MUN"}, {"MU", "MUN"}, {"MUA", "MUA"}, {"MU", "MUA"}});
  play(radio, {{"SB CA", "SB AC"}, {"SB", "SB AC"}});
  play(radio, {{"LL00290000", "OK"},
               {"LL", "LL00290000"},
               {"LU09560000", "OK"},
               {"LU", "LU09560000"},
               {"IDF", "IDF"}});
}

TEST(Exchange, WhatMakesNoSenseIsRefusedAndChangesNothing) {
  Radio radio;
  const std::string before = describe(radio.state());
  for (const std::string line : {"",
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
                                 "KEY20H"}) {
    EXPECT_EQ(radio.exchange(line), "ERR") << line;
  }
  EXPECT_EQ(describe(radio.state()), before);
  EXPECT_EQ(radio.exchange("PM001"), Radio().exchange("PM001"));
}

TEST(Exchange, EmptiedChannelKeepsItsTone) {
  Radio radio;
  play(radio, {{"PM001 00000000", "OK"}, {"PM001", "PM001 00000000 TF DN LF AF RF N13"}});
}

TEST(Exchange, AllChannelsAreClearedAndNoIds) {
  Radio radio;
  send(radio, {"AC"});
  for (const std::string line : {"PM001", "PM032", "PM300"}) {
    EXPECT_EQ(radio.exchange(line), line + " 00000000 TF DF LN AF RF N00");
  }
  play(radio, {{"MD", "MD00"}, {"KEY13", "OK"}, {"IC A1", "IC A1 001616"}});
}

TEST(Exchange, ListingsAreManyLinesClosedByEnd) {
  Radio radio;
  play(radio, {{"SS", "SS01525500\rSS01588200\rEND"}, {"IL", "IL006416\rEND"}});
  send(radio, {"KEY09", "KEY07", "KEY06H"});
  play(radio,
       {{"SS", "END"}, {"SS08510125", "OK"}, {"SS08510125", "OK"}, {"SS", "SS08510125\rEND"}});
  play(radio, {{"ILR 1616", "OK"},
               {"ILD 006416", "OK"},
               {"ILR 100-12", "OK"},
               {"IL", "IL001616\rIL100-12\rEND"}});
  for (int i = 0; i < 49; ++i) radio.exchange("SS0" + std::to_string(1550000 + i));
  EXPECT_EQ(radio.exchange("SS01600000"), "ERR") << "50 is the most";
  EXPECT_EQ(radio.exchange("SS08510125"), "OK") << "already there";
}

TEST(ExchangeBc245, IdentityAndReadings) {
  Radio radio(Model::BC245XLT);
  const std::string identity = radio.exchange("SI");
  EXPECT_EQ(part(identity, 1, 2), "SI");
  EXPECT_EQ(part(identity, 3, 10), "BC245XLT");
  EXPECT_EQ(part(identity, 12, 21), "0024500172");
  EXPECT_EQ(part(identity, 24, 26), "124");
  radio.playScene("steady");
  radio.advance(300);
  EXPECT_EQ(part(radio.exchange("WI"), 8, 14), "1551150");
  EXPECT_EQ(radio.exchange("WI").size(), 14U) << "all from 8 on is read as a number";
  EXPECT_EQ(radio.exchange("LL").substr(3), "1510000");
  play(radio, {{"SG", "ERR"}, {"CT", "ERR"}, {"KEY21 A", "ERR"}, {"KEY18", "ERR"}, {"SS", "ERR"}});
}

TEST(ExchangeBc245, SwitchesReadBack) {
  Radio radio(Model::BC245XLT);
  for (const std::string word : {"AF", "AL", "AT", "BT", "FI", "TD", "LT"}) {
    play(radio, {{word, word + "F"},
                 {word + "N", word + "N"},
                 {word, word + "N"},
                 {word + "F", word + "F"}});
  }
  play(radio, {{"KEY03", "OK"},
               {"AT", "ATN"},
               {"KEY14", "OK"},
               {"LT", "LTN"},
               {"KEY14H", "OK"},
               {"AL", "ALN"}});
}

TEST(ExchangeBc245, ListsAreReadByNumber) {
  Radio radio(Model::BC245XLT);
  play(radio, {{"SS01", "SS01525500"},
               {"SS02", "SS01588200"},
               {"SS03", "SS00000000"},
               {"SS50", "SS00000000"},
               {"IL001", "IL 006416"},
               {"IL002", "IL ------"},
               {"IL100", "IL ------"},
               {"ILR01-157", "OK"},
               {"ILD 006416", "OK"},
               {"IL001", "IL 01-157"}});
}

TEST(Exchange, TurningIntoTheOtherModelKeepsTheMemory) {
  Radio radio;
  send(radio, {"PM005 01600000", "MUN", "KEY13H", "IDN"});
  radio.become(Model::BC245XLT);
  EXPECT_EQ(part(radio.exchange("PM005"), 7, 14), "01600000");
  play(radio, {{"MD", "MD00"}, {"MU", "MUN"}});
  radio.become(Model::BC895XLT);
  EXPECT_EQ(radio.exchange("SI"), "ERR");
}

TEST(DemoPlan, MatchesTheRadioChannelByChannel) {
  Radio radio;
  std::string_view rest;
  const std::string plan = demoPlan();
  rest = plan;
  std::vector<std::string> lines;
  while (!rest.empty()) {
    const std::size_t end = rest.find("\r\n");
    lines.emplace_back(rest.substr(0, end));
    rest.remove_prefix(end + 2);
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
