#pragma once

#include <string>
#include <string_view>

#include "radio/state.h"

namespace tarnvex::radio {

/// KEY06. Searches: puts the frequency on the skip list and goes on. Elsewhere: switches the
/// lockout of the active channel or ID. "ERR" with nothing to lock out.
std::string keyLockout(State& state, std::string_view line);
/// KEY06H. Searches: empties the skip list; IDs: unlocks all; else: all channels in use.
std::string keyLockoutHeld(State& state, std::string_view line);

/// "ERR" if the list is full or the value makes no sense. A list
/// holds an entry once.
std::string addSkip(State& state, std::string_view line);
std::string lockId(State& state, std::string_view line);
std::string unlockId(State& state, std::string_view line);

/// BC895XLT: all entries, a line each ("SS08510125", "IL001616"), closed by "END".
std::string listSkips(State& state, std::string_view line);
std::string listLockedIds(State& state, std::string_view line);
/// BC245XLT: the entry of that number; "SS00000000" or "IL ------" after the last.
std::string skipNumber(State& state, std::string_view line);
std::string lockedIdNumber(State& state, std::string_view line);

/// `LO`: of the active channel or ID.
bool isLockedOut(const State& state);
bool setLockedOut(State& state, bool on);

}  // namespace tarnvex::radio
