#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "radio/chance.h"
#include "radio/memory.h"

namespace tarnvex::radio {

/// Milliseconds of the scene's clock.
using Millis = std::int64_t;

/// A station and how often it transmits: a row of a scene. A talkgroup has a bank letter and an ID
/// and gets a voice channel for each transmission; any other station has a frequency.
struct Source {
  Frequency frequency = 0;
  char bank = 0;
  std::string_view id;
  int tone = 0;
  int peak = 24;       ///< signal level, 16 to 26
  int sway = 0;        ///< how far the peak is from that at most, by chance
  Millis firstAt = 0;  ///< after the scene's start
  Millis length = 2000;
  Millis gap = 0;  ///< silence until the next transmission; 0: once only
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

/// The level shown when nothing is received, and the level of a transmission: it rises, flutters
/// and fades.
constexpr int kNoiseLevel = 13;
int levelAt(const Transmission& transmission, Millis now);

/// All that is on the air. Deterministic: the same sources, seed and steps of time give the same
/// transmissions.
class Air {
 public:
  explicit Air(std::uint64_t seed) : chance_(seed) {}

  /// Replaces all stations. Lengths and gaps vary by up to the fraction `jitter`.
  void play(std::span<const Source> sources, double jitter, Millis now);
  /// A transmission from outside any scene, starting now.
  void transmit(Transmission transmission, Millis length, Millis now);
  /// Up to now, with so much traffic: at 0.5, the gaps between transmissions take twice as long.
  void advance(Millis now, double traffic = 1);
  [[nodiscard]] const std::vector<Transmission>& active() const { return active_; }

 private:
  struct Station {
    Source source;
    double nextAt;  ///< on the clock of the traffic
  };
  void start(Station& station, Millis now);
  Millis vary(Millis length);

  Chance chance_;
  double jitter_ = 0;
  Millis now_ = 0;
  double trafficClock_ = 0;  ///< runs as fast as there is traffic
  std::uint64_t serial_ = 0;
  std::vector<Station> stations_;
  std::vector<Transmission> active_;
};

}  // namespace tarnvex::radio
