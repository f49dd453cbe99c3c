#pragma once

#include <span>
#include <string_view>

#include "radio/air.h"
#include "radio/model.h"

namespace tarnvex::radio {

/// What a scene does at the radio itself. `argument` is a channel for Manual, a bank index for the
/// ID activities, and otherwise unused. Activities that a model doesn't have are skipped.
struct Step {
  Millis at;
  Activity activity;
  int argument = 0;
};

/// What is on the air and what happens at the radio. A scene with a length starts again at its end;
/// the others go on.
///   quiet    nothing on the air
///   city     traffic on all of the built-in memory; the radio is left to its user
///   busy     the same, with hardly a pause
///   day      a day from six in the morning on: rush hours, a quiet night, favourites, near and
///            far stations. Only its clock follows the tempo, so that 1440 makes the day last a
///            minute; transmissions keep their length
///   steady   one endless transmission, 155.1150 MHz
///   tour     every mode in twelve seconds
struct Scene {
  std::string_view name;
  Millis length;
  double jitter;
  Millis delay;  ///< how much longer than its transmission a stop with delay lasts
  std::span<const Source> sources;
  std::span<const Step> steps;
  /// The amount of traffic in each hour of the day, 0 to 1. Empty for scenes without a clock.
  std::span<const double> hours{};
};

/// The highest tempo that a user can set.
constexpr double kMostTempo = 10000;

/// The hour of the day at which a scene with a clock begins.
constexpr int kFirstHour = 6;

std::span<const Scene> scenes();
const Scene* sceneNamed(std::string_view name);

}  // namespace tarnvex::radio
