// What is on the air in the scenes.
#include <gtest/gtest.h>

#include <array>
#include <map>
#include <set>

#include "radio/radio.h"

namespace tarnvex::radio {
namespace {

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
