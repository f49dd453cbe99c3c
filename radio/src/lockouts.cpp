#include "radio/lockouts.h"

#include <algorithm>

#include "radio/commands.h"
#include "radio/readings.h"
#include "radio/tuning.h"

namespace tarnvex::radio {
namespace {

bool skipFrequency(State& state, Frequency frequency) {
  auto& skips = state.memory.skips;
  if (!receivable(frequency)) {
    return false;
  }
  if (isSkipped(state, frequency)) {
    return true;
  }
  if (skips.size() >= kSkipLimit) {
    return false;
  }
  skips.push_back(frequency);
  return true;
}

bool setLockedId(State& state, std::string_view text, bool on) {
  auto& locked = state.memory.lockedIds;
  const std::string id = normalId(text);
  if (id.empty() || id == "000000") {
    return false;
  }
  std::erase(locked, id);
  const bool fits = locked.size() < kLockedIdLimit;
  if (on && fits) {
    locked.push_back(id);
  }
  return !on || fits;
}

std::string listing(std::string_view word, const std::vector<std::string>& entries) {
  std::string text;
  for (const std::string& entry : entries) {
    text += std::string(word) + entry + '\r';
  }
  return text + "END";
}

std::vector<std::string> skipTexts(const State& state) {
  std::vector<std::string> texts;
  for (const Frequency skip : state.memory.skips) {
    texts.push_back(digits(skip, 8));
  }
  return texts;
}

std::string numbered(const std::vector<std::string>& entries, std::string_view number,
                     std::string_view none) {
  const auto index = static_cast<std::size_t>(numberAt(number, 0, number.size()));
  return std::string(index >= 1 && index <= entries.size() ? entries[index - 1] : none);
}

}  // namespace

std::string keyLockout(State& state, std::string_view) {
  if (searches(state.activity)) {
    const bool there = state.stop || state.activity == Activity::SearchHold ||
                       state.activity == Activity::WeatherHold;
    if (!there || !skipFrequency(state, displayedFrequency(state))) {
      return kError;
    }
    passOn(state);
    return kOk;
  }
  return setLockedOut(state, !isLockedOut(state)) ? kOk : kError;
}

std::string keyLockoutHeld(State& state, std::string_view) {
  if (searches(state.activity)) {
    state.memory.skips.clear();
  } else if (followsIds(state.activity)) {
    state.memory.lockedIds.clear();
  } else {
    for (Channel& channel : state.memory.channels) {
      if (channel.frequency != 0) {
        channel.lockout = false;
      }
    }
  }
  return kOk;
}

std::string addSkip(State& state, std::string_view line) {
  const auto frequency = static_cast<Frequency>(std::atol(std::string(line.substr(2)).c_str()));
  return skipFrequency(state, frequency) ? kOk : kError;
}

std::string lockId(State& state, std::string_view line) {
  return setLockedId(state, line.substr(3), true) ? kOk : kError;
}

std::string unlockId(State& state, std::string_view line) {
  return setLockedId(state, line.substr(3), false) ? kOk : kError;
}

std::string listSkips(State& state, std::string_view) {
  return listing("SS", skipTexts(state));
}

std::string listLockedIds(State& state, std::string_view) {
  return listing("IL", state.memory.lockedIds);
}

std::string skipNumber(State& state, std::string_view line) {
  return "SS" + numbered(skipTexts(state), line.substr(2), "00000000");
}

std::string lockedIdNumber(State& state, std::string_view line) {
  return "IL " + numbered(state.memory.lockedIds, line.substr(2), "------");
}

bool isLockedOut(const State& state) {
  if (followsIds(state.activity)) {
    return isLockedId(state, activeId(state));
  }
  if (searches(state.activity)) {
    return isSkipped(state, displayedFrequency(state));
  }
  const int channel = activeChannel(state);
  return channel != 0 && state.memory.channels[channel].lockout;
}

bool setLockedOut(State& state, bool on) {
  if (followsIds(state.activity)) {
    return setLockedId(state, activeId(state), on);
  }
  const int channel = activeChannel(state);
  if (channel == 0) {
    return false;
  }
  state.memory.channels[channel].lockout = on;
  return true;
}

}  // namespace tarnvex::radio
