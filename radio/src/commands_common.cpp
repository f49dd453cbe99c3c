#include <array>

#include "radio/commands.h"
#include "radio/lockouts.h"
#include "radio/readings.h"
#include "radio/replies.h"

namespace tarnvex::radio {
namespace {

using Line = std::string_view;

int channelAt(Line line, std::size_t from) {
  const int channel = numberAt(line, from, 3);
  return channel <= kChannels ? channel : 0;
}

std::string onOff(Line word, bool on) {
  return std::string(word) + (on ? 'N' : 'F');
}

std::string mode(State& state, Line) {
  return std::string(modeCode(state));
}

std::string squelch(State& state, Line) {
  return state.open ? "+" : "-";
}

std::string currentChannel(State& state, Line) {
  const int channel = activeChannel(state);
  return channel == 0 ? kNothing : channelReply(state, channel);
}

std::string selectChannel(State& state, Line line) {
  const int channel = channelAt(line, 2);
  if (channel == 0) {
    return kError;
  }
  enter(state, Activity::Manual);
  state.channel = channel;
  return channelReply(state, channel);
}

std::string readMemory(State& state, Line line) {
  const int channel = channelAt(line, 2);
  return channel == 0 ? kError : memoryReply(state, channel);
}

// In trunk programming the frequency joins the system of the bank; otherwise it leaves it. Delay,
// lockout, line and tone stay: they have commands of their own.
std::string writeMemory(State& state, Line line) {
  const int number = channelAt(line, 2);
  const auto frequency = static_cast<Frequency>(numberAt(line, 6, 8));
  if (number == 0 || (frequency != 0 && !receivable(frequency))) {
    return kError;
  }
  const bool programs = programsTrunk(state.activity) && state.programBank >= 0;
  if (programs && bankOf(number) != state.programBank) {
    return kError;
  }
  Channel& channel = state.memory.channels[number];
  channel.frequency = frequency;
  channel.trunked = programs && frequency != 0;
  return kOk;
}

std::string setTone(State& state, Line line) {
  const int channel = activeChannel(state);
  const int tone = numberAt(line, 2, 2);
  if (channel == 0 || tone > kLastTone) {
    return kError;
  }
  state.memory.channels[channel].tone = tone;
  return kOk;
}

std::string clearChannels(State& state, Line) {
  state.memory.channels.fill(Channel{});
  enter(state, Activity::Scan);
  return kOk;
}

std::string priorityChannel(State& state, Line line) {
  const int bank = line[3] - 'A';
  return std::string(line) + digits(state.memory.priorityChannel[bank], 3);
}

std::string scanBanks(State& state, Line) {
  return "SB " + letters(state.scanBanks);
}

std::string setScanBanks(State& state, Line line) {
  std::array<bool, kBanks> banks{};
  for (const char letter : line.substr(3)) {
    if (letter == ' ') {
      continue;
    }
    if (letter < 'A' || letter > 'J') {
      return kError;
    }
    banks[letter - 'A'] = true;
  }
  if (letters(banks).empty()) {
    return kError;
  }
  state.scanBanks = banks;
  return scanBanks(state, line);
}

std::string isLocked(State& state, Line) {
  return onOff("LO", isLockedOut(state));
}
std::string lockOn(State& state, Line) {
  return setLockedOut(state, true) ? "LON" : kError;
}
std::string lockOff(State& state, Line) {
  return setLockedOut(state, false) ? "LOF" : kError;
}

std::string isDelayed(State& state, Line) {
  const bool* delay = delaySwitch(state);
  return onOff("DL", delay != nullptr && *delay);
}

std::string setDelay(State& state, Line line) {
  bool* delay = delaySwitch(state);
  if (delay == nullptr) {
    return kError;
  }
  *delay = line.back() == 'N';
  return std::string(line);
}

std::string setLine(State& state, Line line) {
  const int channel = activeChannel(state);
  if (channel == 0) {
    return kError;
  }
  state.memory.channels[channel].line = line.back() == 'N';
  return std::string(line);
}

std::string isPriority(State& state, Line) {
  return onOff("PR", state.switches.priority);
}

std::string streamOn(State& state, Line) {
  state.streaming = true;
  return streamingReply(state);
}

std::string streamOff(State& state, Line) {
  state.streaming = false;
  return "IDF";
}

std::string lowerLimit(State& state, Line) {
  return "LL" + digits(state.lower, 8);
}
std::string upperLimit(State& state, Line) {
  return "LU" + digits(state.upper, 8);
}

std::string setLimit(State& state, Line line) {
  const auto value = static_cast<Frequency>(numberAt(line, 2, 8));
  if (value < 290000 || value > 9560000) {
    return kError;
  }
  (line[1] == 'L' ? state.lower : state.upper) = value;
  return kOk;
}

constexpr std::array kCommon{
    Command{"MD", mode},
    Command{"SQ", squelch},
    Command{"MA", currentChannel},
    Command{"MA###", selectChannel},
    Command{"LO", isLocked},
    Command{"LON", lockOn},
    Command{"LOF", lockOff},
    Command{"DL", isDelayed},
    Command{"DLN", setDelay},
    Command{"DLF", setDelay},
    Command{"ARN", setLine},
    Command{"ARF", setLine},
    Command{"PR", isPriority},
    Command{"LL", lowerLimit},
    Command{"LU", upperLimit},
    Command{"LL########", setLimit},
    Command{"LU########", setLimit},
    Command{"PC @", priorityChannel},
    Command{"SB", scanBanks},
    Command{"SB *", setScanBanks},
    Command{"IDN", streamOn},
    Command{"IDF", streamOff},
    Command{"PM###", readMemory},
    Command{"PM### ########", writeMemory},
    Command{"CS##", setTone},
    Command{"AC", clearChannels},
    Command{"SS########", addSkip},
    Command{"ILR*", lockId},
    Command{"ILD*", unlockId},
};

}  // namespace

std::span<const Command> commonCommands() {
  return kCommon;
}

}  // namespace tarnvex::radio
