// What the receiver stops on, lines that the radio sends by itself, and the scenes.
#include <array>
#include <map>
#include <set>

#include "script.h"

namespace tarnvex::radio {
namespace {

TEST(Hearing, StopsForWhatItShouldHear) {
  playEach(
      Model::BC895XLT,
      {"scene steady; SQ > +; wait 400; SG > S023 F01551150; CT > CTN",
       "scene steady; SB BCD; wait 100; MA > NG", "scene steady; MA001; LON; KEY00; MA > NG",
       "scene steady; MA001; CS05; KEY00; MA > NG; KEY20; wait 10; MA > C001*",
       "scene steady; PM001 00000000; MA > NG",
       // a delay
       "receive 1 1000; wait 1100; SQ > -; MA > C001 F01551150 TF DN LF AF RF N13; receive 2 "
       "10000; "
       "wait 1000; MA > C001*; wait 1000; MA > C002*; DLF; wait 8100; MA > NG",
       // priority, off and on
       "receive 2 60000; wait 100; KEY05; receive 1 500; wait 100; MA > C002*; KEY05; MA > C001*",
       // a search goes on from what the user has left or skipped
       "receive 1 100000; KEY09; wait 50; SG > S0*; SQ > +; MA > NG; KEY09; SQ > -; receive 1 "
       "9000; "
       "SQ > +; KEY06 > OK; SQ > -; SS > SS01525500\rSS01588200\rSS01551150\rEND; "
       "receive 1 100000; SQ > -; KEY09; KEY07; KEY06H; KEY09; SQ > +",
       // Auto stores what isn't stored
       "KEY19; receive 1 1000; wait 5000; PM271 > PM271 00000000*; scene city; wait 20000; "
       "PM271 > PM271 01*",
       // IDs
       "KEY13; talk 3216 5000; IC > IC B1 003216; SQ > +; KEY21 B > OK; KEY00 > OK; KEY21 B > OK; "
       "IC > NG; KEY21 B > OK; IC > IC B1 003216; KEY06 > OK; IC > NG; ILD 3216 > OK; wait 8000; "
       "talk 7216 5000; KEY13; KEY13; KEY21 B; IC > NG; KEY09; IDN > IDN S   007216; "
       "ILR 7216 > OK; IDN > IDN E",
       // streamed lines
       "KEY13; KEY09; talk 1648 300; KEY07; wait 500; streamed > ; talk 1648 300; IDN; wait 20; "
       "streamed > ; wait 10; streamed > ID S 001648.; MD; wait 320; "
       "streamed > ID S 001648.ID S 001648.ID S 001648.; wait 100; streamed > ID E.; IDF; wait "
       "500; "
       "streamed > "});
  Radio handheld(Model::BC245XLT);
  ASSERT_TRUE(handheld.setMode("MD15"));
  play(handheld, "talk 05-021 1000; IDN > IDN; wait 30; streamed > ID S 05-021.");
}

/// Watches a radio for `length`, in steps of `step`. Returns the channel and the mode after each
/// step.
std::vector<std::pair<std::string, std::string>> watch(Radio& radio, Millis length, Millis step) {
  std::vector<std::pair<std::string, std::string>> looks;
  for (Millis at = 0; at < length; at += step) {
    looks.emplace_back(radio.exchange("MA").substr(0, 4), radio.exchange("MD"));
    radio.advance(step);
  }
  return looks;
}

TEST(Scenes, TourShowsEveryMode) {
  for (const auto& [model, tour] :
       {std::pair<Model, std::string>{Model::BC895XLT, "00 01 02 03 04 05 06 07 08 09 10 15 16 "},
        {Model::BC245XLT, "00 01 02 03 04 05 09 10 11 12 14 "}}) {
    Radio radio(model);
    radio.playScene("tour");
    std::set<std::string> seen;
    for (const auto& [channel, mode] : watch(radio, 12000, 50)) {
      seen.insert(mode);
    }
    std::string modes;
    for (const std::string& mode : seen) {
      modes += mode.substr(2) + ' ';
    }
    EXPECT_EQ(modes, tour);
    play(radio, "MA > C001*");  // and from the start again
  }
}

TEST(Scenes, SameSeedGivesTheSameTraffic) {
  const auto run = [](std::uint64_t seed, double tempo, std::string_view scene) {
    Radio radio(Model::BC895XLT, seed);
    radio.setTempo(tempo);
    radio.playScene(scene);
    return watch(radio, 60000, 100);
  };
  for (const std::string_view scene : {"city", "busy", "day"}) {
    EXPECT_EQ(run(7, 2, scene), run(7, 2, scene));
    EXPECT_NE(run(7, 2, scene), run(8, 2, scene));
  }
  EXPECT_NE(run(7, 1, "city"), run(7, 2, "city"));
  Radio once, often;
  once.playScene("city");
  often.playScene("city");
  once.advance(30000);
  watch(often, 30000, 10);
  EXPECT_EQ(describe(once.state()), describe(often.state()));
}

TEST(Scenes, ADayHasBusyAndQuietHoursAndFavourites) {
  Radio radio;
  radio.setTempo(1440);
  radio.playScene("day");
  std::array<int, 24> heard{};
  std::map<std::string, int> visits;
  std::set<std::string> levels;
  std::string last;
  for (int i = 0; i < 20 * 600; ++i) {
    radio.advance(100);
    const std::string channel = radio.exchange("MA").substr(0, 4);
    heard[*radio.hour()] += radio.exchange("SQ") == "+" ? 1 : 0;
    visits[channel] += channel != last ? 1 : 0;
    levels.insert(channel == "C061" ? radio.exchange("SG").substr(0, 4) : "");
    last = channel;
  }
  EXPECT_GT(heard[8], 250) << "of 500 samples in that hour";
  EXPECT_GT(heard[8], 3 * heard[2]);
  EXPECT_GT(heard[2], 0);
  EXPECT_GT(visits["C001"], 5 * visits["C008"]);
  EXPECT_GT(visits["C008"], 3);
  EXPECT_GT(levels.size(), 8U);
  EXPECT_EQ(radio.hour(), kFirstHour) << "a minute is a day";
}

}  // namespace
}  // namespace tarnvex::radio
