#include "radio/readings.h"

#include <algorithm>

namespace tarnvex::radio {

int signalLevel(const State& state) {
  return state.stop && state.open ? levelAt(*state.stop, state.now) : kNoiseLevel;
}

Frequency displayedFrequency(const State& state) {
  if (state.stop) {
    return state.stop->frequency;
  }
  if (searches(state.activity)) {
    const bool weather = state.activity == Activity::Weather;
    return weather ? kWeatherFirst + 250 * (state.now / 100 % 7) : state.searchAt;
  }
  const bool programs = programsTrunk(state.activity) && state.programBank >= 0;
  const bool follows = followsIds(state.activity) || state.activity == Activity::TrunkSearch;
  const int bank = programs ? state.programBank : state.trunkBank;
  const Frequency control = programs || follows ? controlChannel(state.memory, bank) : 0;
  return control != 0 ? control : state.memory.channels[state.channel].frequency;
}

int activeChannel(const State& state) {
  const bool chosen = state.activity == Activity::Manual || state.activity == Activity::ToneEntry;
  const bool stopped = state.activity == Activity::Scan && state.stop;
  return chosen || stopped ? state.channel : 0;
}

std::string activeId(const State& state) {
  if (state.activity == Activity::IdManual) {
    return trunkBank(state).ids[state.slot.group][state.slot.number - 1];
  }
  return followsIds(state.activity) && state.stop ? state.stop->id : "";
}

std::optional<Slot> activeSlot(const State& state) {
  if (activeId(state).empty()) {
    return std::nullopt;
  }
  if (state.activity == Activity::IdManual) {
    return state.slot;
  }
  return slotOf(trunkBank(state), activeId(state), groupsOf(state.model));
}

std::optional<Slot> slotOf(const TrunkBank& bank, std::string_view id, int groups) {
  for (int group = 0; group < groups && !id.empty(); ++group) {
    for (int slot = 1; slot <= kSlots; ++slot) {
      if (bank.ids[group][slot - 1] == id) {
        return Slot{group, slot};
      }
    }
  }
  return std::nullopt;
}

bool isSkipped(const State& state, Frequency frequency) {
  const auto& skips = state.memory.skips;
  return std::ranges::find(skips, frequency) != skips.end();
}

bool isLockedId(const State& state, std::string_view id) {
  const auto& locked = state.memory.lockedIds;
  return std::ranges::find(locked, id) != locked.end();
}

bool* delaySwitch(State& state) {
  if (followsIds(state.activity)) {
    return &trunkBank(state).delay;
  }
  if (searches(state.activity)) {
    return &state.searchDelay;
  }
  const int channel = activeChannel(state);
  return channel == 0 ? nullptr : &state.memory.channels[channel].delay;
}

}  // namespace tarnvex::radio
