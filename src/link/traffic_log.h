#pragma once

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

#include "link/watched_port.h"

namespace tarnvex::link {

/// The last lines sent and received on the port, with their times. It always records, and is read
/// when the user copies a report. Recording a line costs a copy of it and one reading of the clock.
class TrafficLog : public PortWatcher {
 public:
  static constexpr std::size_t kLines = 500;
  /// The time of day at which a line came.
  using Time = std::chrono::system_clock::time_point;

  TrafficLog() : lines_(kLines) {}

  /// The lines kept, oldest first: "11:46:02.123 > SI" for a command, "<" for a reply, "#" for what
  /// happened to the port. Times are local. Bytes that can't be printed appear as "\x0A".
  [[nodiscard]] std::string text() const;

  void opened(const platform::SerialPort& port, const std::optional<std::string>& failure) override;
  void closed() override { add('#', "closed"); }
  void sent(std::string_view text) override;
  void received(std::string_view text) override;
  void discarded(std::size_t count) override;
  void waitedInVain(const platform::SerialPort& port) override;

 private:
  struct Line {
    Time when;
    char mark = ' ';
    std::string text;
  };

  Line& add(char mark, std::string_view text);

  std::vector<Line> lines_;
  /// The number of lines ever added.
  std::size_t count_ = 0;
  /// The newest line is a reply that hasn't ended yet.
  bool inReply_ = false;
  /// Nothing has been received since the last command.
  bool awaiting_ = false;
};

}  // namespace tarnvex::link
