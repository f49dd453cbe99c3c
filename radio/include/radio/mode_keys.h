#pragma once

#include <string>
#include <string_view>

#include "radio/state.h"

namespace tarnvex::radio {

/// Keys that take the radio from one activity to another. All return the reply.

/// KEY00: starts the scan, or the ID scan while a trunked system is followed.
std::string keyScan(State& state, std::string_view line);
/// KEY07: one step up (the knob) if the radio stays on something; otherwise holds what it is doing.
std::string keyHold(State& state, std::string_view line);
/// KEY08: one step down if the radio stays on something. Otherwise the next entry is a search
/// limit: the lower one, or after a second press the upper one.
std::string keyLimit(State& state, std::string_view line);
/// KEY08H: the next entry is the upper limit.
std::string keyLimitHeld(State& state, std::string_view line);
/// KEY09: goes on in a running search, releases a held one, or begins one.
std::string keySearch(State& state, std::string_view line);
/// KEY10: starts the weather search, or goes to its next channel.
std::string keyWeather(State& state, std::string_view line);
/// KEY18: enters Send, or returns to the activity before.
std::string keySend(State& state, std::string_view line);
/// KEY19: starts the search that stores what it finds.
std::string keyAuto(State& state, std::string_view line);
/// KEY20H: starts tone entry for the active channel.
std::string keyToneHeld(State& state, std::string_view line);

}  // namespace tarnvex::radio
