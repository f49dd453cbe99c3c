// What the receiver makes of the air, and lines that come by themselves.
#include <map>
#include <set>

#include "script.h"

namespace tarnvex::radio {
namespace {

TEST(Hearing, ScanStopsOnlyForWhatItScans) {
  const std::pair<const char*, bool> cases[] = {{"SQ > +", true},
                                                {"SB BCD", false},
                                                {"MA001; LON; KEY00", false},
                                                {"MA001; CS05; KEY00", false},
                                                {"MA001; CS05; KEY00; KEY20", true},
                                                {"PM001 00000000", false}};
  for (const auto& [before, heard] : cases) {
    Radio radio;
    radio.playScene("steady");
    play(radio, before);
    radio.advance(100);
    EXPECT_EQ(radio.exchange("MA") != "NG", heard) << before;
  }
}

TEST(Hearing, DelayHoldsTheChannelAfterItsTransmission) {
  Radio radio;
  radio.receive(1, 1000);
  radio.advance(1100);
  play(radio, "SQ > -; MA > C001 F01551150 TF DN LF AF RF N13");
  radio.receive(2, 10000);
  radio.advance(1000);
  EXPECT_EQ(part(radio.exchange("MA"), 2, 4), "001") << "the delay still runs";
  radio.advance(1000);
  play(radio, "MA > C002*; DLF");
  radio.advance(8100);
  play(radio, "MA > NG");
}

TEST(Hearing, PriorityTakesOver) {
  Radio radio;
  radio.receive(2, 60000);
  radio.advance(100);
  play(radio, "KEY05");
  radio.receive(1, 500);
  radio.advance(100);
  EXPECT_EQ(part(radio.exchange("MA"), 2, 4), "002") << "priority is off";
  play(radio, "KEY05; MA > C001*");
}

TEST(Hearing, SearchPassesOverWhatIsSkippedOrPassed) {
  Radio radio;
  radio.receive(1, 100000);
  play(radio, "KEY09");
  radio.advance(50);
  EXPECT_EQ(part(radio.exchange("SG"), 8, 14), "1551150");
  play(radio, "SQ > +; MA > NG; KEY09");
  EXPECT_EQ(radio.exchange("SQ"), "-") << "not taken again";
  const std::string before = radio.exchange("SG");
  radio.advance(100);
  EXPECT_NE(radio.exchange("SG"), before) << "the search goes on";
  radio.receive(1, 100000);
  play(radio, "SQ > +; KEY06 > OK; SQ > -");
  EXPECT_NE(radio.exchange("SS").find("SS01551150"), std::string::npos);
  radio.receive(1, 100000);
  play(radio, "SQ > -; KEY09 > OK; KEY07 > OK; KEY06H > OK; KEY09 > OK");
  EXPECT_EQ(radio.exchange("SQ"), "+") << "the list is empty again";
}

TEST(Hearing, AutoStoresWhatIsNew) {
  Radio radio;
  play(radio, "KEY19");
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
  play(radio, "KEY13");
  radio.talk("3216", 5000);
  play(radio,
       "IC > IC B1 003216; SQ > +; KEY21 B > OK; KEY00 > OK; KEY21 B > OK; IC > NG; "
       "KEY21 B > OK; IC > IC B1 003216; KEY06 > OK; IC > NG; ILD 3216 > OK");
  radio.advance(8000);
  radio.talk("7216", 5000);
  play(radio,
       "KEY13 > OK; KEY13 > OK; KEY21 B > OK; IC > NG; KEY09 > OK; IDN > IDN S   007216; "
       "ILR 7216 > OK; IDN > IDN E");
}

TEST(Hearing, HeldIdIsStreamedOnAQuietLine) {
  Radio radio;
  play(radio, "KEY13; KEY09");
  radio.talk("1648", 300);
  play(radio, "KEY07");
  radio.advance(500);
  EXPECT_TRUE(radio.unsolicited().empty()) << "not asked for";
  radio.talk("1648", 300);
  play(radio, "IDN");
  radio.advance(20);
  EXPECT_TRUE(radio.unsolicited().empty());
  EXPECT_EQ(radio.nextLineIn(), 10);
  radio.advance(10);
  EXPECT_EQ(radio.unsolicited(), std::vector<std::string>{"ID S 001648"});
  play(radio, "MD");
  radio.advance(320);
  EXPECT_EQ(radio.unsolicited(), std::vector<std::string>(3, "ID S 001648"));
  radio.advance(100);
  EXPECT_EQ(radio.unsolicited(), std::vector<std::string>{"ID E"});
  play(radio, "IDF");
  radio.advance(500);
  EXPECT_TRUE(radio.unsolicited().empty());
  EXPECT_FALSE(radio.nextLineIn());
}

TEST(Hearing, Bc245StreamsInIdSearch) {
  Radio radio(Model::BC245XLT);
  ASSERT_TRUE(radio.setMode("MD15"));
  radio.talk("05-021", 1000);
  play(radio, "IDN > IDN");
  radio.advance(30);
  const auto lines = radio.unsolicited();
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_EQ(part(lines[0], 5, 99), " 05-021");
}

TEST(Scenes, TourShowsEveryMode) {
  for (const auto& [model, tour] :
       {std::pair<Model, std::string>{Model::BC895XLT, "00 01 02 03 04 05 06 07 08 09 10 15 16 "},
        {Model::BC245XLT, "00 01 02 03 04 05 09 10 11 12 14 "}}) {
    Radio radio(model);
    radio.playScene("tour");
    play(radio, "MA > C001 F01551150*");
    std::set<std::string> seen;
    std::set<std::string> open;
    for (int i = 0; i < 240; ++i) {
      seen.insert(radio.exchange("MD"));
      if (radio.exchange("SQ") == "+") open.insert(radio.exchange("MD"));
      radio.advance(50);
    }
    std::string modes;
    for (const std::string& mode : seen) modes += mode.substr(2) + ' ';
    EXPECT_EQ(modes, tour);
    EXPECT_GE(open.size(), seen.size() - 3) << "nearly each of them with something to hear";
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

TEST(Scenes, ADayHasBusyAndQuietHoursAndFavourites) {
  Radio radio;
  radio.setTempo(1440);
  radio.playScene("day");
  std::array<int, 24> heard{};
  std::map<std::string, std::set<std::string>> levels;
  std::map<std::string, int> visits;
  std::string last;
  for (int minutes = 0; minutes < 20; ++minutes) {
    for (int i = 0; i < 600; ++i) {
      radio.advance(100);
      const std::string channel = radio.exchange("MA").substr(0, 4);
      heard[*radio.hour()] += radio.exchange("SQ") == "+" ? 1 : 0;
      visits[channel] += channel != last ? 1 : 0;
      levels[channel].insert(radio.exchange("SG").substr(0, 4));
      last = channel;
    }
  }
  EXPECT_GT(heard[8], 3 * heard[2]) << "of 500 looks in the hour";
  EXPECT_GT(heard[8], 250);
  EXPECT_GT(heard[2], 0);
  EXPECT_GT(visits["C001"], 5 * visits["C008"]);
  EXPECT_GT(visits["C008"], 3);
  EXPECT_GT(levels["C061"].size(), 8U);
  EXPECT_EQ(radio.hour(), kFirstHour);
}

TEST(Scenes, LongJumpsMeetWhatShortStepsMeet) {
  Radio once, often;
  for (Radio* radio : {&once, &often}) radio->playScene("city");
  once.advance(30000);
  for (int i = 0; i < 3000; ++i) often.advance(10);
  EXPECT_EQ(describe(once.state()), describe(often.state()));
}

}  // namespace
}  // namespace tarnvex::radio
