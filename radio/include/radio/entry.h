#pragma once

#include <string>
#include <string_view>

#include "radio/state.h"

namespace tarnvex::radio {

/// The keys of an entry, and KEY04 and KEY01, which end it. All return the reply.
///
/// Digits are taken in every mode but Send; the BC245XLT's digits toggle banks while it scans, and
/// pick the bank (0 is bank 10) in the bank step of trunk programming.
std::string keyDigit(State& state, std::string_view line);
/// One point an entry. It is "-" while IDs are followed. The BC245XLT's point key with nothing
/// keyed switches the attenuator.
std::string keyPoint(State& state, std::string_view line);

/// What an entry means; the first that fits:
///   bank step of trunk programming    the bank is taken, frequencies follow
///   LIMIT pressed before              that search limit, in MHz
///   IDs followed                      the ID of the selected slot; 0 empties the slot
///   tone entry                        the tone of the channel, back to manual
///   trunk programming                 a frequency for the first free channel of the bank
///   a point, or above 300             a frequency: stored in the manual channel, or, in a search,
///                                     held
///   otherwise                         a channel to go to
/// Anything that makes no sense is "ERR". Either way the entry is dropped.
std::string keyEnter(State& state, std::string_view line);
/// Goes to the channel keyed, if one is; else stays on the channel or slot last heard.
std::string keyManual(State& state, std::string_view line);

/// Writes an ID into a slot of the trunked bank; all zeros empty it. False if it is implausible.
bool storeId(State& state, Slot slot, std::string_view text);

}  // namespace tarnvex::radio
