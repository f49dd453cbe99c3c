// What the receiver makes of the air, and lines that come by themselves.
#include <set>

#include "script.h"

namespace tarnvex::radio {
namespace {

TEST(Hearing, ScanStopsOnlyForWhatItScans) {
  struct Case {
    std::vector<std::string> before;
    bool heard;
  };
  for (const Case& each : std::vector<Case>{{{}, true},
                                            {{"SB BCD"}, false},
                                            {{"MA001", "LON", "KEY00"}, false},
                                            {{"MA001", "CS05", "KEY00"}, false},
                                            {{"MA001", "CS05", "KEY00", "KEY20"}, true},
                                            {{"PM001 00000000"}, false}}) {
    Radio radio;
    radio.playScene("steady");
    send(radio, each.before);
    radio.advance(100);
    EXPECT_EQ(radio.exchange("MA") != "NG", each.heard) << testing::PrintToString(each.before);
  }
}

TEST(Hearing, DelayHoldsTheChannelAfterItsTransmission) {
  Radio radio;
  radio.receive(1, 1000);
  radio.advance(1100);
  play(radio, {{"SQ", "-"}, {"MA", "C001 F01551150 TF DN LF AF RF N13"}});
  radio.receive(2, 10000);
  radio.advance(1000);
  EXPECT_EQ(part(radio.exchange("MA"), 2, 4), "001") << "the delay still runs";
  radio.advance(1000);
  EXPECT_EQ(part(radio.exchange("MA"), 2, 4), "002");
  radio.exchange("DLF");
  radio.advance(8100);
  EXPECT_EQ(radio.exchange("MA"), "NG");
}

TEST(Hearing, PriorityTakesOver) {
  Radio radio;
  radio.receive(2, 60000);
  radio.advance(100);
  radio.exchange("KEY05");
  radio.receive(1, 500);
  radio.advance(100);
  EXPECT_EQ(part(radio.exchange("MA"), 2, 4), "002") << "priority is off";
  radio.exchange("KEY05");
  EXPECT_EQ(part(radio.exchange("MA"), 2, 4), "001");
}

TEST(Hearing, LevelRisesAndFalls) {
  Radio radio;
  radio.receive(1, 2000);
  std::vector<int> levels;
  for (int i = 0; i < 21; ++i) {
    levels.push_back(std::stoi(part(radio.exchange("SG"), 2, 4)));
    radio.advance(100);
  }
  EXPECT_LT(levels[0], levels[1]);
  EXPECT_GE(levels[10], 21);
  EXPECT_LT(levels[19], levels[10]);
  EXPECT_EQ(levels[20], 13);
}

TEST(Hearing, SearchPassesOverWhatIsSkippedOrPassed) {
  Radio radio;
  radio.receive(1, 100000);
  radio.exchange("KEY09");
  radio.advance(50);
  EXPECT_EQ(radio.exchange("SQ"), "+");
  EXPECT_EQ(part(radio.exchange("SG"), 8, 14), "1551150");
  EXPECT_EQ(radio.exchange("MA"), "NG");
  radio.exchange("KEY09");
  EXPECT_EQ(radio.exchange("SQ"), "-") << "not taken again";
  const std::string before = radio.exchange("SG");
  radio.advance(100);
  EXPECT_NE(radio.exchange("SG"), before) << "the search goes on";
  radio.receive(1, 100000);
  play(radio, {{"SQ", "+"}, {"KEY06", "OK"}, {"SQ", "-"}});
  EXPECT_NE(radio.exchange("SS").find("SS01551150"), std::string::npos);
  radio.receive(1, 100000);
  play(radio, {{"SQ", "-"}, {"KEY09", "OK"}, {"KEY07", "OK"}, {"KEY06H", "OK"}, {"KEY09", "OK"}});
  EXPECT_EQ(radio.exchange("SQ"), "+") << "the list is empty again";
}

TEST(Hearing, AutoStoresWhatIsNew) {
  Radio radio;
  radio.exchange("KEY19");
  radio.receive(1, 1000);
  radio.advance(5000);
  EXPECT_EQ(part(radio.exchange("PM271"), 7, 14), "00000000") << "channel 1 has it";
  radio.playScene("city");
  radio.advance(20000);
  EXPECT_NE(part(radio.exchange("PM271"), 7, 14), "00000000");
  EXPECT_EQ(part(radio.exchange("PM271"), 22, 23), "LF");
}

TEST(Hearing, IdsInTheirModes) {
  Radio radio;
  radio.exchange("KEY13");
  radio.talk("3216", 5000);
  play(radio, {{"IC", "IC B1 003216"}, {"SQ", "+"}, {"KEY21 B", "OK"}});
  play(radio, {{"KEY00", "OK"},
               {"KEY21 B", "OK"},
               {"IC", "NG"},
               {"KEY21 B", "OK"},
               {"IC", "IC B1 003216"},
               {"KEY06", "OK"},
               {"IC", "NG"},
               {"ILD 3216", "OK"}});
  radio.advance(8000);
  radio.talk("7216", 5000);
  play(radio, {{"KEY13", "OK"},
               {"KEY13", "OK"},
               {"KEY21 B", "OK"},
               {"IC", "NG"},
               {"KEY09", "OK"},
               {"IDN", "IDN S   007216"},
               {"ILR 7216", "OK"},
               {"IDN", "IDN E"}});
}

TEST(Hearing, HeldIdIsStreamedOnAQuietLine) {
  Radio radio;
  radio.exchange("KEY13");
  radio.exchange("KEY09");
  radio.talk("1648", 300);
  radio.exchange("KEY07");
  radio.advance(500);
  EXPECT_TRUE(radio.unsolicited().empty()) << "not asked for";
  radio.talk("1648", 300);
  radio.exchange("IDN");
  radio.advance(20);
  EXPECT_TRUE(radio.unsolicited().empty());
  EXPECT_EQ(radio.nextLineIn(), 10);
  radio.advance(10);
  EXPECT_EQ(radio.unsolicited(), std::vector<std::string>{"ID S 001648"});
  radio.exchange("MD");
  radio.advance(320);
  EXPECT_EQ(radio.unsolicited(),
            (std::vector<std::string>{"ID S 001648", "ID S 001648", "ID S 001648"}));
  radio.advance(100);
  EXPECT_EQ(radio.unsolicited(), std::vector<std::string>{"ID E"});
  radio.exchange("IDF");
  radio.advance(500);
  EXPECT_TRUE(radio.unsolicited().empty());
  EXPECT_FALSE(radio.nextLineIn());
}

TEST(Hearing, Bc245StreamsInIdSearch) {
  Radio radio(Model::BC245XLT);
  ASSERT_TRUE(radio.setMode("MD15"));
  radio.talk("05-021", 1000);
  EXPECT_EQ(radio.exchange("IDN"), "IDN");
  radio.advance(30);
  const auto lines = radio.unsolicited();
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_EQ(part(lines[0], 5, 11), " 05-021");
  EXPECT_EQ(lines[0].find('E'), std::string::npos);
}

TEST(Scenes, TourShowsEveryModeInTenSeconds) {
  const std::vector<std::pair<Model, std::set<std::string>>> cases{
      {Model::BC895XLT,
       {"MD00", "MD01", "MD02", "MD03", "MD04", "MD05", "MD06", "MD07", "MD08", "MD09", "MD10",
        "MD15", "MD16"}},
      {Model::BC245XLT,
       {"MD00", "MD01", "MD02", "MD03", "MD04", "MD05", "MD09", "MD10", "MD11", "MD12", "MD14"}}};
  for (const auto& [model, modes] : cases) {
    Radio radio(model);
    radio.playScene("tour");
    EXPECT_EQ(part(radio.exchange("MA"), 2, 14), "001 F01551150") << "seen at once";
    std::set<std::string> seen;
    std::set<std::string> open;
    for (int i = 0; i < 200; ++i) {
      seen.insert(radio.exchange("MD"));
      if (radio.exchange("SQ") == "+") open.insert(radio.exchange("MD"));
      radio.advance(50);
    }
    EXPECT_EQ(seen, modes);
    EXPECT_GE(open.size(), modes.size() - 3) << "nearly each of them with something to hear";
    EXPECT_EQ(radio.exchange("MA").substr(0, 4), "C001") << "and from the start again";
  }
}

TEST(Scenes, SameSeedSameLife) {
  const auto run = [](std::uint64_t seed, double tempo, Millis step) {
    Radio radio(Model::BC895XLT, seed);
    radio.setTempo(tempo);
    radio.playScene("city");
    std::string heard;
    for (Millis at = 0; at < 60000; at += step) {
      radio.advance(step);
      heard += radio.exchange("MA").substr(0, 4);
    }
    return heard;
  };
  EXPECT_EQ(run(7, 1, 100), run(7, 1, 100));
  EXPECT_NE(run(7, 1, 100), run(8, 1, 100));
  EXPECT_NE(run(7, 1, 100), run(7, 2, 100));
  EXPECT_NE(run(7, 1, 100).find("C061"), std::string::npos);
}

TEST(Scenes, LongJumpsMeetWhatShortStepsMeet) {
  Radio once, often;
  for (Radio* radio : {&once, &often}) radio->playScene("city");
  once.advance(30000);
  for (int i = 0; i < 3000; ++i) often.advance(10);
  EXPECT_EQ(describe(once.state()), describe(often.state()));
}

TEST(Scenes, UnknownNamesChangeNothing) {
  Radio radio;
  EXPECT_FALSE(radio.playScene("storm"));
  EXPECT_FALSE(radio.setMode("MD14"));
  EXPECT_FALSE(radio.receive(10, 1000)) << "an empty channel";
  EXPECT_FALSE(radio.receive(301, 1000));
  EXPECT_FALSE(radio.talk("x", 1000));
  EXPECT_EQ(radio.scene(), "quiet");
}

}  // namespace
}  // namespace tarnvex::radio
