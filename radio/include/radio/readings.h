#pragma once

#include "radio/state.h"

namespace tarnvex::radio {

/// What a radio reports about itself. What it hears is decided in tuning.h.

/// The signal level of an `SG` reply.
int signalLevel(const State& state);
/// Where the receiver is: on the frequency of the stop, or otherwise of the channel, the search or
/// the control channel.
Frequency displayedFrequency(const State& state);
/// The channel that `MA` reports: the one on which a scan has stopped, or the manual one. 0 if
/// there is none.
int activeChannel(const State& state);
/// The ID that is heard, held or selected. Empty if there is none.
std::string activeId(const State& state);
/// The slot that holds `activeId`, if any.
std::optional<Slot> activeSlot(const State& state);
/// The first slot with that ID in the first `groups` groups of a bank.
std::optional<Slot> slotOf(const TrunkBank& bank, std::string_view id, int groups);

bool isSkipped(const State& state, Frequency frequency);
bool isLockedId(const State& state, std::string_view id);

/// The delay switch of the trunked bank, the search or the channel, whichever is in use. Null if
/// none is.
bool* delaySwitch(State& state);

/// The weather channels of the service search.
constexpr Frequency kWeatherFirst = 1624000, kWeatherLast = 1625500;

}  // namespace tarnvex::radio
