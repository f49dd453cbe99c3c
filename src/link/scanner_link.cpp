#include "link/scanner_link.h"

namespace tarnvex::link {
namespace {

constexpr std::string_view kLineEnd = "\r";
/// The closing line of a list is "END".
constexpr std::string_view kListEnd = "ND\r";

}  // namespace

void ScannerLink::detach(const platform::SerialPort& port) {
  for (Line* line : {&bc895_, &bc245_}) {
    if (line->port == &port) {
      *line = {};
    }
  }
}

std::string ScannerLink::SendCommand(std::string_view command) {
  const Line line = this->line();
  if (!send(line, command, 1)) {
    return {};
  }
  std::string buffer;
  // One spin is gone with the first byte. A reply without its end, after the last spin, loses a
  // real character to the cut: a reply that late is of no use to anybody.
  platform::Spins budget{kReadSpins - 1};
  while (!buffer.ends_with(kLineEnd) && line.port->waitForInput(1, budget)) {
    buffer += line.port->input();
  }
  return finish(std::move(buffer));
}

std::string ScannerLink::MultiLineQuery(std::string_view command) {
  const Line line = this->line();
  // An answer of three bytes or fewer is no list and counts as silence.
  return send(line, command, 4) ? finish(readToEnd(*line.port, kListEnd)) : std::string();
}

std::string ScannerLink::ReadReply() {
  platform::SerialPort* port = line().port;
  if (port == nullptr || reporting_ || !port->portOpen() ||
      !waitForFirst(*port, 1, kUnsolicitedSpins)) {
    return {};
  }
  return finish(readToEnd(*port, kLineEnd));
}

std::string ScannerLink::ProbeCommand(platform::SerialPort& port, std::string_view command) {
  if (!port.portOpen()) {
    return {};
  }
  port.discardInput();
  port.output(std::string(command) + std::string(kLineEnd));
  if (!waitForFirst(port, 1, kFirstByteSpins)) {
    port.close();
    return {};
  }
  return finish(readToEnd(port, kLineEnd));
}

bool ScannerLink::send(const Line& line, std::string_view command, std::size_t waiting) {
  if (line.port == nullptr || reporting_) {
    return false;
  }
  line.port->discardInput();
  if (!line.port->portOpen()) {
    return false;
  }
  line.port->output(std::string(command) + std::string(kLineEnd));
  if (!waitForFirst(*line.port, waiting, kFirstByteSpins)) {
    reportSilence(line);
    return false;
  }
  return true;
}

bool ScannerLink::waitForFirst(platform::SerialPort& port, std::size_t atLeast, int spins) {
  if (port.inBufferCount() >= atLeast) {
    return true;
  }
  state_.LinkWaiting = true;
  platform::Spins budget{spins};
  return port.waitForInput(atLeast, budget);
}

std::string ScannerLink::readToEnd(platform::SerialPort& port, std::string_view ending) {
  std::string buffer;
  while (!buffer.ends_with(ending) && port.waitForInput(1)) {
    buffer += port.input();
  }
  return buffer;
}

std::string ScannerLink::finish(std::string buffer) {
  if (!buffer.empty()) {
    buffer.pop_back();
  }
  state_.LinkWaiting = false;
  return buffer;
}

void ScannerLink::reportSilence(const Line& line) {
  // While the message stands, other handlers may run: their exchanges fail quietly, so that there
  // is one notice.
  reporting_ = true;
  dialogs_.messageBox(
      "Your scanner is not responding. Please check your connections and verify that you have "
      "selected the correct COM port, and that the scanner is in Remote mode.",
      "Scanner Not Responding", platform::kWarning);
  reporting_ = false;
  line.pollTimer->setEnabled(false);
  line.port->close();
}

}  // namespace tarnvex::link
