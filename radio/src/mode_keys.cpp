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

// The activity to which the hold key changes a running one.
std::optional<Activity> heldFrom(Activity activity) {
  switch (activity) {
    case Activity::Scan:
      return Activity::Manual;
    case Activity::Search:
    case Activity::Auto:
      return Activity::SearchHold;
    case Activity::Weather:
      return Activity::WeatherHold;
    case Activity::IdScan:
      return Activity::IdManual;
    default:
      return std::nullopt;
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
  if (step(state, 1) || state.activity == Activity::IdHold) {
    return kOk;
  }
  if (state.activity == Activity::IdSearch) {
    holdId(state);
    return kOk;
  }
  const auto held = heldFrom(state.activity);
  if (!held) {
    return kError;
  }
  const Frequency here = displayedFrequency(state);
  enter(state, *held);
  state.searchAt = searches(*held) ? here : state.searchAt;
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
  const bool runs = state.activity == Activity::Search || state.activity == Activity::Auto ||
                    state.activity == Activity::Weather ||
                    state.activity == Activity::TrunkSearch || state.activity == Activity::IdSearch;
  if (runs) {
    passOn(state);
  } else if (state.activity == Activity::WeatherHold) {
    enter(state, Activity::Weather);
  } else if (followsIds(state.activity)) {
    enter(state, Activity::IdSearch);
  } else {
    enter(state, programsTrunk(state.activity) ? Activity::TrunkSearch : Activity::Search);
  }
  return kOk;
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
