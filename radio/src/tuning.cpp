#include "radio/tuning.h"

#include <algorithm>

#include "radio/readings.h"

namespace tarnvex::radio {
namespace {

bool toneFits(const State& state, const Channel& channel, const Transmission& transmission) {
  return channel.tone == 0 || !state.switches.ctcss || channel.tone == transmission.tone;
}

bool scans(const State& state, int number) {
  const Channel& channel = state.memory.channels[number];
  return state.scanBanks[bankOf(number)] && channel.frequency != 0 && !channel.lockout &&
         !channel.trunked;
}

// The first channel in the scan that fits the transmission. 0 if there is none.
int scannedChannel(const State& state, const Transmission& transmission) {
  for (int number = 1; number <= kChannels; ++number) {
    const Channel& channel = state.memory.channels[number];
    if (channel.frequency == transmission.frequency && scans(state, number) &&
        toneFits(state, channel, transmission)) {
      return number;
    }
  }
  return 0;
}

bool isScannedId(const State& state, std::string_view id) {
  const TrunkBank& bank = trunkBank(state);
  const auto slot = slotOf(bank, id, groupsOf(state.model));
  return slot && bank.scanned[slot->group] && !isLockedId(state, id);
}

bool isWithin(const State& state, Frequency frequency) {
  return frequency >= state.lower && frequency <= state.upper && !isSkipped(state, frequency);
}

bool isOnChannel(const State& state, const Transmission& each) {
  const Channel& channel = state.memory.channels[state.channel];
  return each.frequency == channel.frequency && toneFits(state, channel, each);
}

// Whether an activity that works on frequencies stops on the transmission.
bool wantsFrequency(const State& state, const Transmission& each) {
  const bool fresh = each.serial != state.passed;
  switch (state.activity) {
    case Activity::Scan:
      return fresh && each.bank < 0 && scannedChannel(state, each) != 0;
    case Activity::Manual:
    case Activity::ToneEntry:
      return isOnChannel(state, each);
    case Activity::Search:
    case Activity::Auto:
      return fresh && isWithin(state, each.frequency);
    case Activity::Weather:
      return fresh && each.frequency >= kWeatherFirst && each.frequency <= kWeatherLast;
    case Activity::SearchHold:
    case Activity::WeatherHold:
    case Activity::TrunkSearchHold:
      return each.frequency == state.searchAt;
    default:
      return false;
  }
}

// Whether an activity that works on IDs stops on the transmission.
bool wantsId(const State& state, const Transmission& each) {
  const bool fresh = each.serial != state.passed;
  switch (state.activity) {
    case Activity::TrunkSearch:
      return fresh;
    case Activity::IdSearch:
      return fresh && !isLockedId(state, each.id);
    case Activity::IdScan:
      return fresh && isScannedId(state, each.id);
    case Activity::IdHold:
      return each.id == state.heldId;
    case Activity::IdManual:
      return each.id == activeId(state);
    default:
      return false;
  }
}

bool wants(const State& state, const Transmission& each) {
  return wantsFrequency(state, each) || (each.bank == state.trunkBank && wantsId(state, each));
}

bool delays(const State& state) {
  return state.activity == Activity::Scan     ? state.memory.channels[state.channel].delay
         : state.activity == Activity::IdScan ? trunkBank(state).delay
                                              : searches(state.activity) && state.searchDelay;
}

void storeFound(Memory& memory, Frequency frequency) {
  const auto& channels = memory.channels;
  const auto holds = [frequency](const Channel& each) { return each.frequency == frequency; };
  if (std::ranges::any_of(channels, holds)) {
    return;
  }
  for (int number = kChannels - kBankSize + 1; number <= kChannels; ++number) {
    Channel& channel = memory.channels[number];
    if (channel.frequency != 0) {
      continue;
    }
    channel = {frequency, false, true, false, false, 0};
    return;
  }
}

void stopOn(State& state, const Transmission& transmission) {
  state.stop = transmission;
  state.open = true;
  if (state.activity == Activity::Auto) {
    storeFound(state.memory, transmission.frequency);
  }
  if (state.activity == Activity::Scan) {
    state.channel = scannedChannel(state, transmission);
  }
  if (searches(state.activity)) {
    state.searchAt = transmission.frequency;
  }
  if (followsIds(state.activity) && state.activity != Activity::IdHold) {
    state.slot =
        slotOf(trunkBank(state), transmission.id, groupsOf(state.model)).value_or(state.slot);
  }
}

bool isPriority(const State& state, int channel) {
  return channel != 0 && state.memory.priorityChannel[bankOf(channel)] == channel;
}

bool callsOn(const State& state, const Transmission& each, int number) {
  const Channel& channel = state.memory.channels[number];
  return channel.frequency == each.frequency && each.bank < 0 && scans(state, number) &&
         each.serial != state.passed && toneFits(state, channel, each);
}

// Priority takes over only if a scan has stopped on a channel without priority. Looks only at the
// ten priority channels, since this runs with every command.
const Transmission* priorityCall(const State& state, const Air& air) {
  if (!state.switches.priority || state.activity != Activity::Scan || !state.stop ||
      isPriority(state, state.channel)) {
    return nullptr;
  }
  for (const Transmission& each : air.active()) {
    for (const int number : state.memory.priorityChannel) {
      if (callsOn(state, each, number)) {
        return &each;
      }
    }
  }
  return nullptr;
}

// Whether the receiver stays where it is.
bool stays(State& state, const Air& air) {
  if (!state.stop) {
    return false;
  }
  const auto& active = air.active();
  const auto same = std::ranges::find(active, state.stop->serial, &Transmission::serial);
  if (same != active.end() && wants(state, *same)) {
    state.open = true;
    return true;
  }
  if (same != active.end()) {
    state.stop.reset();
    return false;
  }
  if (state.open) {
    state.dwellUntil = state.stop->end + (delays(state) ? state.delay : 0);
  }
  state.open = false;
  return state.now < state.dwellUntil;
}

// Whether the transmission continues the stop, on the same frequency and ID.
bool answersStop(const State& state, const Transmission& each) {
  return state.stop && each.frequency == state.stop->frequency && each.id == state.stop->id;
}

void sweep(State& state) {
  if (state.activity != Activity::Search && state.activity != Activity::Auto) {
    return;
  }
  if (state.stop || state.upper < state.lower) {
    return;
  }
  constexpr Millis kStepTime = 10;
  const Frequency steps = (state.upper - state.lower) / state.step + 1;
  state.searchAt = state.lower + state.step * (state.now / kStepTime % steps);
}

void goOn(State& state) {
  state.stop.reset();
  state.open = false;
  sweep(state);
}

}  // namespace

void tune(State& state, const Air& air) {
  if (state.acquiredAt != 0 && state.now >= state.acquiredAt) {
    enter(state, Activity::IdScan);
  }
  if (const Transmission* call = priorityCall(state, air)) {
    stopOn(state, *call);
    return;
  }
  const bool dwelling = stays(state, air);
  if (dwelling && state.open) {
    return;
  }
  const auto next = std::ranges::find_if(air.active(), [&](const Transmission& each) {
    return (!dwelling || answersStop(state, each)) && wants(state, each);
  });
  if (next != air.active().end()) {
    stopOn(state, *next);
  } else if (!dwelling) {
    goOn(state);
  }
}

void holdId(State& state) {
  std::string id = activeId(state);
  const TrunkBank& bank = trunkBank(state);
  for (int group = 0; id.empty() && group < kGroups; ++group) {
    for (const std::string& each : bank.ids[group]) {
      if (id.empty()) {
        id = each;
      }
    }
  }
  enter(state, Activity::IdHold);
  state.heldId = id;
}

void passOn(State& state) {
  state.passed = state.stop ? state.stop->serial : state.passed;
  state.stop.reset();
  state.open = false;
}

}  // namespace tarnvex::radio
