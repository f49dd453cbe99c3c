#include "radio/line_log.h"

namespace tarnvex::radio {
namespace {

std::string shown(std::string_view line) {
  std::string text;
  for (const char c : line) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '\r') {
      text += "<CR>";
    } else if (byte >= 0x20 && byte < 0x7F) {
      text += c;
    } else {
      constexpr std::string_view kHex = "0123456789ABCDEF";
      text += {'<', kHex[byte >> 4], kHex[byte & 15], '>'};
    }
  }
  return text;
}

}  // namespace

bool LineLog::open(const std::string& path) {
  file_.reset(path == "-" ? stderr : std::fopen(path.c_str(), "w"));
  return isOpen();
}

void LineLog::add(char direction, std::string& line, std::string_view bytes, Instant now) {
  if (!isOpen()) {
    return;
  }
  for (const char c : bytes) {
    line += c;
    if (c != '\r') {
      continue;
    }
    write(direction, line, now);
    line.clear();
  }
}

void LineLog::write(char direction, std::string_view line, Instant now) {
  if (!isOpen()) {
    return;
  }
  if (!started_) {
    start_ = now;
  }
  started_ = true;
  const double seconds = static_cast<double>((now - start_).count()) / 1e9;
  std::fprintf(file_.get(), "%12.6f %c %s\n", seconds, direction, shown(line).c_str());
  std::fflush(file_.get());
}

}  // namespace tarnvex::radio
