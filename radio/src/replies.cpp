#include "radio/replies.h"

#include <algorithm>

#include "radio/readings.h"

namespace tarnvex::radio {
namespace {

std::string flag(char letter, bool on) {
  return {' ', letter, on ? 'N' : 'F'};
}

// The BC245XLT has no tone squelch and answers "NG" unless a tone was set over the line.
std::string toneField(const State& state, int tone) {
  return tone == 0 && state.model == Model::BC245XLT ? "NG" : digits(tone, 2);
}

std::string fields(const State& state, const Channel& channel) {
  return digits(channel.frequency, 8) + flag('T', channel.trunked) + flag('D', channel.delay) +
         flag('L', channel.lockout) + flag('A', false) + flag('R', channel.line) + " N" +
         toneField(state, channel.tone);
}

}  // namespace

std::string channelReply(const State& state, int channel) {
  return "C" + digits(channel, 3) + " F" + fields(state, state.memory.channels[channel]);
}

std::string memoryReply(const State& state, int channel) {
  return "PM" + digits(channel, 3) + " " + fields(state, state.memory.channels[channel]);
}

std::string signalReply(const State& state) {
  return "S" + digits(signalLevel(state), 3) + " F" + digits(displayedFrequency(state), 8);
}

std::string windowReply(const State& state) {
  return "WI" + digits(signalLevel(state), 3) + "F" + digits(displayedFrequency(state), 8);
}

std::string slotReply(const State& state, Slot slot) {
  std::string id = trunkBank(state).ids[slot.group][slot.number - 1];
  if (id.empty()) {
    id = "------";
  }
  id.resize(6, ' ');
  if (state.model == Model::BC245XLT) {
    std::ranges::replace(id, '-', '\xFE');
  }
  return std::string("IC ") + static_cast<char>('A' + slot.group) +
         static_cast<char>('0' + slot.number % 10) + ' ' + id;
}

std::string identityReply() {
  return "SIBC245XLT 0024500172 V124";
}

std::string trunkTypeReply(const State& state) {
  const int bank =
      state.programBank >= 0 && programsTrunk(state.activity) ? state.programBank : state.trunkBank;
  return std::string("TB ") + static_cast<char>('A' + bank) + ' ' +
         std::string(wordOf(state.memory.banks[bank].type));
}

std::string streamingReply(const State& state) {
  const bool answers = state.model == Model::BC895XLT && state.activity == Activity::IdSearch;
  const std::string id = activeId(state);
  return !answers ? "IDN" : id.empty() ? "IDN E" : "IDN S   " + id;
}

std::string streamedLine(const State& state) {
  const std::string id = activeId(state);
  return id.empty() || !state.open ? "ID E" : "ID S " + id;
}

bool streamsLines(const State& state) {
  const bool follows = state.activity == Activity::IdHold ||
                       (state.model == Model::BC245XLT && state.activity == Activity::IdSearch);
  return state.streaming && follows;
}

}  // namespace tarnvex::radio
