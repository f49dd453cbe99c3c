#include "radio/line_pacer.h"

#include <algorithm>

namespace tarnvex::radio {

Instant LinePacer::spanOf(std::size_t count) const {
  constexpr std::int64_t kBitsPerByte = 10, kSecond = 1'000'000'000;
  const std::int64_t bits = static_cast<std::int64_t>(count) * kBitsPerByte;
  return Instant{baud_ > 0 ? bits * kSecond / baud_ : 0};
}

Instant LinePacer::arrive(Instant now, std::size_t count) {
  // This answers bytes that were delivered late. On a real line it would have come earlier.
  const Instant begin = std::max(now - late_, inputFree_);
  late_ = Instant{0};
  inputFree_ = begin + spanOf(count);
  return inputFree_;
}

void LinePacer::reply(std::string_view bytes, Instant ready, bool whole) {
  send(bytes, ready + think_, whole);
}

void LinePacer::send(std::string_view bytes, Instant from, bool whole) {
  constexpr std::size_t kPiece = 8;
  const Instant begin = std::max(from, outputFree_);
  const std::size_t step = whole || baud_ <= 0 ? std::max<std::size_t>(bytes.size(), 1) : kPiece;
  for (std::size_t at = 0; at < bytes.size(); at += step) {
    const auto piece = bytes.substr(at, step);
    pieces_.push_back({begin + spanOf(at + piece.size()), std::string(piece)});
  }
  outputFree_ = begin + spanOf(bytes.size());
}

std::optional<Instant> LinePacer::nextDue() const {
  return pieces_.empty() ? std::nullopt : std::optional(pieces_.front().due);
}

std::string LinePacer::take(Instant now) {
  constexpr Instant kMostCredit = std::chrono::milliseconds(20);
  std::string bytes;
  while (!pieces_.empty() && pieces_.front().due <= now) {
    bytes += pieces_.front().bytes;
    late_ = baud_ > 0 ? std::min(now - pieces_.front().due, kMostCredit) : Instant{0};
    pieces_.pop_front();
  }
  return bytes;
}

void LinePacer::clear() {
  pieces_.clear();
  inputFree_ = outputFree_ = late_ = Instant{0};
}

}  // namespace tarnvex::radio
