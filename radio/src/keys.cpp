#include <array>

#include "radio/commands.h"
#include "radio/entry.h"
#include "radio/lockouts.h"
#include "radio/trunking.h"
#include "radio/tuning.h"

namespace tarnvex::radio {
namespace {

using Line = std::string_view;

std::string keyScan(State& state, Line) {
  const bool ids = followsIds(state.activity) || state.activity == Activity::TrunkSearch;
  state.bankKeyOpen = false;
  enter(state, ids ? Activity::IdScan : Activity::Scan);
  return kOk;
}

std::string keyPriority(State& state, Line) {
  state.switches.priority = !state.switches.priority;
  return kOk;
}

std::string keyPriorityHeld(State& state, Line) {
  if (const int channel = activeChannel(state); channel != 0) {
    state.memory.priorityChannel[bankOf(channel)] = channel;
    return kOk;
  }
  const auto slot = activeSlot(state);
  if (!slot) return kError;
  trunkBank(state).prioritySlot[slot->group] = slot->number;
  return kOk;
}

void stepChannel(State& state, int by) {
  const int channel = (state.channel - 1 + by + kChannels) % kChannels + 1;
  enter(state, Activity::Manual);
  state.channel = channel;
}

void stepSlot(State& state, int by) {
  const int count = groupsOf(state.model) * kSlots;
  const int at = (state.slot.group * kSlots + state.slot.number - 1 + by + count) % count;
  state.slot = {at / kSlots, at % kSlots + 1};
  enter(state, Activity::IdManual);
}

void stepSearch(State& state, int by) {
  const auto at = static_cast<std::int64_t>(state.searchAt) + by * std::int64_t{state.step};
  enter(state, state.activity);
  state.searchAt = at < state.lower   ? state.upper
                   : at > state.upper ? state.lower
                                      : static_cast<Frequency>(at);
}

// The knob: one step in the activities that stand still. False in the others.
bool step(State& state, int by) {
  switch (state.activity) {
    case Activity::Manual:
      stepChannel(state, by);
      return true;
    case Activity::IdManual:
      stepSlot(state, by);
      return true;
    case Activity::SearchHold:
    case Activity::WeatherHold:
      stepSearch(state, by);
      return true;
    default:
      return false;
  }
}

std::string keyHold(State& state, Line) {
  if (step(state, 1)) return kOk;
  const Frequency here = displayedFrequency(state);
  switch (state.activity) {
    case Activity::Scan:
      enter(state, Activity::Manual);
      return kOk;
    case Activity::Search:
    case Activity::Auto:
      enter(state, Activity::SearchHold);
      break;
    case Activity::Weather:
      enter(state, Activity::WeatherHold);
      break;
    case Activity::IdScan:
      enter(state, Activity::IdManual);
      return kOk;
    case Activity::IdSearch:
      holdId(state);
      return kOk;
    case Activity::IdHold:
      return kOk;
    default:
      return kError;
  }
  state.searchAt = here;
  return kOk;
}

std::string keyLimit(State& state, Line) {
  if (step(state, -1)) return kOk;
  const bool lower = state.entry.limit != Entry::Limit::Lower;
  state.entry = {};
  state.entry.limit = lower ? Entry::Limit::Lower : Entry::Limit::Upper;
  return kOk;
}

std::string keyLimitHeld(State& state, Line) {
  state.entry = {};
  state.entry.limit = Entry::Limit::Upper;
  return kOk;
}

// In a search: on to the next; in a held one: released; elsewhere: begun.
std::string keySearch(State& state, Line) {
  switch (state.activity) {
    case Activity::Search:
    case Activity::Auto:
    case Activity::Weather:
    case Activity::TrunkSearch:
    case Activity::IdSearch:
      passOn(state);
      return kOk;
    case Activity::WeatherHold:
      enter(state, Activity::Weather);
      return kOk;
    case Activity::IdHold:
    case Activity::IdScan:
    case Activity::IdManual:
      enter(state, Activity::IdSearch);
      return kOk;
    case Activity::SelectBank:
    case Activity::ProgramTrunk:
      enter(state, Activity::TrunkSearch);
      return kOk;
    default:
      enter(state, Activity::Search);
      return kOk;
  }
}

std::string keyWeather(State& state, Line) {
  if (state.activity == Activity::Weather) {
    passOn(state);
  } else {
    enter(state, Activity::Weather);
  }
  return kOk;
}

std::string keyData(State& state, Line) {
  state.switches.data = !state.switches.data;
  return kOk;
}

std::string keyDelay(State& state, Line) {
  const int channel = activeChannel(state);
  bool* delay = nullptr;
  if (followsIds(state.activity)) delay = &trunkBank(state).delay;
  if (searches(state.activity)) delay = &state.searchDelay;
  if (channel != 0) delay = &state.memory.channels[channel].delay;
  if (delay == nullptr) return kError;
  *delay = !*delay;
  return kOk;
}

std::string keyAccepted(State&, Line) {
  return kOk;
}

std::string keyStep(State& state, Line) {
  state.step = state.step == 50 ? 125 : state.step == 125 ? 250 : 50;
  return kOk;
}

std::string keySend(State& state, Line) {
  if (state.activity == Activity::Send) {
    enter(state, state.resume);
    return kOk;
  }
  if (programsTrunk(state.activity)) return kError;
  state.resume = state.activity;
  enter(state, Activity::Send);
  return kOk;
}

std::string keyAuto(State& state, Line) {
  enter(state, Activity::Auto);
  return kOk;
}

std::string keyTone(State& state, Line) {
  state.switches.ctcss = !state.switches.ctcss;
  return kOk;
}

std::string keyToneHeld(State& state, Line) {
  if (activeChannel(state) == 0) return kError;
  enter(state, Activity::ToneEntry);
  return kOk;
}

std::string keyLight(State& state, Line) {
  state.switches.light = !state.switches.light;
  return kOk;
}

std::string keyLightHeld(State& state, Line) {
  state.switches.autoLight = !state.switches.autoLight;
  return kOk;
}

constexpr std::array kCommon{
    Command{"KEY00", keyScan},       Command{"KEY01", keyManual},
    Command{"KEY02 #", keyDigit},    Command{"KEY02 10", keyDigit},
    Command{"KEY03", keyPoint},      Command{"KEY04", keyEnter},
    Command{"KEY05", keyPriority},   Command{"KEY05H", keyPriorityHeld},
    Command{"KEY06", keyLockout},    Command{"KEY06H", keyLockoutHeld},
    Command{"KEY07", keyHold},       Command{"KEY07H", keyHold},
    Command{"KEY08", keyLimit},      Command{"KEY08H", keyLimitHeld},
    Command{"KEY09", keySearch},     Command{"KEY10", keyWeather},
    Command{"KEY11", keyData},       Command{"KEY12", keyDelay},
    Command{"KEY12H", keyDelay},     Command{"KEY13", keyTrunk},
    Command{"KEY13H", keyTrunkHeld},
};

constexpr std::array kBc895{
    Command{"KEY14", keyLight},     Command{"KEY15", keyStep},   Command{"KEY16", keyAccepted},
    Command{"KEY18", keySend},      Command{"KEY19", keyAuto},   Command{"KEY20", keyTone},
    Command{"KEY20H", keyToneHeld}, Command{"KEY21 @", keyBank}, Command{"KEY22", keyAccepted},
    Command{"KEY23", keyAccepted},
};

constexpr std::array kBc245{
    Command{"KEY14", keyLight},
    Command{"KEY14H", keyLightHeld},
    Command{"KEY15", keyStep},
};

}  // namespace

std::span<const Command> commonKeys() {
  return kCommon;
}
std::span<const Command> bc895Keys() {
  return kBc895;
}
std::span<const Command> bc245Keys() {
  return kBc245;
}

}  // namespace tarnvex::radio
