#include "sample_log/sample_log.h"

#include <array>
#include <random>

namespace tarnvex::tools {
namespace {

constexpr double kMinute = 60'000;
constexpr double kDay = 24 * 60 * kMinute;

/// A source that is heard at random times of the day.
struct Source {
  std::int64_t frequency;
  const char* talkgroup;
  const char* tag;
  int bank;
  int channel;
  double tone;
  int bars;
  /// The average time between two receptions in the busiest hours.
  double gapMinutes;
  double seconds;
};

constexpr std::array kSources = {
    Source{155'115'000, "", "Fire dispatch", 1, 1, 103.5, 4, 9, 14},
    Source{154'430'000, "", "Fire ground", 1, 2, 0, 2, 34, 9},
    Source{460'125'000, "", "Police dispatch", 1, 3, 0, 4, 6, 7},
    Source{155'340'000, "", "Hospital net", 1, 4, 0, 3, 48, 22},
    Source{453'950'000, "", "Ambulance", 1, 5, 127.3, 3, 21, 12},
    Source{151'250'000, "", "Park rangers", 1, 7, 151.4, 2, 75, 8},
    Source{118'100'000, "", "Airport tower", 3, 61, 0, 3, 4, 5},
    Source{119'700'000, "", "Approach north", 3, 62, 0, 2, 11, 6},
    Source{121'900'000, "", "Airport ground", 3, 63, 0, 2, 15, 5},
    Source{856'212'500, "1616", "Police north", 2, 1, 0, 4, 10, 8},
    Source{857'212'500, "1648", "Police south", 2, 2, 0, 3, 14, 8},
    Source{858'212'500, "3216", "Fire main", 2, 3, 0, 4, 26, 11},
    Source{158'745'000, "", "", 0, 0, 0, 1, 55, 4},
};

/// How busy each hour is, from 0 to 1.
constexpr std::array kBusy = {0.12, 0.08, 0.06, 0.06, 0.1, 0.22, 0.45, 0.8,  0.95, 0.85, 0.75, 0.8,
                              0.9,  0.8,  0.75, 0.85, 1.0, 0.95, 0.8,  0.65, 0.55, 0.45, 0.32, 0.2};

monitor::Reception receptionOf(const Source& source, std::int64_t started, double share) {
  monitor::Reception reception;
  reception.started = started;
  reception.seconds = source.seconds * (0.3 + 1.4 * share);
  reception.heard = {"MD00",      source.frequency, source.talkgroup, source.tag,
                     source.bank, source.channel,   source.tone,      source.bars};
  reception.radio = "BC895XLT";
  if (source.channel == 1) {
    reception.recording = std::string(source.tag) + ".wav";
  }
  return reception;
}

}  // namespace

void writeSampleDay(monitor::ReceptionStore& store, std::int64_t midnight) {
  std::mt19937 random(7);
  const auto share = [&random] { return static_cast<double>(random()) / std::mt19937::max(); };
  // Below the numbers of the receptions that the program itself logs.
  int number = -1;
  for (const Source& source : kSources) {
    double time = 0;
    while (time < kDay) {
      const auto hour = static_cast<std::size_t>(time / (60 * kMinute));
      time += source.gapMinutes * kMinute * (0.2 + 1.6 * share()) / kBusy.at(hour);
      if (time < kDay) {
        store.write(number--,
                    receptionOf(source, midnight + static_cast<std::int64_t>(time), share()), true);
      }
    }
  }
}

}  // namespace tarnvex::tools
