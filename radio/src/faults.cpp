#include "radio/faults.h"

#include <algorithm>
#include <iterator>
#include <sstream>
#include <utility>

#include "radio/options.h"

namespace tarnvex::radio {
namespace {

using Words = std::span<const std::string>;

/// In the order of Faults::Kind.
struct ReplyWord {
  std::string_view word;
  bool hasAmount = false;
  std::optional<std::int64_t> usualAmount{};
  std::int64_t leastAmount = 0;
};
constexpr std::array kReplyWords{ReplyWord{"wrong-length", true, -3, -1000000},
                                 ReplyWord{"garble"},
                                 ReplyWord{"8bit"},
                                 ReplyWord{"cut", true},
                                 ReplyWord{"delay", true},
                                 ReplyWord{"join"},
                                 ReplyWord{"split"},
                                 ReplyWord{"slow"}};
constexpr std::array<std::string_view, 4> kOtherWords{"silence", "noise", "extra", "stream"};

auto replyWord(std::string_view word) {
  return std::find_if(kReplyWords.begin(), kReplyWords.end(),
                      [word](const ReplyWord& row) { return row.word == word; });
}

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

}  // namespace

bool Faults::isFault(std::string_view word) {
  return replyWord(word) != kReplyWords.end() ||
         std::find(kOtherWords.begin(), kOtherWords.end(), word) != kOtherWords.end();
}

bool Faults::set(std::string_view line) {
  std::istringstream text{std::string(line)};
  const std::vector<std::string> all{std::istream_iterator<std::string>(text), {}};
  if (all.empty()) {
    return false;
  }
  const std::string& word = all[0];
  const Words rest = Words(all).subspan(1);
  if (word == "silence") {
    return setSilence(rest);
  }
  if (word == "noise") {
    return setNoise(rest);
  }
  if (word == "extra") {
    return addExtra(rest);
  }
  if (word == "stream") {
    return rest.size() == 1 &&
           addExtra(std::array<std::string, 4>{"stream", "anywhere", "every", rest[0]});
  }
  const auto row = replyWord(word);
  return row != kReplyWords.end() &&
         setReplyFault(static_cast<Kind>(row - kReplyWords.begin()), rest);
}

bool Faults::setReplyFault(Kind kind, Words words) {
  const ReplyWord& row = kReplyWords[kind];
  ReplyFault fault;
  if (row.hasAmount) {
    const auto number = words.empty() ? std::nullopt : parseNumber(words[0]);
    if (number) {
      words = words.subspan(1);
    }
    const auto amount =
        number ? std::optional(static_cast<std::int64_t>(*number)) : row.usualAmount;
    if (!amount || *amount < row.leastAmount || *amount > 1000000) {
      return false;
    }
    fault.amount = *amount;
  }
  const auto occasion = Occasion::parse(words);
  if (!occasion) {
    return false;
  }
  fault.occasion = *occasion;
  replyFaults_[kind] = fault;
  return true;
}

bool Faults::setSilence(Words words) {
  const bool after = words.size() == 2 && words[0] == "after";
  const bool now = words.size() == 1 && (words[0] == "on" || words[0] == "off");
  const auto count = after ? parseNumber(words[1]) : std::nullopt;
  if (after ? !count || !(*count >= 0 && *count < 1e15) : !now) {
    return false;
  }
  silent_ = now && words[0] == "on";
  silentAfter_ = after ? static_cast<std::int64_t>(*count) : -1;
  return true;
}

bool Faults::setNoise(Words words) {
  constexpr std::array<std::string_view, 3> kKindsOfNoise{"lost", "doubled", "changed"};
  const auto percent = words.empty() ? std::nullopt : parseNumber(words[0]);
  if (!percent || !(*percent >= 0 && *percent <= 100) || words.size() > 2) {
    return false;
  }
  Noise kind = Noise::Any;
  if (words.size() == 2) {
    const auto found = std::find(kKindsOfNoise.begin(), kKindsOfNoise.end(), words[1]);
    if (found == kKindsOfNoise.end()) {
      return false;
    }
    kind = static_cast<Noise>(1 + (found - kKindsOfNoise.begin()));
  }
  noise_ = *percent / 100;
  noiseKind_ = kind;
  return true;
}

bool Faults::addExtra(Words words) {
  const auto extra = ExtraLine::parse(words);
  if (extra) {
    extras_.push_back(*extra);
  }
  return extra.has_value();
}

std::optional<std::int64_t> Faults::strike(Kind kind) {
  ReplyFault& fault = replyFaults_[kind];
  return fault.occasion.strikes(chance_) ? std::optional(fault.amount) : std::nullopt;
}

/// `reply` ends with CR.
void Faults::spoil(std::string& reply) {
  if (const auto by = strike(kWrongLength)) {
    changeLength(reply, *by);
  }
  if (strike(kGarble)) {
    garble(reply);
  }
  if (strike(kEightBit)) {
    reply = withTopBits(std::move(reply));
  }
  if (const auto cut = strike(kCut)) {
    reply.resize(reply.size() - std::min(static_cast<std::size_t>(*cut) + 1, reply.size()));
  }
}

std::vector<OutgoingPart> Faults::replyParts(std::string reply) {
  spoil(reply);
  OutgoingPart part;
  part.delay = std::chrono::milliseconds(strike(kDelay).value_or(0));
  part.whole = strike(kJoin).has_value();
  part.bytes = part.whole ? reply + reply : reply;
  const bool split = strike(kSplit).has_value();
  if (strike(kSlow)) {
    return slowly(part);
  }
  if (!split) {
    return {part};
  }
  const std::size_t half = part.bytes.size() / 2;
  return {{part.bytes.substr(0, half), part.delay, true},
          {part.bytes.substr(half), part.delay + std::chrono::milliseconds(50), true}};
}

void Faults::remember(const Exchange& exchange) {
  if (exchange.command != lastCommand_) {
    previous_ = std::exchange(lastReply_, {});
    lastCommand_ = exchange.command;
  }
  lastReply_ = exchange.reply;
}

std::vector<OutgoingPart> Faults::apply(const Exchange& exchange) {
  if (silentAfter_ == 0) {
    silent_ = true;
  }
  if (silentAfter_ >= 0) {
    --silentAfter_;
  }
  remember(exchange);
  if (silent_) {
    return {};
  }
  auto parts = replyParts(exchange.reply);
  for (ExtraLine& extra : extras_) {
    extra.join(parts, exchange, previous_, chance_);
  }
  std::erase_if(extras_, [](const ExtraLine& extra) { return extra.isOver(); });
  for (OutgoingPart& part : parts) {
    part.bytes = noisy(std::move(part.bytes));
  }
  std::erase_if(parts, [](const OutgoingPart& part) { return part.bytes.empty(); });
  return parts;
}

std::string Faults::noisy(std::string bytes) {
  if (noise_ <= 0) {
    return bytes;
  }
  std::string spoilt;
  for (const char c : bytes) {
    if (chance_.fraction() >= noise_) {
      spoilt += c;
      continue;
    }
    const Noise kind =
        noiseKind_ == Noise::Any ? static_cast<Noise>(1 + chance_.below(3)) : noiseKind_;
    if (kind == Noise::Doubled) {
      spoilt.append(2, c);
    } else if (kind == Noise::Changed) {
      spoilt += static_cast<char>(static_cast<unsigned char>(c) + 1 + chance_.below(255));
    }
  }
  return spoilt;
}

}  // namespace tarnvex::radio
