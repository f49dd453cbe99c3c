#pragma once

#include <string>
#include <string_view>

#include "radio/state.h"

namespace tarnvex::radio {

/// Keys that take the radio from one activity to another. All return the reply.

/// KEY00: the scan, or the ID scan while a trunked system is followed.
std::string keyScan(State& state, std::string_view line);
/// KEY07: one step up (the knob) where the radio stands still; holds what runs.
std::string keyHold(State& state, std::string_view line);
/// KEY08: one step down where the radio stands still; else the next entry is a search limit, the
/// lower one first, the upper one at the second press.
std::string keyLimit(State& state, std::string_view line);
/// KEY08H: the next entry is the upper limit.
std::string keyLimitHeld(State& state, std::string_view line);
/// KEY09: goes on to the next in a search, releases a held one, else begins one.
std::string keySearch(State& state, std::string_view line);
/// KEY10: the weather search, or its next channel.
std::string keyWeather(State& state, std::string_view line);
/// KEY18: into Send, and back to where it was.
std::string keySend(State& state, std::string_view line);
/// KEY19: the search that stores what it finds.
std::string keyAuto(State& state, std::string_view line);
/// KEY20H: tone entry for the active channel.
std::string keyToneHeld(State& state, std::string_view line);

}  // namespace tarnvex::radio
