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

/// Leaves the present stop. Its transmission isn't taken again.
void passOn(State& state);

}  // namespace tarnvex::radio
