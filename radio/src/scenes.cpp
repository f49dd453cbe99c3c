#include "radio/scenes.h"

#include <algorithm>
#include <array>

namespace tarnvex::radio {
namespace {

constexpr Source station(Frequency frequency, int tone, int peak, Millis firstAt, Millis length,
                         Millis gap) {
  return {frequency, 0, "", tone, peak, 0, firstAt, length, gap};
}

constexpr Source talkgroup(char bank, std::string_view id, int peak, Millis firstAt, Millis length,
                           Millis gap) {
  return {0, bank, id, 0, peak, 0, firstAt, length, gap};
}

constexpr Source swaying(Source source, int sway) {
  source.sway = sway;
  return source;
}

constexpr std::array kCity{
    station(1551150, 13, 25, 0, 3000, 9000),
    station(1544300, 0, 22, 5000, 2500, 14000),
    station(4601250, 0, 26, 8500, 2000, 7000),
    station(1553400, 0, 18, 12000, 4000, 30000),
    station(4539500, 19, 23, 17000, 3000, 19000),
    station(395000, 0, 17, 21000, 2000, 26000),
    station(1512500, 24, 20, 24000, 3000, 33000),
    station(1542800, 16, 24, 30000, 5000, 45000),
    station(1181000, 0, 21, 3500, 1800, 6000),
    station(1197000, 0, 23, 6500, 2200, 8000),
    station(1219000, 0, 24, 10000, 1500, 11000),
    station(1568000, 0, 22, 14000, 2500, 23000),
    station(1566500, 0, 19, 19000, 2000, 28000),
    station(1571000, 0, 25, 26000, 3000, 37000),
    station(1607700, 0, 20, 9000, 4000, 24000),
    station(1611000, 0, 23, 28000, 3000, 31000),
    station(1469400, 12, 22, 15000, 6000, 25000),
    station(1516250, 0, 21, 1000, 1500, 4000),
    station(1545700, 0, 19, 2500, 1500, 5500),
    station(1587450, 0, 23, 4000, 2000, 6500),
    station(1525500, 0, 20, 500, 3000, 3000),
    station(1625500, 0, 26, 0, 3600000, 10),
    station(1624000, 0, 18, 0, 3600000, 10),
    station(1624750, 0, 16, 7000, 20000, 20000),
    talkgroup('B', "001616", 25, 0, 2500, 4000),
    talkgroup('B', "001648", 24, 1500, 2000, 5000),
    talkgroup('B', "003216", 25, 3000, 3000, 8000),
    talkgroup('B', "003280", 23, 6000, 2500, 12000),
    talkgroup('B', "004848", 22, 8000, 1500, 6000),
    talkgroup('B', "007216", 24, 2000, 2000, 7000),
    talkgroup('B', "006416", 24, 2500, 2000, 5000),
    talkgroup('B', "009616", 21, 11000, 4000, 30000),
    talkgroup('H', "04-032", 23, 500, 2000, 4000),
    talkgroup('H', "02-115", 24, 3000, 2500, 6000),
    talkgroup('H', "05-021", 22, 5000, 2000, 8000),
};

constexpr std::array kBusy{
    station(1551150, 13, 25, 0, 900, 700),       station(1544300, 0, 22, 300, 700, 900),
    station(4601250, 0, 26, 500, 800, 1100),     station(1181000, 0, 21, 200, 600, 800),
    station(1568000, 0, 22, 700, 900, 1300),     station(1607700, 0, 20, 900, 700, 1700),
    station(1516250, 0, 21, 100, 500, 700),      station(1587450, 0, 23, 400, 500, 900),
    station(1625500, 0, 26, 0, 3600000, 10),     talkgroup('B', "001616", 25, 0, 600, 500),
    talkgroup('B', "003216", 25, 300, 700, 600), talkgroup('B', "007216", 24, 500, 600, 800),
    talkgroup('H', "04-032", 23, 200, 700, 600), talkgroup('H', "05-021", 22, 600, 500, 700),
};

constexpr std::array kDay{
    swaying(station(1551150, 13, 25, 200, 1400, 4500), 1),     // the favourites
    swaying(station(1181000, 0, 22, 900, 1100, 5000), 3),      //
    swaying(station(1607700, 0, 20, 2500, 1600, 7000), 3),     //
    swaying(station(4601250, 0, 24, 1800, 1200, 8000), 2),     // now and then
    swaying(station(1544300, 0, 22, 4000, 1500, 11000), 3),    //
    swaying(station(1568000, 0, 21, 3200, 1300, 12000), 4),    //
    swaying(station(1197000, 0, 23, 5200, 1200, 13000), 2),    //
    swaying(station(4539500, 19, 22, 6000, 1500, 16000), 3),   //
    swaying(station(1516250, 0, 20, 1300, 1200, 6000), 3),     //
    swaying(station(1587450, 0, 22, 2700, 1000, 7000), 3),     //
    swaying(station(1553400, 0, 18, 9000, 1800, 21000), 2),    // seldom
    swaying(station(395000, 0, 18, 14000, 1100, 25000), 2),    //
    swaying(station(1512500, 24, 19, 12000, 1400, 27000), 3),  //
    swaying(station(1571000, 0, 24, 17000, 2200, 30000), 1),   //
    swaying(station(1542800, 16, 24, 20000, 3500, 40000), 2),  //
    swaying(station(1469400, 12, 22, 11000, 3000, 18000), 3),  //
    station(1625500, 0, 26, 0, 3600000, 10),                   //
    swaying(talkgroup('B', "001616", 24, 100, 1300, 2500), 2),
    swaying(talkgroup('B', "003216", 24, 1500, 1500, 4500), 2),
    swaying(talkgroup('B', "001648", 22, 2600, 1200, 6000), 3),
    swaying(talkgroup('B', "007216", 23, 3900, 1100, 8000), 3),
    swaying(talkgroup('B', "004848", 21, 5000, 1000, 11000), 3),
    swaying(talkgroup('B', "003280", 23, 8000, 1600, 15000), 2),
    swaying(talkgroup('B', "009616", 20, 15000, 2500, 30000), 3),
    swaying(talkgroup('H', "04-032", 22, 300, 1300, 3500), 3),
    swaying(talkgroup('H', "02-115", 23, 2000, 1500, 6000), 2),
    swaying(talkgroup('H', "05-021", 21, 4500, 1200, 9000), 3),
};

constexpr std::array<double, 24> kDayHours{0.12, 0.06, 0.04, 0.04, 0.06, 0.2,  0.5, 0.9,
                                           1,    0.8,  0.5,  0.4,  0.5,  0.5,  0.4, 0.5,
                                           0.8,  1,    0.9,  0.6,  0.45, 0.35, 0.3, 0.2};

constexpr std::array kSteady{station(1551150, 13, 25, 0, 1000000000000, 10)};

constexpr std::array kTourTraffic{
    station(1551150, 13, 26, 0, 1400, 20000),         // scan, priority, tone
    station(1544300, 0, 19, 1600, 500, 20000),        // scan
    station(1181000, 0, 23, 2200, 600, 20000),        // manual
    station(1516250, 0, 21, 2900, 300, 20000),        // search: not in memory
    station(1553400, 0, 24, 3250, 500, 20000),        // search: in memory
    station(1587450, 0, 22, 3700, 700, 20000),        // search, then hold
    station(1625500, 0, 25, 4400, 900, 20000),        // weather
    talkgroup('B', "007216", 20, 6050, 300, 20000),   // trunked search
    talkgroup('B', "001616", 25, 6450, 500, 20000),   // ID scan
    talkgroup('B', "003216", 22, 7000, 700, 20000),   // ID scan, then manual
    talkgroup('B', "007216", 24, 8050, 400, 20000),   // ID search: not in memory
    talkgroup('B', "001648", 21, 8500, 1100, 20000),  // ID search, then hold
    station(1542800, 16, 20, 10100, 300, 20000),      // auto
    station(1197000, 0, 24, 10500, 500, 20000),       // manual
};

// Weather and Auto are each followed by a manual step, which clears what they leave on a display.
// Auto comes late, since a display may go on showing it.
constexpr std::array kTourSteps{
    Step{0, Activity::Scan},           Step{2200, Activity::Manual, 61},
    Step{2850, Activity::Search},      Step{4000, Activity::SearchHold},
    Step{4400, Activity::Weather},     Step{4900, Activity::WeatherHold},
    Step{5300, Activity::Manual, 61},  Step{6050, Activity::TrunkSearch, 1},
    Step{6400, Activity::IdScan, 1},   Step{7350, Activity::IdManual, 1},
    Step{7950, Activity::IdSearch, 1}, Step{9050, Activity::IdHold, 1},
    Step{9700, Activity::Send},        Step{10050, Activity::Auto},
    Step{10450, Activity::Manual, 62}, Step{11150, Activity::Scan},
};

// With the usual delay, a scan would never leave a station that answers in time, and the tour would
// be over before it had shown anything else.
constexpr Millis kDelay = 2000, kDayDelay = 500, kShortDelay = 100;

constexpr std::array kScenes{
    Scene{"quiet", 0, 0, kDelay, {}, {}},
    Scene{"city", 0, 0.4, kDelay, kCity, {}},
    Scene{"busy", 0, 0.3, kShortDelay, kBusy, {}},
    Scene{"day", 0, 0.4, kDayDelay, kDay, {}, kDayHours},
    Scene{"steady", 0, 0, kDelay, kSteady, {}},
    Scene{"tour", 12000, 0, kShortDelay, kTourTraffic, kTourSteps},
};

}  // namespace

std::span<const Scene> scenes() {
  return kScenes;
}

const Scene* sceneNamed(std::string_view name) {
  const auto* const scene = std::ranges::find(kScenes, name, &Scene::name);
  return scene == kScenes.end() ? nullptr : scene;
}

}  // namespace tarnvex::radio
