#include "radio/serial_line.h"

#include <algorithm>

#include "radio/replies.h"

namespace tarnvex::radio {
namespace {

/// A reply as it is without faults.
bool isPlain(const std::vector<OutgoingPart>& parts) {
  return parts.size() == 1 && parts[0].delay.count() == 0 && !parts[0].whole &&
         parts[0].timing == OutgoingPart::Timing::Reply;
}

Instant thinkOf(const LineOptions& options) {
  const Instant usual = options.baud > 0 ? std::chrono::milliseconds(3) : Instant{0};
  return options.think.value_or(usual);
}

}  // namespace

SerialLine::SerialLine(Radio& radio, const LineOptions& options, Instant now)
    : radio_(radio), pacer_(options.baud, thinkOf(options)), faults_(options.seed), lived_(now) {}

// Passes whole milliseconds. The rest is passed later.
void SerialLine::passTime(Instant now) {
  const auto whole = std::chrono::duration_cast<std::chrono::milliseconds>(now - lived_);
  if (whole.count() <= 0) {
    return;
  }
  lived_ += whole;
  radio_.advance(whole.count());
}

std::optional<Instant> SerialLine::deadline(Instant now) const {
  auto deadline = pacer_.nextDue();
  const auto atLatest = [&deadline](Instant at) { deadline = std::min(deadline.value_or(at), at); };
  if (const auto line = radio_.nextLineIn()) {
    atLatest(lived_ + std::chrono::milliseconds(std::max<Millis>(1, *line)));
  }
  if (!apart_.empty()) {
    atLatest(apart_.begin()->first);
  }
  if (deadline) {
    return std::max(*deadline, now);
  }
  return deadline;
}

void SerialLine::toRadio(std::string_view bytes, Instant now) {
  passTime(now);
  Burst burst;
  std::size_t begun = 0;
  for (std::size_t at = 0; at < bytes.size(); ++at) {
    const char c = bytes[at];
    if (c != '\r') {
      if (c != '\n') {
        input_ += c;
      }
      continue;
    }
    const Instant arrived = pacer_.arrive(now, at + 1 - begun);
    begun = at + 1;
    answer(arrived, burst);
    input_.clear();
  }
  if (begun < bytes.size()) {
    pacer_.arrive(now, bytes.size() - begun);
  }
  flush(burst);
}

void SerialLine::answer(Instant arrived, Burst& burst) {
  if (input_.empty() && !burst.text.empty()) {
    burst.joined = true;
  } else {
    flush(burst);
  }
  burst.arrived = arrived;
  std::string reply = radio_.exchange(input_) + '\r';
  const auto parts = faults_.apply(
      {input_, std::move(reply), streamedLine(radio_.state()), radio_.state().streaming});
  if (isPlain(parts)) {
    burst.text += parts[0].bytes;
    return;
  }
  flush(burst);
  for (const OutgoingPart& part : parts) {
    queue(part, arrived);
  }
}

void SerialLine::queue(const OutgoingPart& part, Instant arrived) {
  const Instant at = arrived + part.delay;
  switch (part.timing) {
    case OutgoingPart::Timing::Reply:
      sendApart(at + pacer_.think());
      pacer_.reply(part.bytes, at, part.whole);
      break;
    case OutgoingPart::Timing::AtOnce:
      pacer_.send(part.bytes, at, part.whole);
      break;
    case OutgoingPart::Timing::Apart:
      apart_.emplace(at, part.bytes);
      break;
  }
}

void SerialLine::flush(Burst& burst) {
  if (!burst.text.empty()) {
    sendApart(burst.arrived + pacer_.think());
    pacer_.reply(burst.text, burst.arrived, burst.joined);
  }
  burst = {};
}

std::string SerialLine::fromRadio(Instant now) {
  passTime(now);
  for (const std::string& line : radio_.unsolicited()) {
    if (!faults_.isSilent()) {
      pacer_.send(faults_.noisy(line + '\r'), now);
    }
  }
  sendApart(now);
  return pacer_.take(now);
}

void SerialLine::sendApart(Instant until) {
  while (!apart_.empty() && apart_.begin()->first <= until) {
    pacer_.send(apart_.begin()->second, apart_.begin()->first);
    apart_.erase(apart_.begin());
  }
}

void SerialLine::stray(std::string_view text, Instant now) {
  pacer_.send(std::string(text) + '\r', now);
}

void SerialLine::dropAll() {
  input_.clear();
  pacer_.clear();
  apart_.clear();
}

}  // namespace tarnvex::radio
