#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "radio/faults.h"
#include "radio/line_log.h"
#include "radio/line_pacer.h"
#include "radio/pseudo_terminal.h"
#include "radio/radio.h"

namespace tarnvex::radio {

struct WireOptions {
  int baud = 9600;  ///< 0: unpaced, and any baud rate will do
  bool anyBaud = false;
  std::string link;  ///< empty: none
  std::string log;   ///< empty: none
  /// Unset: 3 ms on a paced line, nothing on an unpaced one.
  std::optional<Instant> think;
};

/// Ties a radio to a pseudo terminal. Commands end with CR; LF is ignored.
///
/// An empty line is a command like any other and is answered "ERR"; if it follows a command
/// directly (a doubled CR), both replies come in one piece, as they would through the buffer of an
/// adapter. A line that comes at another baud rate than the radio's isn't answered.
///
/// Owns no loop: call readable() when fd() can be read, and due() at deadline().
class Wire {
 public:
  /// Opens the terminal. Throws std::system_error or std::runtime_error (log).
  Wire(Radio& radio, const WireOptions& options, Instant now);

  /// -1 while unplugged.
  int fd() const { return terminal_ ? terminal_->fd() : -1; }
  std::string path() const { return terminal_ ? terminal_->path() : ""; }
  std::optional<Instant> deadline(Instant now) const;
  void readable(Instant now);
  void due(Instant now);

  /// Unplugged: the terminal goes, and its link with it. Plugged in: a new terminal, the same link.
  void hangUp();
  void replug(Instant now);
  /// A line that nobody asked for.
  void stray(std::string_view text, Instant now);
  void setBaud(int baud);
  void setThink(Instant think) { pacer_.setThink(think); }

  Faults& faults() { return faults_; }
  Radio& radio() { return radio_; }

 private:
  struct Burst {
    std::string text;
    Instant arrived{};
    bool joined = false;
  };
  void openTerminal();
  void passTime(Instant now);
  bool hears() const;
  void answer(std::string_view line, Instant arrived, Burst& burst);
  void flush(Burst& burst);
  void deliver(Instant now);

  Radio& radio_;
  WireOptions options_;
  LinePacer pacer_;
  Faults faults_;
  LineLog log_;
  StableLink link_;
  std::unique_ptr<PseudoTerminal> terminal_;
  std::string input_;
  Instant lived_;  ///< the radio's time has been passed up to here
};

}  // namespace tarnvex::radio
