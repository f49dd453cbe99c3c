#pragma once

#include <functional>

#include "platform/event_gate.h"
#include "platform/serial_port.h"
#include "radio/radio.h"
#include "radio/serial_line.h"

namespace tarnvex::test {

/// A simulated radio in the same process, on a line that can fail and be unplugged. Its time moves
/// only with exchanges and waits, so a silent radio costs the test no real time.
class NoisyLine : private platform::NonCopyable {
 public:
  explicit NoisyLine(radio::Model model, std::uint64_t seed)
      : radio(model, seed), line(radio, {.baud = 0, .seed = seed}, {}) {}
  std::unique_ptr<platform::SerialPort> create();

  /// To be set before the first wait: what a wait for bytes calls so that the window stays
  /// responsive, and whether the user wants to end the wait.
  std::function<void()> meanwhile;
  std::function<bool()> leaving;

  void hangUp() { plugged_ = 0; }
  void plugIn() { plugged_ = ++plugs_; }
  /// Sends a line that nobody asked for.
  void stray(const std::string& text) { line.stray(text, clock_); }

  /// Whether the radio answers at any baud rate, or only at 9600.
  bool anyBaud = false;
  radio::Radio radio;
  radio::SerialLine line;

 private:
  friend class NoisyPort;
  void pass(radio::Instant time);

  int plugs_ = 1;
  /// How often it has been plugged in. 0 while it is unplugged.
  int plugged_ = 1;
  radio::Instant clock_{};
  std::string waiting_;
};

}  // namespace tarnvex::test
