#include <array>

#include "radio/commands.h"
#include "radio/entry.h"
#include "radio/lockouts.h"
#include "radio/mode_keys.h"
#include "radio/readings.h"
#include "radio/trunking.h"

namespace tarnvex::radio {
namespace {

using Line = std::string_view;

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
  if (!slot) {
    return kError;
  }
  trunkBank(state).prioritySlot[slot->group] = slot->number;
  return kOk;
}

std::string keyData(State& state, Line) {
  state.switches.data = !state.switches.data;
  return kOk;
}

std::string keyDelay(State& state, Line) {
  bool* delay = delaySwitch(state);
  if (delay == nullptr) {
    return kError;
  }
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

std::string keyTone(State& state, Line) {
  state.switches.ctcss = !state.switches.ctcss;
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

constexpr std::array kCommonKeys{
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
  return kCommonKeys;
}
std::span<const Command> bc895Keys() {
  return kBc895;
}
std::span<const Command> bc245Keys() {
  return kBc245;
}

}  // namespace tarnvex::radio
