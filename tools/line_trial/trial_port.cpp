#include "line_trial/trial_port.h"

#include <algorithm>
#include <utility>

namespace tarnvex::trial {
namespace {

constexpr radio::Instant kSpin = std::chrono::microseconds(platform::kSpinMicroseconds);
/// How long a wait without a limit lasts, until the user would end it.
constexpr radio::Instant kPatience = std::chrono::seconds(5);

}  // namespace

std::optional<std::string> TrialPort::open() {
  const bool before = std::exchange(open_, true);
  return before ? std::optional<std::string>("Port already open") : std::nullopt;
}

void TrialPort::receive() {
  waiting_ += radio_.line.fromRadio(radio_.now);
}

std::size_t TrialPort::inBufferCount() {
  receive();
  return open_ ? waiting_.size() : 0;
}

void TrialPort::discardInput() {
  receive();
  waiting_.clear();
}

void TrialPort::output(std::string_view text) {
  judgeLastExchange();
  const std::string_view command = text.substr(0, text.find('\r'));
  if (beforeCommand) {
    beforeCommand(++commands, command);
  }
  radio::Radio copy = radio_.radio;
  expected_ = copy.exchange(command).substr(0, 2);
  radio_.line.toRadio(text, radio_.now);
}

void TrialPort::judgeLastExchange() {
  const bool answered =
      ("\r" + std::exchange(read_, {})).find("\r" + expected_) != std::string::npos;
  missed = answered || !open_ ? 0 : missed + 1;
  mostMissed = std::max(mostMissed, missed);
}

std::string TrialPort::input() {
  receive();
  read_ += waiting_;
  return std::exchange(waiting_, {});
}

bool TrialPort::waitUntil(std::size_t atLeast, radio::Instant deadline) {
  while (inBufferCount() < atLeast) {
    if (!open_ || radio_.now >= deadline) {
      return false;
    }
    const auto due = radio_.line.deadline(radio_.now);
    // Moves at least one spin on, since the radio's own clock only counts milliseconds.
    const radio::Instant next = std::max(due.value_or(deadline), radio_.now + kSpin);
    radio_.now = std::min(next, deadline);
  }
  return true;
}

bool TrialPort::waitForInput(std::size_t atLeast, platform::Spins& budget) {
  const radio::Instant deadline = radio_.now + budget.left * kSpin;
  const bool arrived = waitUntil(atLeast, deadline);
  budget.left = open_ ? static_cast<int>((deadline - radio_.now) / kSpin) : budget.left;
  return arrived;
}

bool TrialPort::waitForInput(std::size_t atLeast) {
  return waitUntil(atLeast, radio_.now + kPatience);
}

}  // namespace tarnvex::trial
