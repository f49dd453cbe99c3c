#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "radio/faults.h"
#include "radio/line_pacer.h"
#include "radio/non_copyable.h"
#include "radio/radio.h"

namespace tarnvex::radio {

/// The properties of a serial line.
struct LineOptions {
  int baud = 9600;  ///< 0: bytes take no time
  /// The time from a command to its reply. If unset, 3 ms on a paced line and none on an unpaced
  /// one.
  std::optional<Instant> think{};
  std::uint64_t seed = 1;  ///< for the faults
};

/// A radio at the end of a serial line, without a terminal: bytes in, bytes out, with the speed of
/// the line and its faults. Commands end with CR; LF is ignored. Wire adds a terminal; a test can
/// use it directly. It doesn't read a clock:
///
///   SerialLine line(radio, {.baud = 9600}, now);
///   line.faults().set("extra id before every 3");
///   line.toRadio("MD\r", now);                  // what the program writes at `now`
///   while (const auto due = line.deadline(now)) {
///     now = *due;
///     received += line.fromRadio(now);          // what has come to the program by `now`
///   }
///
/// While the radio streams ID lines, there is always a deadline for the next one.
///
/// An empty line is a command like any other and is answered by "ERR". If it directly follows a
/// command (a doubled CR), both replies come in one piece, as they would through the buffer of an
/// adapter.
class SerialLine : private NonCopyable {
 public:
  SerialLine(Radio& radio, const LineOptions& options, Instant now);

  void toRadio(std::string_view bytes, Instant now);
  std::string fromRadio(Instant now);
  /// When fromRadio() has something to do next, which is never before `now`. Nothing if it has
  /// nothing to do.
  [[nodiscard]] std::optional<Instant> deadline(Instant now) const;

  /// Sends a line now that nobody asked for.
  void stray(std::string_view text, Instant now);
  /// Drops an unfinished command.
  void dropInput() { input_.clear(); }
  /// Drops everything that is on its way, as when the cable is pulled.
  void dropAll();
  /// Lets the radio's time pass until `now`.
  void passTime(Instant now);

  void setBaud(int baud) { pacer_.setBaud(baud); }
  void setThink(Instant think) { pacer_.setThink(think); }
  [[nodiscard]] int baud() const { return pacer_.baud(); }
  Faults& faults() { return faults_; }
  Radio& radio() { return radio_; }

 private:
  struct Burst {
    std::string text;
    Instant arrived{};
    bool joined = false;
  };
  void answer(Instant arrived, Burst& burst);
  void queue(const OutgoingPart& part, Instant arrived);
  void flush(Burst& burst);
  /// Queues the lines of apart_ that are due by `until`.
  void sendApart(Instant until);

  Radio& radio_;
  LinePacer pacer_;
  Faults faults_;
  std::multimap<Instant, std::string> apart_;  ///< lines that are sent at their own time
  std::string input_;
  Instant lived_;  ///< the radio's time has passed up to here
};

}  // namespace tarnvex::radio
