#include "radio/state.h"

#include "radio/built_in_memory.h"
#include "radio/commands.h"
#include "radio/readings.h"

namespace tarnvex::radio {

State::State(Model which) : model(which), memory(builtInMemory()) {
  for (const char bank : {'A', 'B', 'C', 'D', 'E'}) {
    scanBanks[bank - 'A'] = true;
  }
  lower = 1510000;
  upper = 1620000;
  searchAt = lower;
  switches.priority = true;
}

TrunkBank& trunkBank(State& state) {
  return state.memory.banks[state.trunkBank];
}

const TrunkBank& trunkBank(const State& state) {
  return state.memory.banks[state.trunkBank];
}

Family familyOf(const State& state) {
  const bool chosen = programsTrunk(state.activity) && state.programBank >= 0;
  const TrunkBank& bank = state.memory.banks[chosen ? state.programBank : state.trunkBank];
  return bank.type == SystemType::Edacs ? Family::Edacs : Family::Motorola;
}

std::string_view modeCode(const State& state) {
  return modeCode(state.model, state.activity, familyOf(state));
}

void enter(State& state, Activity activity) {
  state.activity = activity;
  state.entry = {};
  state.stop.reset();
  state.open = false;
  state.acquiredAt = 0;
}

void become(State& state, Model model) {
  state.model = model;
  state.streaming = false;
  state.bankKeyOpen = false;
  if (modeCode(state).empty() || programsTrunk(state.activity)) {
    enter(state, Activity::Scan);
  }
}

std::string describe(const State& state) {
  const auto line = [](std::string_view key, std::string_view value) {
    return std::string(key) + '=' + std::string(value) + '\n';
  };
  return line("model", nameOf(state.model)) + line("mode", modeCode(state)) +
         line("activity", nameOf(state.activity)) +
         line("channel", std::to_string(activeChannel(state))) +
         line("frequency", digits(displayedFrequency(state), 8)) + line("id", activeId(state)) +
         line("level", std::to_string(signalLevel(state))) +
         line("squelch", state.open ? "open" : "closed") + line("banks", letters(state.scanBanks)) +
         line("trunk-bank", std::string(1, static_cast<char>('A' + state.trunkBank))) +
         line("lower", digits(state.lower, 8)) + line("upper", digits(state.upper, 8)) +
         line("mute", state.switches.mute ? "on" : "off") +
         line("streaming", state.streaming ? "on" : "off") + line("entry", state.entry.text) +
         line("skips", std::to_string(state.memory.skips.size())) +
         line("locked-ids", std::to_string(state.memory.lockedIds.size())) +
         line("time", std::to_string(state.now));
}

}  // namespace tarnvex::radio
