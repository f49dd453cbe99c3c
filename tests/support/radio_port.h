#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/serial_port.h"
#include "radio/radio.h"

namespace tarnvex::test {

/// A line to a simulated radio in the same process. Every command is answered at once, and moves
/// the radio's time on by `kExchange`.
class RadioPort : public platform::SerialPort {
 public:
  explicit RadioPort(radio::Radio& radio) : radio_(radio) {}

  void setCommPort(int slot) override { slot_ = slot; }
  [[nodiscard]] int commPort() const override { return slot_; }
  void setSettings(std::string settings) override { settings_ = std::move(settings); }
  [[nodiscard]] const std::string& settings() const override { return settings_; }

  [[nodiscard]] bool portOpen() const override { return open_; }
  std::optional<std::string> open() override {
    open_ = true;
    return std::nullopt;
  }
  void close() override { open_ = false; }

  [[nodiscard]] std::size_t inBufferCount() override { return waiting_.size(); }
  void discardInput() override { waiting_.clear(); }
  void output(std::string_view text) override {
    radio_.advance(kExchange);
    waiting_ += radio_.exchange(text.substr(0, text.find('\r'))) + "\r";
  }
  std::string input() override { return std::exchange(waiting_, {}); }
  bool waitForInput(std::size_t atLeast, platform::Spins& /*budget*/) override {
    return waitForInput(atLeast);
  }
  bool waitForInput(std::size_t atLeast) override { return open_ && waiting_.size() >= atLeast; }

 private:
  static constexpr radio::Millis kExchange = 17;

  radio::Radio& radio_;
  int slot_ = 1;
  std::string settings_ = "9600,n,8,1";
  bool open_ = false;
  std::string waiting_;
};

}  // namespace tarnvex::test
