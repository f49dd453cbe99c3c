#pragma once

#include <chrono>
#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <string_view>

namespace tarnvex::radio {

/// Time on a steady clock, in nanoseconds since any origin.
using Instant = std::chrono::nanoseconds;

/// Works out when the bytes on a serial line arrive. A byte takes ten bits, the two directions are
/// independent, and the radio needs thinking time between the last byte of a command and the first
/// of its reply. All times are deadlines on one clock, so that errors don't add up: if bytes were
/// delivered late, the next command counts as sent earlier by that much. At a baud rate of 0, bytes
/// take no time.
///
/// Reads no clock: the caller passes the time.
class LinePacer {
 public:
  LinePacer(int baud, Instant think) : baud_(baud), think_(think) {}

  void setBaud(int baud) { baud_ = baud; }
  void setThink(Instant think) { think_ = think; }
  [[nodiscard]] int baud() const { return baud_; }
  [[nodiscard]] Instant think() const { return think_; }

  /// `count` bytes were taken from the sender at `now`. Returns when the last one arrives.
  Instant arrive(Instant now, std::size_t count);

  /// Queues a reply to a command that has arrived at `ready`. It comes out in pieces of a few
  /// bytes, or, with `whole`, in one piece when its last byte is due.
  void reply(std::string_view bytes, Instant ready, bool whole = false);
  /// Queues bytes that aren't a reply, so there is no thinking time.
  void send(std::string_view bytes, Instant from, bool whole = false);

  [[nodiscard]] std::optional<Instant> nextDue() const;
  /// All bytes that are due.
  std::string take(Instant now);
  void clear();

 private:
  struct Piece {
    Instant due;
    std::string bytes;
  };
  [[nodiscard]] Instant spanOf(std::size_t count) const;

  int baud_;
  Instant think_;
  Instant inputFree_{};
  Instant outputFree_{};
  Instant late_{};
  std::deque<Piece> pieces_;
};

}  // namespace tarnvex::radio
