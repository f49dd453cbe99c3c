#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "link/id_stream.h"
#include "link/scanner_commands.h"
#include "platform/controls.h"
#include "platform/dialogs.h"
#include "platform/serial_port.h"
#include "platform/shared_state.h"

namespace tarnvex::link {

/// The only way to the radio: a strict exchange of one command and one reply in plain text, each
/// ended by a carriage return. It doesn't know what a command means; scanner_commands.h does. No
/// queue, no retry, no checksum.
///
/// Called by the poll and by every handler that talks to the radio, from the core's thread. A call
/// returns when the reply has come or the wait has been given up; no function of the core runs in
/// between.
///
/// A line that can't be the answer (see answer_filter.h) is skipped, and the wait goes on within
/// its limit. If something may still be on its way after an exchange, the next exchange first waits
/// until the line is quiet (see resync.h).
///
/// All operations return the reply without its last character, inner carriage returns and all, and
/// the empty text on any failure. A closed port isn't an error: the result is empty at once.
/// Nothing throws.
class ScannerLink {
 public:
  /// The most spins for the first byte of a reply, and for the rest of it.
  static constexpr int kFirstByteSpins = 72500;
  static constexpr int kReadSpins = 72500;
  /// The most spins for a line that the radio sends by itself.
  static constexpr int kUnsolicitedSpins = 2000;

  ScannerLink(platform::SharedState& state, platform::Dialogs& dialogs)
      : state_(state), dialogs_(dialogs) {}

  /// A main window lends its port and its poll timer to the link for as long as it lives. The
  /// exchange uses those of the window that `ModelKey` picks: the BC245XLT's for "BC245", the
  /// BC895XLT's for everything else.
  struct Line {
    platform::SerialPort* port = nullptr;
    platform::Timer* pollTimer = nullptr;
  };
  void attachBc895(Line line) { bc895_ = line; }
  void attachBc245(Line line) { bc245_ = line; }
  /// The window with this port is about to be destroyed. From now on, exchanges for its model
  /// return empty at once.
  void detach(const platform::SerialPort& port);

  /// Discards what has been received, sends a command and returns its reply. If the radio stays
  /// silent, or the device goes away before the reply ends, the user sees one message, the poll
  /// stops and the port closes.
  std::string SendCommand(std::string_view command);
  /// The radio's list of skipped search frequencies: all lines, including the closing "END".
  std::string QuerySearchSkips() { return MultiLineQuery(command::kSearchSkips); }
  /// The radio's list of locked-out IDs, likewise.
  std::string QueryIdLockouts() { return MultiLineQuery(command::kIdLockouts); }
  /// Reads one line that the radio sends by itself, or the second answer to a command with a line
  /// end of its own. Gives up soon and reports nothing.
  std::string ReadReply();
  /// The splash window's exchange, on its own port. Silence closes the port, without a message.
  std::string ProbeCommand(platform::SerialPort& port, std::string_view command);

  /// Whether a series of exchanges makes sense: the port is open and the user isn't leaving.
  [[nodiscard]] bool mayGoOn() const;

  /// For callers that can tell from a reply that the exchange is out of step. The next exchange
  /// first waits until the line is quiet.
  void resynchronise() { inDoubt_ = true; }
  /// Whether the last answer may be incomplete or another command's.
  [[nodiscard]] bool inDoubt() const { return inDoubt_; }

  /// The stream of IDs, for the poll's ID loops and for code that ends them.
  IdStream& ids() { return ids_; }

 private:
  [[nodiscard]] Line line() const { return state_.ModelKey == "BC245" ? bc245_ : bc895_; }
  /// Flushes, sends and waits until more than `waiting` bytes are there. False on a closed port or
  /// after silence.
  bool send(const Line& line, std::string_view command, std::size_t waiting);
  bool waitForFirst(platform::SerialPort& port, std::size_t atLeast, int spins);
  std::string MultiLineQuery(std::string_view command);
  /// The reply, or the part of it that has come when the limit is reached. Nothing if the device is
  /// gone.
  std::optional<std::string> readReply(platform::SerialPort& port, std::string_view command);
  /// Puts the exchange in doubt if this answer to the command may be another's.
  void judge(std::string_view command, std::string_view answer);
  void reportSilence(const Line& line);

  platform::SharedState& state_;
  platform::Dialogs& dialogs_;
  Line bc895_;
  Line bc245_;
  bool reporting_ = false;
  /// Something may still be on its way.
  bool inDoubt_ = false;
  /// The second of two answers is still to come.
  bool owesSecond_ = false;
  /// What was strange in the last answer in which something was.
  std::string strangeness_;
  IdStream ids_{*this};
};

}  // namespace tarnvex::link
