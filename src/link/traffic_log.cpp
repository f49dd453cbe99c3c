#include "link/traffic_log.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>

namespace tarnvex::link {
namespace {

using std::chrono::duration_cast;
using std::chrono::milliseconds;
using std::chrono::system_clock;

/// A line that never ends must not fill the memory.
constexpr std::size_t kLongestLine = 200;

std::string timeText(TrafficLog::Time when) {
  const std::time_t seconds = system_clock::to_time_t(when);
  const auto fraction = duration_cast<milliseconds>(when.time_since_epoch()).count() % 1000;
  std::tm local{};
  localtime_r(&seconds, &local);
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%02d:%02d:%02d.%03d", local.tm_hour, local.tm_min,
                local.tm_sec, static_cast<int>(fraction));
  return text.data();
}

void appendPrintable(std::string& to, std::string_view text) {
  for (const char character : text) {
    const auto byte = static_cast<unsigned char>(character);
    if (byte >= ' ' && byte < 0x7F) {
      to += character;
    } else {
      std::array<char, 8> code{};
      std::snprintf(code.data(), code.size(), "\\x%02X", byte);
      to += code.data();
    }
  }
}

std::string_view withoutEnd(std::string_view text) {
  return text.ends_with('\r') ? text.substr(0, text.size() - 1) : text;
}

}  // namespace

TrafficLog::Line& TrafficLog::add(char mark, std::string_view text) {
  Line& line = lines_[count_++ % kLines];
  line.when = system_clock::now();
  line.mark = mark;
  line.text.assign(text.substr(0, kLongestLine));
  inReply_ = false;
  return line;
}

void TrafficLog::opened(const platform::SerialPort& port,
                        const std::optional<std::string>& failure) {
  add('#', failure ? "not opened: " + *failure
                   : "opened " + port.deviceName() + " at " + port.settings());
}

void TrafficLog::sent(std::string_view text) {
  add('>', withoutEnd(text));
  awaiting_ = true;
}

void TrafficLog::received(std::string_view text) {
  awaiting_ = false;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\r'), text.size() - 1) + 1;
    const std::string_view piece = text.substr(0, end);
    const bool ends = piece.back() == '\r';
    if (inReply_) {
      std::string& line = lines_[(count_ - 1) % kLines].text;
      line.append(withoutEnd(piece).substr(0, kLongestLine - line.size()));
    } else {
      add('<', withoutEnd(piece));
    }
    inReply_ = !ends;
    text.remove_prefix(end);
  }
}

void TrafficLog::discarded(std::size_t count) {
  add('#', std::to_string(count) + " bytes discarded");
}

void TrafficLog::waitedInVain(const platform::SerialPort& port) {
  // Silence is only worth a line after a command: the radio need not send anything by itself.
  if (awaiting_) {
    add('#', port.trouble() == platform::PortTrouble::Lost ? "the device is gone" : "no reply");
    awaiting_ = false;
  }
}

std::string TrafficLog::text() const {
  std::string text;
  for (std::size_t i = count_ - std::min(count_, kLines); i < count_; ++i) {
    const Line& line = lines_[i % kLines];
    text += timeText(line.when) + ' ' + line.mark + ' ';
    appendPrintable(text, line.text);
    text += '\n';
  }
  return text;
}

}  // namespace tarnvex::link
