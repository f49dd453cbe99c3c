#include "monitor/reception_joiner.h"

#include <algorithm>
#include <utility>

namespace tarnvex::monitor {
namespace {

/// On a trunked system a conversation may move from one frequency to another.
bool isSame(const Heard& one, const Heard& other) {
  // The bank isn't known while an answer of the radio can't be read.
  const bool sameBank = one.bank == other.bank || one.bank == 0 || other.bank == 0;
  return one.talkgroup == other.talkgroup && one.channel == other.channel &&
         (one.talkgroup.empty() ? one.frequency == other.frequency && one.bank == other.bank
                                : sameBank);
}

}  // namespace

std::optional<Reception> ReceptionJoiner::tick(const Heard* heard, std::int64_t now,
                                               const std::string& radio) {
  auto ended = endIfStill(now);
  lastTick_ = now;
  if (heard == nullptr) {
    return open_ && now - lastHeard_ >= kGap ? end() : ended;
  }
  if (open_ && !isSame(open_->heard, *heard)) {
    ended = end();
  }
  if (!open_) {
    open_.emplace();
    open_->started = now;
    open_->heard = *heard;
    open_->radio = radio;
  }
  goOn(*heard, now);
  return ended;
}

void ReceptionJoiner::goOn(const Heard& heard, std::int64_t now) {
  Heard& joined = open_->heard;
  joined.bars = std::max(joined.bars, heard.bars);
  if (joined.tag.empty()) {
    joined.tag = heard.tag;
  }
  joined.bank = joined.bank == 0 ? heard.bank : joined.bank;
  open_->seconds = static_cast<double>(std::max<std::int64_t>(now - open_->started, 0)) / 1000;
  lastHeard_ = now;
}

std::optional<Reception> ReceptionJoiner::endIfStill(std::int64_t now) {
  return open_ && now - lastTick_ >= kStill ? end() : std::nullopt;
}

std::optional<Reception> ReceptionJoiner::end() {
  return std::exchange(open_, std::nullopt);
}

void ReceptionJoiner::record(const std::string& file) {
  if (open_ && open_->recording.empty()) {
    open_->recording = file;
  }
}

}  // namespace tarnvex::monitor
