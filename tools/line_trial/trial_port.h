#pragma once

#include <deque>
#include <functional>
#include <string>
#include <string_view>

#include "platform/serial_port.h"
#include "radio/serial_line.h"
#include "support/fake_loop.h"

namespace tarnvex::trial {

/// A simulated radio on a line with its speed and faults. Its clock moves only while the program
/// waits at the port or sleeps in the loop.
struct TrialRadio {
  TrialRadio(radio::Model model, int baud, std::uint64_t seed)
      : radio(model, seed), line(radio, {.baud = baud, .seed = seed}, {}) {}

  [[nodiscard]] radio::Instant now() const {
    const std::int64_t slept = loop == nullptr ? 0 : loop->now();
    return waited + std::chrono::milliseconds(slept);
  }
  [[nodiscard]] radio::Millis milliseconds() const { return now().count() / 1'000'000; }

  radio::Instant waited{};
  const test::FakeLoop* loop = nullptr;
  radio::Radio radio;
  radio::SerialLine line;
};

/// The program's port on that line. After each exchange it checks whether the program has read the
/// radio's answer.
class TrialPort : public platform::SerialPort {
 public:
  explicit TrialPort(TrialRadio& radio) : radio_(radio) {}

  void setCommPort(int slot) override { slot_ = slot; }
  [[nodiscard]] int commPort() const override { return slot_; }
  void setSettings(std::string settings) override { settings_ = std::move(settings); }
  [[nodiscard]] const std::string& settings() const override { return settings_; }
  [[nodiscard]] bool portOpen() const override { return open_; }
  std::optional<std::string> open() override;
  void close() override { open_ = false; }
  [[nodiscard]] std::size_t inBufferCount() override;
  void discardInput() override;
  void output(std::string_view text) override;
  std::string input() override;
  bool waitForInput(std::size_t atLeast, platform::Spins& budget) override;
  bool waitForInput(std::size_t atLeast) override;

  /// The last exchanges as "MD > MD00; ...", oldest first.
  [[nodiscard]] std::string lastExchanges() const;

  /// Called before each command with its number, from 1.
  std::function<void(int number, std::string_view command)> beforeCommand;
  int commands = 0;
  /// How many exchanges in a row have ended without the radio's answer, and the highest such
  /// number.
  int missed = 0;
  int mostMissed = 0;
  /// How many waits without a limit only the user could have ended.
  int endlessWaits = 0;

 private:
  bool waitUntil(std::size_t atLeast, radio::Instant deadline);
  void receive();
  void judgeLastExchange();

  TrialRadio& radio_;
  int slot_ = 1;
  std::string settings_;
  bool open_ = false;
  std::string waiting_;
  std::string read_;
  std::string command_;
  std::string expected_;
  std::deque<std::string> exchanges_;
};

}  // namespace tarnvex::trial
