#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "link/watched_port.h"
#include "platform/clock.h"
#include "platform/notifier.h"

namespace tarnvex::link {

/// The state of the line in words for the user, and whether what the panel shows is live. It
/// watches the port of a main window, so nobody has to report anything to it. The windows show it.
/// A line that only hums, without line ends, isn't live.
class LinkState : public PortWatcher {
 public:
  /// `radio` is the name of the window's radio, such as "BC895XLT".
  LinkState(std::string_view radio, const platform::Clock& clock) : radio_(radio), clock_(clock) {}

  /// One line, such as "Connected to BC895XLT on ttyUSB0" or "ttyUSB0: in use by another program".
  [[nodiscard]] const std::string& text() const { return text_; }
  /// The port is open and the radio answers.
  [[nodiscard]] bool live() const { return live_; }
  /// The name of the device that was opened last, such as "ttyUSB0".
  [[nodiscard]] const std::string& device() const { return device_; }
  /// The device is there, perhaps again.
  void deviceIsBack();

  /// The text or `live` has changed.
  platform::Notifier<> changed;

  void opened(const platform::SerialPort& port, const std::optional<std::string>& failure) override;
  void closed() override;
  void sent(std::string_view text) override;
  void received(std::string_view text) override;
  void discarded(std::size_t /*count*/) override {}
  void waitedInVain(const platform::SerialPort& port) override;

 private:
  void set(std::string text, bool live);
  /// Whether the bytes that came last belong to a text that has gone on too long for an answer.
  bool hums(std::string_view text);
  void showNoReply();
  /// Whether a line that only a radio sends has come since the last command.
  bool bringsAnswer(std::string_view text);
  /// The current time as hours and minutes.
  [[nodiscard]] std::string time() const;

  std::string radio_;
  const platform::Clock& clock_;
  std::string device_;
  std::string text_ = "Not connected";
  bool live_ = false;
  /// Nothing has been received since the last command.
  bool awaiting_ = false;
  /// When the text began that has no line end yet, in the clock's seconds.
  std::optional<std::int64_t> textSince_;
  /// The last command and, while the line isn't live, what has come since then.
  std::string asked_;
  std::string lines_;
  /// The device went away while it was open.
  bool lost_ = false;
  /// The text says why the line is dead, so closing the port doesn't change it.
  bool explained_ = false;
};

}  // namespace tarnvex::link
