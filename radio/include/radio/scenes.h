#pragma once

#include <span>
#include <string_view>

#include "radio/air.h"
#include "radio/model.h"

namespace tarnvex::radio {

/// What a scene does at the radio itself. `argument` is a channel for Manual, a bank index for the
/// ID activities, and unused otherwise. Activities that a model lacks are left out.
struct Step {
  Millis at;
  Activity activity;
  int argument = 0;
};

/// What is on the air and what happens at the radio. A scene with a length starts again when it is
/// over; the others go on.
///   quiet    nothing on the air
///   city     traffic on all of the built-in memory; the radio is left to its user
///   busy     the same, with hardly a pause
///   day      a day from six in the morning on: rush hours, a quiet night, favourites, stations
///   near
///            and far. The tempo is that of its clock, so that 1440 makes a minute of the day;
///            transmissions keep their length
///   steady   one endless transmission, 155.1150 MHz
///   tour     twelve seconds that walk through every mode
struct Scene {
  std::string_view name;
  Millis length;
  double jitter;
  Millis delay;  ///< how long a stop with delay outlives its transmission
  std::span<const Source> sources;
  std::span<const Step> steps;
  /// How much traffic there is in each hour of the day, 0 to 1; empty for scenes without a clock.
  std::span<const double> hours{};
};

/// The highest speed of a scene or its clock that a user can ask for.
constexpr double kMostTempo = 10000;

/// The hour of the day at which a scene with a clock begins.
constexpr int kFirstHour = 6;

std::span<const Scene> scenes();
const Scene* sceneNamed(std::string_view name);

}  // namespace tarnvex::radio
