#include "link/watched_port.h"

namespace tarnvex::link {

std::optional<std::string> WatchedPort::open() {
  const bool before = inner_->portOpen();
  auto failure = inner_->open();
  if (!before) {
    watcher_.opened(*inner_, failure);
  }
  return failure;
}

void WatchedPort::close() {
  const bool before = inner_->portOpen();
  inner_->close();
  if (before) {
    watcher_.closed();
  }
}

void WatchedPort::discardInput() {
  if (const std::size_t waiting = inner_->inBufferCount(); waiting > 0) {
    watcher_.discarded(waiting);
  }
  inner_->discardInput();
}

void WatchedPort::output(std::string_view text) {
  if (inner_->portOpen()) {
    watcher_.sent(text);
  }
  inner_->output(text);
}

std::string WatchedPort::input() {
  std::string text = inner_->input();
  if (!text.empty()) {
    watcher_.received(text);
  }
  return text;
}

bool WatchedPort::waitForInput(std::size_t atLeast, platform::Spins& budget) {
  const bool came = inner_->waitForInput(atLeast, budget);
  if (!came) {
    watcher_.waitedInVain(*inner_);
  }
  return came;
}

bool WatchedPort::waitForInput(std::size_t atLeast) {
  const bool came = inner_->waitForInput(atLeast);
  if (!came && inner_->trouble() == platform::PortTrouble::Lost) {
    watcher_.waitedInVain(*inner_);
  }
  return came;
}

platform::SerialPortMaker watchedPorts(platform::SerialPortMaker inner, PortWatcher& watcher) {
  return [inner = std::move(inner), &watcher] {
    return std::make_unique<WatchedPort>(inner(), watcher);
  };
}

}  // namespace tarnvex::link
