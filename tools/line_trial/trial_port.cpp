#include "line_trial/trial_port.h"

#include <algorithm>
#include <utility>

namespace tarnvex::trial {
namespace {

constexpr radio::Instant kSpin = std::chrono::microseconds(platform::kSpinMicroseconds);
/// How long a wait without a limit lasts, until the user would end it.
constexpr radio::Instant kPatience = std::chrono::seconds(5);
constexpr std::size_t kKept = 10;
constexpr std::size_t kLongest = 40;

/// On one line, without what can't be printed.
std::string readable(std::string text) {
  std::ranges::replace(text, '\r', '|');
  std::ranges::replace_if(
      text, [](unsigned char c) { return c < ' ' || c > '~'; }, '?');
  return text.size() <= kLongest ? text : text.substr(0, kLongest) + "...";
}

}  // namespace

std::optional<std::string> TrialPort::open() {
  const bool before = std::exchange(open_, true);
  return before ? std::optional<std::string>("Port already open") : std::nullopt;
}

void TrialPort::receive() {
  waiting_ += radio_.line.fromRadio(radio_.now());
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
  command_ = text.substr(0, text.find('\r'));
  ++commands;
  if (beforeCommand) {
    beforeCommand(commands, command_);
  }
  radio::Radio copy = radio_.radio;
  expected_ = copy.exchange(command_).substr(0, 2);
  radio_.line.toRadio(text, radio_.now());
}

void TrialPort::judgeLastExchange() {
  const bool answered = ("\r" + read_).find("\r" + expected_) != std::string::npos;
  exchanges_.push_back(readable(command_) + " > " + readable(std::exchange(read_, {})) +
                       (answered ? "" : " instead of " + readable(expected_)));
  if (exchanges_.size() > kKept) {
    exchanges_.pop_front();
  }
  missed = answered || !open_ ? 0 : missed + 1;
  mostMissed = std::max(mostMissed, missed);
}

std::string TrialPort::lastExchanges() const {
  std::string all;
  for (const std::string& exchange : exchanges_) {
    all += (all.empty() ? "" : "; ") + exchange;
  }
  return all;
}

std::string TrialPort::input() {
  receive();
  read_ += waiting_;
  return std::exchange(waiting_, {});
}

bool TrialPort::waitUntil(std::size_t atLeast, radio::Instant deadline) {
  while (inBufferCount() < atLeast) {
    const radio::Instant now = radio_.now();
    if (!open_ || now >= deadline) {
      return false;
    }
    const auto due = radio_.line.deadline(now);
    // Moves at least one spin on, since the radio's own clock only counts milliseconds.
    const radio::Instant next = std::max(due.value_or(deadline), now + kSpin);
    radio_.waited += std::min(next, deadline) - now;
  }
  return true;
}

bool TrialPort::waitForInput(std::size_t atLeast, platform::Spins& budget) {
  const radio::Instant deadline = radio_.now() + budget.left * kSpin;
  const bool arrived = waitUntil(atLeast, deadline);
  budget.left = open_ ? static_cast<int>((deadline - radio_.now()) / kSpin) : budget.left;
  return arrived;
}

bool TrialPort::waitForInput(std::size_t atLeast) {
  const bool arrived = waitUntil(atLeast, radio_.now() + kPatience);
  endlessWaits += arrived || !open_ ? 0 : 1;
  return arrived;
}

}  // namespace tarnvex::trial
