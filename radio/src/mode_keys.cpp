#include "radio/mode_keys.h"

#include "radio/commands.h"
#include "radio/readings.h"
#include "radio/tuning.h"

namespace tarnvex::radio {
namespace {

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

// Turns the knob by one step. False in activities that have nothing to step through.
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

}  // namespace

std::string keyScan(State& state, std::string_view) {
  const bool ids = followsIds(state.activity) || state.activity == Activity::TrunkSearch;
  state.bankKeyOpen = false;
  enter(state, ids ? Activity::IdScan : Activity::Scan);
  return kOk;
}

std::string keyHold(State& state, std::string_view) {
  if (step(state, 1)) {
    return kOk;
  }
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

std::string keyLimit(State& state, std::string_view) {
  if (step(state, -1)) {
    return kOk;
  }
  const bool lower = state.entry.limit != Entry::Limit::Lower;
  state.entry = {};
  state.entry.limit = lower ? Entry::Limit::Lower : Entry::Limit::Upper;
  return kOk;
}

std::string keyLimitHeld(State& state, std::string_view) {
  state.entry = {};
  state.entry.limit = Entry::Limit::Upper;
  return kOk;
}

std::string keySearch(State& state, std::string_view) {
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

std::string keyWeather(State& state, std::string_view) {
  if (state.activity == Activity::Weather) {
    passOn(state);
  } else {
    enter(state, Activity::Weather);
  }
  return kOk;
}

std::string keySend(State& state, std::string_view) {
  if (state.activity == Activity::Send) {
    enter(state, state.resume);
    return kOk;
  }
  if (programsTrunk(state.activity)) {
    return kError;
  }
  state.resume = state.activity;
  enter(state, Activity::Send);
  return kOk;
}

std::string keyAuto(State& state, std::string_view) {
  enter(state, Activity::Auto);
  return kOk;
}

std::string keyToneHeld(State& state, std::string_view) {
  if (activeChannel(state) == 0) {
    return kError;
  }
  enter(state, Activity::ToneEntry);
  return kOk;
}

}  // namespace tarnvex::radio
