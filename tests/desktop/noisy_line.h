#pragma once

#include <functional>

#include "platform/event_gate.h"
#include "platform/serial_port.h"
#include "radio/radio.h"
#include "radio/serial_line.h"

namespace tarnvex::test {

/// A simulated radio in the same process, on a line that can fail and be unplugged. Its time is
/// that of the exchanges and waits: a silent radio costs none of ours.
class NoisyLine : public platform::SerialPorts {
 public:
  explicit NoisyLine(radio::Model model, std::uint64_t seed)
      : radio(model, seed), line(radio, {.baud = 0, .seed = seed}, {}) {}
  std::unique_ptr<platform::SerialPort> create() override;

  /// Before the first wait: what a wait for bytes does so that the window lives on, and whether the
  /// user wants out of it.
  std::function<void()> meanwhile;
  std::function<bool()> leaving;

  void hangUp() { plugged_ = 0; }
  void plugIn() { plugged_ = ++plugs_; }
  /// A line that nobody asked for.
  void stray(const std::string& text) { line.stray(text, clock_); }

  /// Otherwise the radio understands 9600 baud only.
  bool anyBaud = false;
  radio::Radio radio;
  radio::SerialLine line;

 private:
  friend class NoisyPort;
  void pass(radio::Instant time);

  int plugs_ = 1;
  /// Number of the plugging-in; 0 while unplugged.
  int plugged_ = 1;
  radio::Instant clock_{};
  std::string waiting_;
};

}  // namespace tarnvex::test
