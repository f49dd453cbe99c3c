#include "radio/wire.h"

#include <algorithm>
#include <stdexcept>

namespace tarnvex::radio {
namespace {

Instant thinkOf(const WireOptions& options) {
  if (options.think) return *options.think;
  return options.baud > 0 ? Instant{std::chrono::milliseconds(3)} : Instant{0};
}

}  // namespace

Wire::Wire(Radio& radio, const WireOptions& options, Instant now)
    : radio_(radio),
      options_(options),
      pacer_(options.baud, thinkOf(options)),
      link_(options.link),
      lived_(now) {
  if (!options.log.empty() && !log_.open(options.log)) {
    throw std::runtime_error("cannot write " + options.log);
  }
  openTerminal();
}

void Wire::openTerminal() {
  terminal_ = std::make_unique<PseudoTerminal>(options_.baud);
  link_.pointTo(terminal_->path());
}

// Whole milliseconds only; the rest is passed with the next ones.
void Wire::passTime(Instant now) {
  const auto whole = std::chrono::duration_cast<std::chrono::milliseconds>(now - lived_);
  if (whole.count() <= 0) return;
  lived_ += whole;
  radio_.advance(whole.count());
}

std::optional<Instant> Wire::deadline(Instant now) const {
  auto deadline = pacer_.nextDue();
  if (const auto line = radio_.nextLineIn()) {
    const Instant at = lived_ + std::chrono::milliseconds(std::max<Millis>(1, *line));
    deadline = deadline ? std::min(*deadline, at) : at;
  }
  if (deadline) return std::max(*deadline, now);
  return deadline;
}

bool Wire::hears() const {
  return options_.baud == 0 || options_.anyBaud || terminal_->baud() == options_.baud;
}

void Wire::readable(Instant now) {
  if (!terminal_) return;
  const std::string bytes = terminal_->read();
  if (bytes.empty()) return;
  log_.toRadio(bytes, now);
  passTime(now);
  if (!hears()) {
    log_.note("other baud rate, not heard", now);
    input_.clear();
    return;
  }
  Burst burst;
  std::size_t begun = 0;
  for (std::size_t at = 0; at < bytes.size(); ++at) {
    const char c = bytes[at];
    if (c != '\r') {
      if (c != '\n') input_ += c;
      continue;
    }
    const Instant arrived = pacer_.arrive(now, at + 1 - begun);
    begun = at + 1;
    answer(input_, arrived, burst);
    input_.clear();
  }
  if (begun < bytes.size()) pacer_.arrive(now, bytes.size() - begun);
  flush(burst);
  deliver(now);
}

void Wire::answer(std::string_view line, Instant arrived, Burst& burst) {
  if (line.empty() && !burst.text.empty()) {
    burst.joined = true;
  } else {
    flush(burst);
  }
  burst.arrived = arrived;
  const auto parts = faults_.apply(radio_.exchange(line) + '\r');
  if (parts.size() == 1 && parts[0].delay.count() == 0 && !parts[0].whole) {
    burst.text += parts[0].bytes;
    return;
  }
  flush(burst);
  for (const OutgoingPart& part : parts) {
    pacer_.reply(part.bytes, arrived + part.delay, part.whole);
  }
}

void Wire::flush(Burst& burst) {
  if (!burst.text.empty()) pacer_.reply(burst.text, burst.arrived, burst.joined);
  burst = {};
}

void Wire::due(Instant now) {
  passTime(now);
  for (const std::string& line : radio_.unsolicited()) {
    if (!faults_.isSilent()) pacer_.send(line + '\r', now);
  }
  deliver(now);
}

void Wire::deliver(Instant now) {
  const std::string bytes = pacer_.take(now);
  if (bytes.empty() || !terminal_) return;
  terminal_->write(bytes);
  log_.fromRadio(bytes, now);
}

void Wire::hangUp() {
  link_.remove();
  terminal_.reset();
  input_.clear();
  pacer_.clear();
}

void Wire::replug(Instant now) {
  hangUp();
  openTerminal();
  log_.note("plugged in", now);
}

void Wire::stray(std::string_view text, Instant now) {
  pacer_.send(std::string(text) + '\r', now);
  deliver(now);
}

void Wire::setBaud(int baud) {
  options_.baud = baud;
  pacer_.setBaud(baud);
}

}  // namespace tarnvex::radio
