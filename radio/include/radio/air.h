#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "radio/chance.h"
#include "radio/memory.h"

namespace tarnvex::radio {

/// Milliseconds on the scene's clock.
using Millis = std::int64_t;

/// A station and how often it transmits: a row of a scene. A talkgroup has a bank letter and an ID
/// and gets a voice channel for each transmission; any other station has a frequency.
struct Source {
  Frequency frequency = 0;
  char bank = 0;
  std::string_view id;
  int tone = 0;
  int peak = 24;       ///< signal level, 16 to 26
  int sway = 0;        ///< the most by which the peak varies at random
  Millis firstAt = 0;  ///< counted from the scene's start
  Millis length = 2000;
  Millis gap = 0;  ///< silence until the next transmission; 0 if there is only one
};

/// A station that is on the air for a while.
struct Transmission {
  std::uint64_t serial = 0;  ///< unique while the program runs
  Frequency frequency = 0;
  int bank = -1;  ///< 0 to 9 for a talkgroup, -1 otherwise
  std::string id;
  int tone = 0;
  int peak = 24;
  Millis start = 0;
  Millis end = 0;
};

/// The signal level when nothing is received, and that of a transmission, which rises, flutters and
/// fades.
constexpr int kNoiseLevel = 13;
int levelAt(const Transmission& transmission, Millis now);

/// Everything that is on the air. Deterministic: the same sources, seed and steps of time give the
/// same transmissions.
class Air {
 public:
  explicit Air(std::uint64_t seed) : chance_(seed) {}

  /// Replaces all stations. Lengths and gaps vary by up to the fraction `jitter`.
  void play(std::span<const Source> sources, double jitter, Millis now);
  /// Adds a transmission that isn't part of a scene, starting now.
  void transmit(Transmission transmission, Millis length, Millis now);
  /// Lets time pass until `now`. At a traffic of 0.5, the gaps between transmissions are twice as
  /// long.
  void advance(Millis now, double traffic = 1);
  [[nodiscard]] const std::vector<Transmission>& active() const { return active_; }

 private:
  struct Station {
    Source source;
    double nextAt;  ///< on the clock of the traffic
  };
  Transmission transmissionOf(const Source& source);
  void start(Station& station, Millis now);
  Millis vary(Millis length);

  Chance chance_;
  double jitter_ = 0;
  Millis now_ = 0;
  double trafficClock_ = 0;  ///< its speed is proportional to the traffic
  std::uint64_t serial_ = 0;
  std::vector<Station> stations_;
  std::vector<Transmission> active_;
};

}  // namespace tarnvex::radio
