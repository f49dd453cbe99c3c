#include "radio/faults.h"

#include <algorithm>
#include <array>

#include "radio/options.h"

namespace tarnvex::radio {
namespace {

constexpr std::array<std::string_view, 8> kWords{"silence", "delay", "cut",   "garble",
                                                 "8bit",    "join",  "split", "wrong-length"};

std::optional<std::int64_t> argument(const std::vector<std::string>& arguments, std::size_t index,
                                     std::optional<std::int64_t> otherwise) {
  if (index >= arguments.size()) return otherwise;
  const auto value = parseNumber(arguments[index]);
  if (!value) return std::nullopt;
  return static_cast<std::int64_t>(*value);
}

}  // namespace

bool Faults::isFault(std::string_view word) const {
  return std::find(kWords.begin(), kWords.end(), word) != kWords.end();
}

bool Faults::set(std::string_view word, const std::vector<std::string>& arguments) {
  if (word == "silence") return setSilence(arguments);
  if (word == "join" || word == "split") {
    (word == "join" ? join_ : split_) = true;
    return arguments.empty();
  }
  if (word == "delay") {
    const auto delay = argument(arguments, 0, std::nullopt);
    const auto count = argument(arguments, 1, 1);
    if (!delay || !count || *delay < 0) return false;
    delay_ = std::chrono::milliseconds(*delay);
    delayed_ = *count;
    return true;
  }
  const auto number = argument(arguments, 0, word == "wrong-length" ? -3 : 1);
  if (!number || (word != "wrong-length" && *number < 0)) return false;
  if (word == "cut") cut_ = *number + 1;
  if (word == "garble") garbled_ = *number;
  if (word == "8bit") eightBit_ = *number;
  if (word == "wrong-length") lengthError_ = *number;
  return isFault(word);
}

bool Faults::setSilence(const std::vector<std::string>& arguments) {
  if (arguments.empty()) return false;
  silentAfter_ = -1;
  if (arguments[0] == "after") {
    const auto count = argument(arguments, 1, std::nullopt);
    if (!count || *count < 0) return false;
    silent_ = false;
    silentAfter_ = *count;
    return true;
  }
  silent_ = arguments[0] == "on";
  return silent_ || arguments[0] == "off";
}

// `reply` ends with CR.
void Faults::spoil(std::string& reply) {
  if (const auto by = std::exchange(lengthError_, 0); by > 0) {
    reply.insert(reply.size() - 1, static_cast<std::size_t>(by), 'X');
  } else if (by < 0) {
    const auto less = std::min<std::size_t>(reply.size() - 1, static_cast<std::size_t>(-by));
    reply.erase(reply.size() - 1 - less, less);
  }
  const auto end = reply.end() - 1;
  if (garbled_ > 0) {
    --garbled_;
    for (auto c = reply.begin(); c < end; c += std::min<std::ptrdiff_t>(3, end - c)) {
      *c = static_cast<char>('!' + (*c * 7 + 13) % 64);
    }
  }
  if (eightBit_ > 0) {
    --eightBit_;
    for (auto c = reply.begin(); c != end; ++c) *c = static_cast<char>(*c | 0x80);
  }
  const auto cut = static_cast<std::size_t>(std::exchange(cut_, 0));
  reply.resize(reply.size() - std::min(cut, reply.size()));
}

std::vector<OutgoingPart> Faults::apply(std::string reply) {
  if (silentAfter_ == 0) silent_ = true;
  if (silentAfter_ >= 0) --silentAfter_;
  if (silent_ || reply.empty()) return {};
  spoil(reply);
  Instant delay{};
  if (delayed_ > 0) {
    --delayed_;
    delay = delay_;
  }
  const bool join = std::exchange(join_, false);
  if (join) reply += reply;
  if (!std::exchange(split_, false)) return {{reply, delay, join}};
  const std::size_t half = reply.size() / 2;
  return {{reply.substr(0, half), delay, true},
          {reply.substr(half), delay + std::chrono::milliseconds(50), true}};
}

}  // namespace tarnvex::radio
