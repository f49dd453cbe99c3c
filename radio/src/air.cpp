#include "radio/air.h"

#include <algorithm>
#include <limits>

#include "radio/built_in_memory.h"

namespace tarnvex::radio {

int levelAt(const Transmission& transmission, Millis now) {
  constexpr Millis kRamp = 200;
  const Millis age = now - transmission.start;
  const Millis left = transmission.end - now;
  if (age < 0 || left <= 0) {
    return kNoiseLevel;
  }
  const int rise = transmission.peak - kNoiseLevel;
  const Millis edge = std::min({age, left, kRamp});
  const int flutter = edge < kRamp ? 0 : static_cast<int>(age / 170 % 3);
  return std::max(kNoiseLevel + static_cast<int>(rise * (edge + 20) / (kRamp + 20)) - flutter,
                  kNoiseLevel + 1);
}

void Air::play(std::span<const Source> sources, double jitter, Millis now) {
  jitter_ = jitter;
  now_ = now;
  trafficClock_ = static_cast<double>(now);
  stations_.clear();
  active_.clear();
  for (const Source& source : sources) {
    stations_.push_back({source, trafficClock_ + static_cast<double>(source.firstAt)});
  }
  advance(now);
}

void Air::transmit(Transmission transmission, Millis length, Millis now) {
  transmission.serial = ++serial_;
  transmission.start = now;
  transmission.end = now + length;
  active_.push_back(std::move(transmission));
}

void Air::advance(Millis now, double traffic) {
  trafficClock_ += static_cast<double>(now - now_) * traffic;
  now_ = now;
  for (Station& station : stations_) {
    while (station.nextAt <= trafficClock_) {
      start(station, now);
    }
  }
  std::erase_if(active_, [now](const Transmission& each) { return each.end <= now; });
}

Transmission Air::transmissionOf(const Source& source) {
  Transmission transmission;
  transmission.tone = source.tone;
  transmission.peak = source.peak;
  if (source.sway > 0) {
    transmission.peak += static_cast<int>(chance_.below(2 * source.sway + 1)) - source.sway;
  }
  transmission.frequency = source.frequency;
  if (source.bank != 0) {
    const auto voices = voiceChannels(source.bank);
    transmission.bank = source.bank - 'A';
    transmission.id = source.id;
    transmission.frequency = voices[(serial_ + 1) % voices.size()];
  }
  return transmission;
}

void Air::start(Station& station, Millis now) {
  const Source& source = station.source;
  Transmission transmission = transmissionOf(source);
  const Millis length = vary(source.length);
  const auto late = static_cast<Millis>(trafficClock_ - station.nextAt);
  transmit(std::move(transmission), length, now - late);
  constexpr double kNever = std::numeric_limits<double>::infinity();
  station.nextAt += source.gap > 0 ? static_cast<double>(length + vary(source.gap)) : kNever;
}

Millis Air::vary(Millis length) {
  if (jitter_ <= 0) {
    return length;
  }
  const double factor = 1 + jitter_ * (2 * chance_.fraction() - 1);
  return std::max<Millis>(1, static_cast<Millis>(length * factor));
}

}  // namespace tarnvex::radio
