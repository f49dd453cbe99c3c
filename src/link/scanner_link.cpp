#include "link/scanner_link.h"

#include <utility>

#include "link/answer_filter.h"
#include "link/resync.h"

namespace tarnvex::link {
namespace {

constexpr std::string_view kLineEnd = "\r";
/// The closing line of a list is "END".
constexpr std::string_view kListEnd = "ND\r";
constexpr std::string_view kClosingLine = "\rEND\r";

std::string withoutLast(std::string text) {
  if (!text.empty()) {
    text.pop_back();
  }
  return text;
}

std::string_view firstLine(std::string_view reply) {
  return reply.substr(0, reply.find('\r'));
}

/// Where a list ends, just after its closing line; a stray line may follow it. Nothing if the
/// closing line hasn't come.
std::optional<std::size_t> endOfList(const std::string& lines) {
  if (lines.starts_with(kClosingLine.substr(1))) {
    return kClosingLine.size() - 1;
  }
  if (const std::size_t closing = lines.find(kClosingLine); closing != std::string::npos) {
    return closing + kClosingLine.size();
  }
  return lines.ends_with(kListEnd) ? std::optional(lines.size()) : std::nullopt;
}

/// Reads until `ended` is true, without a time limit. False if the device goes away first. Also
/// true if the user leaves.
bool readUntil(platform::SerialPort& port, std::string& buffer,
               bool (*ended)(const std::string& buffer)) {
  while (!ended(buffer) && port.waitForInput(1)) {
    buffer += port.input();
  }
  // If the device is gone, a wait ends before it uses any of its spins.
  platform::Spins look{1};
  return ended(buffer) || port.waitForInput(1, look) || look.left == 0;
}

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
  auto reply = readReply(*line.port, command);
  if (!reply) {
    reportSilence(line);
    return {};
  }
  state_.LinkWaiting = false;
  return *std::move(reply);
}

std::optional<std::string> ScannerLink::readReply(platform::SerialPort& port,
                                                  std::string_view command) {
  ReplyReader reader(command);
  // The first byte has taken one spin. Deliberate: a reply that is incomplete after the last spin
  // loses its last character, which isn't a carriage return.
  platform::Spins budget{kReadSpins - 1};
  while (!reader.complete() && port.waitForInput(1, budget)) {
    reader.add(port.input());
  }
  if (!reader.complete() && budget.left > 0) {
    return std::nullopt;
  }
  std::string reply = reader.take();
  inDoubt_ = reader.wasCut();
  owesSecond_ = command.ends_with(kLineEnd) && reply.find('\r') == std::string::npos;
  judge(command, reply);
  return reply;
}

void ScannerLink::judge(std::string_view command, std::string_view answer) {
  inDoubt_ = inDoubt_ || isDoubtfulAnswer(command, answer);
  if (const auto strange = strangenessOf(command, firstLine(answer)); !strange.empty()) {
    // The same twice is how this radio answers.
    inDoubt_ = inDoubt_ || strange != strangeness_;
    strangeness_ = strange;
  }
}

std::string ScannerLink::MultiLineQuery(std::string_view command) {
  const Line line = this->line();
  // An answer of three bytes or fewer isn't a list and counts as silence.
  if (!send(line, command, 4)) {
    return {};
  }
  std::string lines;
  const auto hasEnded = [](const std::string& text) { return endOfList(text).has_value(); };
  if (!readUntil(*line.port, lines, hasEnded)) {
    reportSilence(line);
    return {};
  }
  state_.LinkWaiting = false;
  if (const auto end = endOfList(lines)) {
    lines = withoutStrayLines(command, lines.substr(0, *end));
  } else {
    inDoubt_ = true;
  }
  return withoutLast(std::move(lines));
}

std::string ScannerLink::ReadReply() {
  platform::SerialPort* port = line().port;
  if (port == nullptr || reporting_ || !port->portOpen()) {
    return {};
  }
  const bool owed = std::exchange(owesSecond_, false);
  if (!waitForFirst(*port, 1, kUnsolicitedSpins)) {
    // The line was quiet for long enough.
    inDoubt_ = false;
    return {};
  }
  std::string buffer;
  const auto lineHasEnded = [](const std::string& text) { return text.ends_with(kLineEnd); };
  if (!readUntil(*port, buffer, lineHasEnded)) {
    // The next exchange reports it.
    return {};
  }
  inDoubt_ = inDoubt_ || !lineHasEnded(buffer);
  state_.LinkWaiting = false;
  buffer = withoutLast(std::move(buffer));
  if (owed) {
    judge({}, buffer);
  }
  return buffer;
}

std::string ScannerLink::ProbeCommand(platform::SerialPort& port, std::string_view command) {
  if (!port.portOpen()) {
    return {};
  }
  // The port has just been opened, so an answer to somebody else may still arrive.
  letFallQuiet(port);
  port.discardInput();
  port.output(std::string(command) + std::string(kLineEnd));
  if (waitForFirst(port, 1, kFirstByteSpins)) {
    if (auto reply = readReply(port, command)) {
      state_.LinkWaiting = false;
      return *std::move(reply);
    }
  }
  port.close();
  return {};
}

bool ScannerLink::mayGoOn() const {
  const platform::SerialPort* port = line().port;
  return port != nullptr && port->portOpen() && !port->userLeaves();
}

bool ScannerLink::send(const Line& line, std::string_view command, std::size_t waiting) {
  if (line.port == nullptr || reporting_) {
    return false;
  }
  if ((inDoubt_ || owesSecond_) && !waitUntilUsable(*line.port)) {
    return false;
  }
  inDoubt_ = owesSecond_ = false;
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

void ScannerLink::reportSilence(const Line& line) {
  if (!line.port->portOpen()) {
    return;
  }
  // While the message is open, other handlers may run. Their exchanges fail without a message of
  // their own.
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
