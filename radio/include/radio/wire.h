#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "radio/line_log.h"
#include "radio/pseudo_terminal.h"
#include "radio/serial_line.h"

namespace tarnvex::radio {

/// The command line's options for the wire.
struct WireOptions {
  LineOptions line;
  bool anyBaud = false;  ///< answer at whatever baud rate the terminal is set to
  std::string link;      ///< empty: none
  std::string log;       ///< empty: none
};

/// A serial line with a pseudo terminal at its end. A command at another baud rate than the line's
/// isn't answered; an unpaced line accepts any.
///
/// It has no loop of its own: call readable() when fd() can be read, and due() at deadline().
class Wire {
 public:
  /// Opens the terminal. Throws std::system_error or std::runtime_error (log).
  Wire(Radio& radio, const WireOptions& options, Instant now);

  /// -1 while unplugged.
  [[nodiscard]] int fd() const { return terminal_ ? terminal_->fd() : -1; }
  [[nodiscard]] std::string path() const { return terminal_ ? terminal_->path() : ""; }
  [[nodiscard]] std::optional<Instant> deadline(Instant now) const { return line_.deadline(now); }
  void readable(Instant now);
  void due(Instant now);

  /// Unplugs the radio: its terminal and the link are removed. `replug` creates a new terminal with
  /// the same link.
  void hangUp();
  void replug(Instant now);
  /// Sends a line now that nobody asked for.
  void stray(std::string_view text, Instant now);

  SerialLine& line() { return line_; }
  Radio& radio() { return line_.radio(); }

 private:
  void openTerminal();
  [[nodiscard]] bool hears() const;

  SerialLine line_;
  bool anyBaud_;
  LineLog log_;
  StableLink link_;
  std::unique_ptr<PseudoTerminal> terminal_;
};

}  // namespace tarnvex::radio
