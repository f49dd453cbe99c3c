#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/serial_port.h"

namespace tarnvex::link {

/// Is notified of everything that happens at a serial port. It can't change anything there.
class PortWatcher : private platform::NonCopyable {
 public:
  virtual ~PortWatcher() = default;

  /// The port was opened, or couldn't be: then `failure` says why.
  virtual void opened(const platform::SerialPort& port,
                      const std::optional<std::string>& failure) = 0;
  virtual void closed() = 0;
  virtual void sent(std::string_view text) = 0;
  virtual void received(std::string_view text) = 0;
  /// Bytes were discarded unread.
  virtual void discarded(std::size_t count) = 0;
  /// A wait ended without the bytes that it waited for: its time was up or the device is gone.
  virtual void waitedInVain(const platform::SerialPort& port) = 0;
};

/// A serial port that reports everything that happens on it to a watcher, which outlives it.
class WatchedPort : public platform::SerialPort {
 public:
  WatchedPort(std::unique_ptr<platform::SerialPort> inner, PortWatcher& watcher)
      : inner_(std::move(inner)), watcher_(watcher) {}

  void setCommPort(int slot) override { inner_->setCommPort(slot); }
  [[nodiscard]] int commPort() const override { return inner_->commPort(); }
  void setSettings(std::string settings) override { inner_->setSettings(std::move(settings)); }
  [[nodiscard]] const std::string& settings() const override { return inner_->settings(); }
  [[nodiscard]] bool portOpen() const override { return inner_->portOpen(); }
  std::optional<std::string> open() override;
  void close() override;
  [[nodiscard]] std::string deviceName() const override { return inner_->deviceName(); }
  [[nodiscard]] platform::PortTrouble trouble() const override { return inner_->trouble(); }
  [[nodiscard]] std::size_t inBufferCount() override { return inner_->inBufferCount(); }
  void discardInput() override;
  void output(std::string_view text) override;
  std::string input() override;
  bool waitForInput(std::size_t atLeast, platform::Spins& budget) override;
  bool waitForInput(std::size_t atLeast) override;
  [[nodiscard]] bool userLeaves() const override { return inner_->userLeaves(); }

 private:
  std::unique_ptr<platform::SerialPort> inner_;
  PortWatcher& watcher_;
};

/// Wraps the ports that `inner` makes so that they all report to one watcher. The watcher outlives
/// them.
platform::SerialPortMaker watchedPorts(platform::SerialPortMaker inner, PortWatcher& watcher);

}  // namespace tarnvex::link
