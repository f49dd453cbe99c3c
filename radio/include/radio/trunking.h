#pragma once

#include <string>
#include <string_view>

#include "radio/state.h"

namespace tarnvex::radio {

/// KEY13. Ends trunk programming, or leaves trunking for the scan. Otherwise starts it:
///   BC895XLT  at once, in the bank used last; until the next KEY00 a bank key picks another bank
///   BC245XLT  in the first scanned bank with a trunked channel ("ERR" without one), after 1.5 s
///             of looking for the control channel
std::string keyTrunk(State& state, std::string_view line);
/// KEY13H: starts trunk programming with its bank step. Then KEY21 or KEY02 picks the bank, KEY04
/// accepts it, `PM` or keyed frequencies fill it with trunked channels, and KEY13 ends.
std::string keyTrunkHeld(State& state, std::string_view line);
/// KEY21: picks the bank for trunk programming or for trunking (see keyTrunk). In a scan it
/// switches a bank or group on or off, but not the last one off. Otherwise it goes to the bank's or
/// group's first channel or slot.
std::string keyBank(State& state, std::string_view line);

/// Chooses the bank in the bank step of trunk programming; -1 for none.
void chooseProgramBank(State& state, int bank);
/// Starts trunk programming of a bank directly, as "TR" does; KEY13 ends it.
void programTrunk(State& state, int bank);
/// Switches a bank of the scan on or off. False if it is the only one that is on.
bool toggleBank(std::array<bool, kBanks>& banks, int bank);

/// How long a BC245XLT looks for a control channel.
constexpr Millis kAcquire = 1500;

}  // namespace tarnvex::radio
