#include "radio/reply_faults.h"

#include <algorithm>
#include <utility>

#include "radio/options.h"

namespace tarnvex::radio {
namespace {

/// In the order of ReplyFaults::Kind.
struct FaultWord {
  std::string_view word;
  bool hasAmount = false;
  std::optional<std::int64_t> usualAmount{};
  std::int64_t leastAmount = 0;
};
constexpr std::int64_t kMostAmount = 1000000;
constexpr std::array kFaultWords{FaultWord{"wrong-length", true, -3, -kMostAmount},
                                 FaultWord{"garble"},
                                 FaultWord{"8bit"},
                                 FaultWord{"cut", true},
                                 FaultWord{"delay", true},
                                 FaultWord{"join"},
                                 FaultWord{"split"},
                                 FaultWord{"slow"}};

void changeLength(std::string& reply, std::int64_t by) {
  if (by > 0) {
    reply.insert(reply.size() - 1, static_cast<std::size_t>(by), 'X');
  } else {
    const auto less = std::min<std::size_t>(reply.size() - 1, static_cast<std::size_t>(-by));
    reply.erase(reply.size() - 1 - less, less);
  }
}

void garble(std::string& reply) {
  for (std::size_t at = 0; at + 1 < reply.size(); at += 3) {
    reply[at] = static_cast<char>('!' + (reply[at] * 7 + 13) % 64);
  }
}

/// Takes the amount from the front of the words, or uses the default. Nothing if it isn't valid.
std::optional<std::int64_t> takeAmount(const FaultWord& row, std::span<const std::string>& words) {
  if (!row.hasAmount) {
    return 0;
  }
  const auto number = words.empty() ? std::nullopt : parseNumber(words[0]);
  if (!number) {
    return row.usualAmount;
  }
  words = words.subspan(1);
  const bool fits = *number >= static_cast<double>(row.leastAmount) && *number <= kMostAmount;
  return fits ? std::optional(static_cast<std::int64_t>(*number)) : std::nullopt;
}

std::vector<OutgoingPart> inHalves(const OutgoingPart& part) {
  constexpr std::chrono::milliseconds kPause{50};
  const std::size_t half = part.bytes.size() / 2;
  return {{part.bytes.substr(0, half), part.delay, true},
          {part.bytes.substr(half), part.delay + kPause, true}};
}

}  // namespace

bool ReplyFaults::isFault(std::string_view word) {
  return std::ranges::find(kFaultWords, word, &FaultWord::word) != kFaultWords.end();
}

bool ReplyFaults::set(std::span<const std::string> words) {
  const auto* const row = std::ranges::find(kFaultWords, words[0], &FaultWord::word);
  if (row == kFaultWords.end()) {
    return false;
  }
  words = words.subspan(1);
  const auto amount = takeAmount(*row, words);
  const auto occasion = Occasion::parse(words);
  if (!amount || !occasion) {
    return false;
  }
  faults_[row - kFaultWords.begin()] = {*amount, *occasion};
  return true;
}

std::optional<std::int64_t> ReplyFaults::strike(Kind kind, Chance& chance) {
  Fault& fault = faults_[kind];
  return fault.occasion.strikes(chance) ? std::optional(fault.amount) : std::nullopt;
}

void ReplyFaults::spoil(std::string& reply, Chance& chance) {
  if (const auto by = strike(kWrongLength, chance)) {
    changeLength(reply, *by);
  }
  if (strike(kGarble, chance)) {
    garble(reply);
  }
  if (strike(kEightBit, chance)) {
    reply = withTopBits(std::move(reply));
  }
  if (const auto cut = strike(kCut, chance)) {
    reply.resize(reply.size() - std::min(static_cast<std::size_t>(*cut) + 1, reply.size()));
  }
}

std::vector<OutgoingPart> ReplyFaults::apply(std::string reply, Chance& chance) {
  spoil(reply, chance);
  OutgoingPart part;
  part.delay = std::chrono::milliseconds(strike(kDelay, chance).value_or(0));
  part.whole = strike(kJoin, chance).has_value();
  part.bytes = part.whole ? reply + reply : reply;
  const bool split = strike(kSplit, chance).has_value();
  if (strike(kSlow, chance)) {
    return slowly(part);
  }
  return split ? inHalves(part) : std::vector{part};
}

}  // namespace tarnvex::radio
