#include "radio/entry.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

#include "radio/commands.h"
#include "radio/trunking.h"

namespace tarnvex::radio {
namespace {

constexpr std::size_t kEntryLimit = 9;
constexpr Frequency kLowestLimit = 290000;
constexpr Frequency kHighestLimit = 9560000;

Frequency keyedFrequency(const std::string& text) {
  const double value = std::strtod(text.c_str(), nullptr) * 10000;
  return value > 0 && value < 1e8 ? static_cast<Frequency>(std::lround(value)) : 0;
}

int keyedNumber(const std::string& text) {
  return numberAt(text, 0, text.size());
}

bool isChannel(const std::string& text) {
  const int value = keyedNumber(text);
  return text.find('.') == std::string::npos && value >= 1 && value <= kChannels;
}

void goTo(State& state, int channel) {
  enter(state, Activity::Manual);
  state.channel = channel;
}

std::string enterLimit(State& state, Entry::Limit limit, const std::string& text) {
  const Frequency frequency = keyedFrequency(text);
  if (frequency < kLowestLimit || frequency > kHighestLimit) {
    return kError;
  }
  (limit == Entry::Limit::Lower ? state.lower : state.upper) = frequency;
  return kOk;
}

std::string enterTone(State& state, const std::string& text) {
  const auto tone = std::find(kTones.begin() + 1, kTones.end() - 1, text);
  const bool none = text == "0";
  if (tone == kTones.end() - 1 && !none) {
    return kError;
  }
  state.memory.channels[state.channel].tone = none ? 0 : static_cast<int>(tone - kTones.begin());
  enter(state, Activity::Manual);
  return kOk;
}

std::string enterTrunked(State& state, const std::string& text) {
  const Frequency frequency = keyedFrequency(text);
  if (state.programBank < 0 || !receivable(frequency)) {
    return kError;
  }
  const int first = state.programBank * kBankSize + 1;
  for (int number = first; number < first + kBankSize; ++number) {
    if (Channel& channel = state.memory.channels[number]; channel.frequency == 0) {
      channel = {frequency, true, false, false, false, 0};
      return kOk;
    }
  }
  return kError;
}

std::string enterFrequency(State& state, const std::string& text) {
  const Frequency frequency = keyedFrequency(text);
  if (!receivable(frequency)) {
    return kError;
  }
  if (searches(state.activity)) {
    enter(state, Activity::SearchHold);
    state.searchAt = frequency;
  } else {
    goTo(state, state.channel);
    state.memory.channels[state.channel].frequency = frequency;
  }
  return kOk;
}

std::string scanDigit(State& state, int digit) {
  return toggleBank(state.scanBanks, (digit + 9) % 10) ? kOk : kError;
}

std::string enterBank(State& state) {
  if (state.programBank < 0) {
    return kError;
  }
  enter(state, Activity::ProgramTrunk);
  return kOk;
}

// Enters a tone, a frequency or a channel.
std::string enterNumber(State& state, const std::string& text) {
  if (state.activity == Activity::ToneEntry) {
    return enterTone(state, text);
  }
  if (state.activity == Activity::ProgramTrunk) {
    return enterTrunked(state, text);
  }
  if (!isChannel(text)) {
    return enterFrequency(state, text);
  }
  goTo(state, keyedNumber(text));
  return kOk;
}

}  // namespace

std::string keyDigit(State& state, std::string_view line) {
  const int digit = line.back() - '0';
  const bool ten = line.ends_with("10");
  if (state.activity == Activity::Send) {
    return kError;
  }
  if (state.model == Model::BC245XLT && state.activity == Activity::SelectBank) {
    chooseProgramBank(state, ten ? 9 : (digit + 9) % 10);
    return kOk;
  }
  if (ten) {
    return kError;
  }
  if (state.model == Model::BC245XLT && state.activity == Activity::Scan) {
    return scanDigit(state, digit);
  }
  if (state.entry.text.size() >= kEntryLimit) {
    return kError;
  }
  state.entry.text += line.back();
  return kOk;
}

std::string keyPoint(State& state, std::string_view) {
  if (state.entry.text.empty() && state.model == Model::BC245XLT) {
    state.switches.attenuator = !state.switches.attenuator;
    return kOk;
  }
  const char point = followsIds(state.activity) ? '-' : '.';
  if (state.entry.text.find(point) != std::string::npos) {
    return kError;
  }
  state.entry.text += point;
  return kOk;
}

std::string keyEnter(State& state, std::string_view) {
  const Entry entry = std::exchange(state.entry, {});
  if (state.activity == Activity::SelectBank) {
    return enterBank(state);
  }
  if (entry.text.empty()) {
    return kOk;
  }
  if (entry.limit != Entry::Limit::None) {
    return enterLimit(state, entry.limit, entry.text);
  }
  if (followsIds(state.activity)) {
    return storeId(state, entry.slot.value_or(state.slot), entry.text) ? kOk : kError;
  }
  return enterNumber(state, entry.text);
}

std::string keyManual(State& state, std::string_view) {
  const std::string text = state.entry.text;
  if (followsIds(state.activity)) {
    enter(state, Activity::IdManual);
    return kOk;
  }
  const bool wrong = !text.empty() && !isChannel(text);
  goTo(state, text.empty() || wrong ? state.channel : keyedNumber(text));
  return wrong ? kError : kOk;
}

bool storeId(State& state, Slot slot, std::string_view text) {
  TrunkBank& bank = trunkBank(state);
  const std::string id = normalId(text);
  // The BC895XLT doesn't know the type of a bank, so it can't judge a dashed ID.
  const bool dashed = id.find('-') != std::string::npos;
  const bool judged = state.model == Model::BC245XLT || !dashed;
  if (id.empty() || (judged && !takesId(bank, id))) {
    return false;
  }
  std::string& kept = bank.ids[slot.group][slot.number - 1];
  kept = id == "000000" ? "" : id;
  if (kept.empty() && bank.prioritySlot[slot.group] == slot.number) {
    bank.prioritySlot[slot.group] = 0;
  }
  return true;
}

}  // namespace tarnvex::radio
