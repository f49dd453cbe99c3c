#include "radio/faults.h"

#include <algorithm>
#include <iterator>
#include <sstream>
#include <utility>

#include "radio/options.h"

namespace tarnvex::radio {
namespace {

using Words = std::span<const std::string>;

}  // namespace

Faults::Setter Faults::setterOf(std::string_view word) {
  if (word == "silence") {
    return &Faults::setSilence;
  }
  if (word == "noise") {
    return &Faults::setNoise;
  }
  if (word == "extra") {
    return &Faults::addExtra;
  }
  return word == "stream" ? &Faults::addStream : nullptr;
}

bool Faults::isFault(std::string_view word) {
  return ReplyFaults::isFault(word) || setterOf(word) != nullptr;
}

bool Faults::set(std::string_view line) {
  std::istringstream text{std::string(line)};
  const std::vector<std::string> words{std::istream_iterator<std::string>(text), {}};
  if (words.empty()) {
    return false;
  }
  const Setter setter = setterOf(words[0]);
  return setter == nullptr ? replies_.set(words) : (this->*setter)(Words(words).subspan(1));
}

bool Faults::addStream(Words words) {
  return words.size() == 1 &&
         addExtra(std::array<std::string, 4>{"stream", "anywhere", "every", words[0]});
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
    const auto* const found = std::ranges::find(kKindsOfNoise, words[1]);
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

void Faults::remember(const Exchange& exchange) {
  if (exchange.command != lastCommand_) {
    previous_ = std::exchange(lastReply_, {});
    lastCommand_ = exchange.command;
  }
  lastReply_ = exchange.reply;
}

void Faults::countDownToSilence() {
  if (silentAfter_ == 0) {
    silent_ = true;
  }
  if (silentAfter_ >= 0) {
    --silentAfter_;
  }
}

std::vector<OutgoingPart> Faults::apply(const Exchange& exchange) {
  countDownToSilence();
  remember(exchange);
  if (silent_) {
    return {};
  }
  auto parts = replies_.apply(exchange.reply, chance_);
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
  std::string heard;
  for (const char c : bytes) {
    heard += chance_.fraction() < noise_ ? spoilt(c) : std::string(1, c);
  }
  return heard;
}

std::string Faults::spoilt(char c) {
  const bool any = noiseKind_ == Noise::Any;
  const Noise kind = any ? static_cast<Noise>(1 + chance_.below(3)) : noiseKind_;
  if (kind == Noise::Lost) {
    return "";
  }
  if (kind == Noise::Doubled) {
    return {c, c};
  }
  return {static_cast<char>(static_cast<unsigned char>(c) + 1 + chance_.below(255))};
}

}  // namespace tarnvex::radio
