#pragma once

#include "radio/state.h"

namespace tarnvex::radio {

/// Lets the receiver follow what is on the air at `state.now`. Called after every step of time and
/// every command. A scan stops on the first transmission that a channel of its banks wants
/// (frequency, lockout, tone), a search on the first within its limits that isn't skipped, an ID
/// scan on the IDs of its groups, an ID search on any ID of the system. With priority on, a
/// transmission on a priority channel takes over. With delay, a stop lasts `state.delay` longer
/// than its transmission, with the squelch closed.
void tune(State& state, const Air& air);

/// Enters ID hold on the ID heard last, or else on the first of the bank.
void holdId(State& state);

/// Leaves the present stop; its transmission isn't taken again.
void passOn(State& state);

int signalLevel(const State& state);
/// Where the receiver stands: the stop, else the channel, search or control-channel frequency.
Frequency displayedFrequency(const State& state);
/// The channel that `MA` reports: the one stopped on, or the manual one. 0 for none.
int activeChannel(const State& state);
/// The ID that is heard, held or selected; empty for none.
std::string activeId(const State& state);
/// The slot that holds `activeId`, if one does.
std::optional<Slot> activeSlot(const State& state);
std::optional<Slot> slotOf(const TrunkBank& bank, std::string_view id, int groups);

bool isSkipped(const State& state, Frequency frequency);
bool isLockedId(const State& state, std::string_view id);

}  // namespace tarnvex::radio
