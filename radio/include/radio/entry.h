#pragma once

#include <string>
#include <string_view>

#include "radio/state.h"

namespace tarnvex::radio {

/// The keys with which a user keys an entry, and KEY04 and KEY01, which end it. All return the
/// reply.
///
/// Digits are accepted in every mode except Send. The BC245XLT's digits toggle banks while it
/// scans, and pick the bank (0 is bank 10) in the bank step of trunk programming.
std::string keyDigit(State& state, std::string_view line);
/// The point, once per entry. It means "-" while IDs are followed. If nothing has been keyed, the
/// BC245XLT's point key switches the attenuator.
std::string keyPoint(State& state, std::string_view line);

/// What an entry means. The first row that fits counts:
///   bank step of trunk programming    accepts the bank; frequencies follow
///   LIMIT was pressed before          that search limit, in MHz
///   IDs are followed                  the ID of the selected slot; 0 empties the slot
///   tone entry                        the tone of the channel, then back to manual
///   trunk programming                 a frequency for the first free channel of the bank
///   a point, or above 300             a frequency: stored in the manual channel, or, in a search,
///                                     held
///   otherwise                         a channel to go to
///
/// Anything else is answered by "ERR". In any case the entry is cleared.
std::string keyEnter(State& state, std::string_view line);
/// Goes to the channel that was keyed, if any. Otherwise stays on the channel or slot heard last.
std::string keyManual(State& state, std::string_view line);

/// Writes an ID into a slot of the trunked bank. Zeros empty it. False if the bank doesn't take the
/// ID.
bool storeId(State& state, Slot slot, std::string_view text);

}  // namespace tarnvex::radio
