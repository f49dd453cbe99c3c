#pragma once

#include "radio/state.h"

namespace tarnvex::radio {

/// Lets the receiver follow what is on the air at `state.now`. Called after every step of time and
/// every command. A scan stops on the first transmission that fits a channel of its banks
/// (frequency, lockout, tone), a search on the first one within its limits that isn't skipped, an
/// ID scan on an ID of its groups, and an ID search on any ID of the system. If priority is on, a
/// transmission on a priority channel takes over. With delay, a stop lasts `state.delay` longer
/// than its transmission, with the squelch closed.
void tune(State& state, const Air& air);

/// Enters ID hold on the ID heard last, or otherwise on the first of the bank.
void holdId(State& state);

/// Leaves the present stop. The receiver doesn't stop on its transmission again.
void passOn(State& state);

}  // namespace tarnvex::radio
