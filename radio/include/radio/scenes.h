#pragma once

#include <span>
#include <string_view>

#include "radio/air.h"
#include "radio/model.h"

namespace tarnvex::radio {

/// What the scene's listener does at the radio itself. `argument` is a channel for Manual, a bank
/// index for the ID activities, and unused otherwise. Activities that a model lacks are left out.
struct Step {
  Millis at;
  Activity activity;
  int argument = 0;
};

/// A piece of life. Scenes with a length begin anew when it is over; others go on for ever.
///   quiet    nothing on the air
///   city     traffic on all of the built-in memory; the radio is left to its user
///   busy     the same, with hardly a pause
///   steady   one endless transmission, 155.1150 MHz
///   tour     about ten seconds that walk through every mode
struct Scene {
  std::string_view name;
  Millis length;
  double jitter;
  Millis delay;  ///< how long a stop with delay outlives its transmission
  std::span<const Source> sources;
  std::span<const Step> steps;
};

std::span<const Scene> scenes();
const Scene* sceneNamed(std::string_view name);

}  // namespace tarnvex::radio
