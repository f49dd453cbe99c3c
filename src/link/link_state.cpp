#include "link/link_state.h"

#include <utility>

#include "link/answer_filter.h"

namespace tarnvex::link {
namespace {

using platform::PortTrouble;

std::string describe(PortTrouble trouble, const std::string& device, const std::string& failure) {
  switch (trouble) {
    case PortTrouble::NoDevice:
      return "No serial device found";
    case PortTrouble::NotThere:
      return device + " isn't there; is the adapter plugged in?";
    case PortTrouble::NoRight:
      return device + ": no permission to use it; join the group dialout";
    case PortTrouble::InUse:
      return device + ": in use by another program";
    default:
      return failure;
  }
}

}  // namespace

void LinkState::opened(const platform::SerialPort& port,
                       const std::optional<std::string>& failure) {
  device_ = port.deviceName();
  awaiting_ = lost_ = false;
  explained_ = failure.has_value();
  if (failure) {
    set(describe(port.trouble(), device_, *failure), false);
  } else {
    set("Waiting for the radio on " + device_, false);
  }
}

void LinkState::closed() {
  awaiting_ = false;
  if (!explained_) {
    set("Not connected", false);
  }
}

void LinkState::sent(std::string_view text) {
  awaiting_ = true;
  textSince_.reset();
  asked_ = text;
  lines_.clear();
}

void LinkState::received(std::string_view text) {
  if (hums(text)) {
    lines_.clear();
    showNoReply();
    return;
  }
  awaiting_ = false;
  if (!live_ && bringsAnswer(text)) {
    explained_ = false;
    set("Connected to " + radio_ + " on " + device_, true);
  }
}

/// Other devices talk, too: one that tells its position does so without being asked.
bool LinkState::bringsAnswer(std::string_view text) {
  lines_ += text;
  std::size_t end = 0;
  while ((end = lines_.find('\r')) != std::string::npos) {
    const std::string line = lines_.substr(0, end);
    lines_.erase(0, end + 1);
    if (hasKnownForm(line) && asked_ != line + '\r') {
      return true;
    }
  }
  return false;
}

void LinkState::deviceIsBack() {
  if (std::exchange(lost_, false)) {
    set("The adapter is plugged in again; press Connect", false);
  }
}

void LinkState::waitedInVain(const platform::SerialPort& port) {
  if (port.trouble() == PortTrouble::Lost && !std::exchange(lost_, true)) {
    explained_ = true;
    set(device_ + " was unplugged at " + time(), false);
  } else if (awaiting_) {
    showNoReply();
  }
}

bool LinkState::hums(std::string_view text) {
  if (text.find('\r') != std::string_view::npos) {
    textSince_.reset();
    return false;
  }
  textSince_ = textSince_.value_or(clock_.seconds());
  return clock_.seconds() - *textSince_ > 1;
}

void LinkState::showNoReply() {
  if (!std::exchange(explained_, true)) {
    set(device_ + ": no reply since " + time() + "; is the radio in its Remote mode?", false);
  }
}

void LinkState::set(std::string text, bool live) {
  if (text != text_ || live != live_) {
    text_ = std::move(text);
    live_ = live;
    changed.notify();
  }
}

std::string LinkState::time() const {
  constexpr std::size_t kTimeStart = 11;
  constexpr std::size_t kTimeLength = 5;
  const std::string now = clock_.now();
  return now.size() >= kTimeStart ? now.substr(kTimeStart, kTimeLength) : now;
}

}  // namespace tarnvex::link
