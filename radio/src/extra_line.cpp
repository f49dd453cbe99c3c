#include "radio/extra_line.h"

#include <algorithm>
#include <array>
#include <utility>

#include "radio/options.h"

namespace tarnvex::radio {
namespace {

using Words = std::span<const std::string>;
using Timing = OutgoingPart::Timing;
using std::chrono::milliseconds;

template <class Value, std::size_t N>
std::optional<Value> named(const std::array<std::pair<std::string_view, Value>, N>& names,
                           std::string_view word) {
  const auto* const found =
      std::ranges::find(names, word, &std::pair<std::string_view, Value>::first);
  return found == names.end() ? std::nullopt : std::optional(found->second);
}

using What = ExtraLine::What;
using Where = ExtraLine::Where;
using How = ExtraLine::How;

constexpr std::array<std::pair<std::string_view, Where>, 3> kPlaces{
    {{"before", Where::Before}, {"after", Where::After}, {"anywhere", Where::Anywhere}}};
constexpr std::array<std::pair<std::string_view, How>, 4> kShapes{
    {{"joined", How::Joined}, {"cut", How::Cut}, {"8bit", How::EightBit}, {"slow", How::Slow}}};
constexpr std::array<std::pair<std::string_view, What>, 8> kContents{{{"id", What::Id},
                                                                      {"stream", What::Stream},
                                                                      {"echo", What::Echo},
                                                                      {"copy", What::Copy},
                                                                      {"previous", What::Previous},
                                                                      {"noise", What::Noise},
                                                                      {"flood", What::Flood},
                                                                      {"text", What::Text}}};

std::string joinedWords(Words words) {
  std::string text;
  for (const std::string& word : words) {
    text += (text.empty() ? "" : " ") + word;
  }
  return text;
}

std::string noiseLine(Chance& chance) {
  std::string line(2 + chance.below(9), '\0');
  for (char& c : line) {
    c = static_cast<char>(chance.below(256));
    c = c == '\r' ? '~' : c;
  }
  return line + '\r';
}

std::string flood(std::size_t count, Chance& chance) {
  std::string bytes(count, '\0');
  std::ranges::generate(bytes, [&] { return static_cast<char>('A' + chance.below(26)); });
  return bytes;
}

void delay(std::vector<OutgoingPart>& parts, Instant by) {
  for (OutgoingPart& part : parts) {
    part.delay += by;
    part.timing = OutgoingPart::Timing::Apart;
  }
}

}  // namespace

std::optional<ExtraLine> ExtraLine::parse(Words words) {
  ExtraLine line;
  while (!words.empty()) {
    const std::size_t taken = line.take(words);
    if (taken == 0 || taken > words.size()) {
      return std::nullopt;
    }
    words = words.subspan(taken);
  }
  const auto occasion = Occasion::parse(line.when_);
  if (!line.what_ || !occasion) {
    return std::nullopt;
  }
  line.occasion_ = *occasion;
  return line;
}

/// Takes the first word and those that belong to it. Returns their number, or 0 if the word is
/// unknown.
std::size_t ExtraLine::take(Words words) {
  const std::string& word = words[0];
  if (const auto place = named(kPlaces, word)) {
    where_ = *place;
    return 1;
  }
  if (const auto shape = named(kShapes, word)) {
    how_ = *shape;
    return 1;
  }
  const auto number = words.size() > 1 ? parseNumber(words[1]) : std::nullopt;
  if (word == "late") {
    return takeLate(number.value_or(-1));
  }
  if (word == "every" || parseNumber(word)) {
    when_.assign(words.begin(), words.begin() + (word == "every" && number ? 2 : 1));
    return when_.size();
  }
  return takeWhat(words, number);
}

std::size_t ExtraLine::takeLate(double ms) {
  const bool fits = ms >= 0 && ms < 1e9;
  where_ = Where::Late;
  lateness_ = milliseconds(fits ? static_cast<std::int64_t>(ms) : 0);
  return fits ? 2 : 0;
}

std::size_t ExtraLine::takeWhat(Words words, std::optional<double> number) {
  what_ = named(kContents, words[0]);
  if (!what_) {
    return 0;
  }
  if (*what_ == What::Text) {
    text_ = joinedWords(words.subspan(1));
    return words.size();
  }
  if (*what_ == What::Flood && number) {
    floodBytes_ = *number >= 1 && *number <= 1e7 ? static_cast<std::size_t>(*number) : 0;
    return floodBytes_ > 0 ? 2 : 0;
  }
  return 1;
}

std::string ExtraLine::content(const Exchange& exchange, std::string_view previous,
                               Chance& chance) const {
  switch (*what_) {
    case What::Id:
      return exchange.idLine + '\r';
    case What::Stream:
      return exchange.streaming ? exchange.idLine + '\r' : "";
    case What::Echo:
      return exchange.command + '\r';
    case What::Copy:
      return exchange.reply;
    case What::Previous:
      return std::string(previous);
    case What::Noise:
      return noiseLine(chance);
    case What::Flood:
      return flood(floodBytes_, chance);
    case What::Text:
      return text_ + '\r';
  }
  return "";
}

std::vector<OutgoingPart> ExtraLine::shaped(std::string bytes) const {
  if (how_ == How::Cut && bytes.ends_with('\r')) {
    bytes.pop_back();
  }
  if (how_ == How::EightBit) {
    bytes = withTopBits(std::move(bytes));
  }
  const OutgoingPart part{std::move(bytes), {}, false, Timing::AtOnce};
  return how_ == How::Slow ? slowly(part) : std::vector{part};
}

ExtraLine::Place ExtraLine::choosePlace(Chance& chance) const {
  if (where_ != Where::Anywhere) {
    return {where_, lateness_};
  }
  const Where where = std::array{Where::Before, Where::After, Where::Late}[chance.below(3)];
  return {where, milliseconds(5 + static_cast<std::int64_t>(chance.below(56)))};
}

void ExtraLine::join(std::vector<OutgoingPart>& parts, const Exchange& exchange,
                     std::string_view previous, Chance& chance) {
  if (!occasion_.strikes(chance)) {
    return;
  }
  const Place place = choosePlace(chance);
  std::string bytes = content(exchange, previous, chance);
  if (bytes.empty()) {
    return;
  }
  const bool before = place.where == Where::Before;
  if (how_ == How::Joined && place.where != Where::Late && !parts.empty()) {
    OutgoingPart& reply = before ? parts.front() : parts.back();
    reply.bytes.insert(before ? 0 : reply.bytes.size(), bytes);
    reply.whole = true;
    return;
  }
  auto extra = shaped(std::move(bytes));
  if (place.where == Where::Late) {
    delay(extra, place.lateness);
  }
  parts.insert(before ? parts.begin() : parts.end(), extra.begin(), extra.end());
}

}  // namespace tarnvex::radio
