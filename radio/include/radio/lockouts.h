#pragma once

#include <string>
#include <string_view>

#include "radio/state.h"

namespace tarnvex::radio {

/// KEY06. In a search it puts the frequency on the skip list and goes on; elsewhere it switches the
/// lockout of the active channel or ID. "ERR" if there is nothing to lock out.
std::string keyLockout(State& state, std::string_view line);
/// KEY06H. In a search it empties the skip list; while IDs are followed it unlocks all IDs;
/// elsewhere it unlocks all channels in use.
std::string keyLockoutHeld(State& state, std::string_view line);

/// "ERR" if the list is full or the value isn't valid. A list has each entry only once.
std::string addSkip(State& state, std::string_view line);
std::string lockId(State& state, std::string_view line);
std::string unlockId(State& state, std::string_view line);

/// BC895XLT: all entries, a line each ("SS08510125", "IL001616"), and the closing "END".
std::string listSkips(State& state, std::string_view line);
std::string listLockedIds(State& state, std::string_view line);
/// BC245XLT: the entry with this number, or "SS00000000" or "IL ------" beyond the last one.
std::string skipNumber(State& state, std::string_view line);
std::string lockedIdNumber(State& state, std::string_view line);

/// For `LO`: the lockout of the active channel or ID.
bool isLockedOut(const State& state);
bool setLockedOut(State& state, bool on);

}  // namespace tarnvex::radio
