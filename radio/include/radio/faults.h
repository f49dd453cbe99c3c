#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "radio/line_pacer.h"

namespace tarnvex::radio {

/// A part of a reply, and how long to hold it back.
struct OutgoingPart {
  std::string bytes;
  Instant delay{};
  bool whole = false;  ///< in one piece, not byte by byte
};

/// What goes wrong with replies, on demand. Each fault strikes the next reply, or the next N where
/// a number can be given; what they do to it adds up in this order:
///   silence on|off       no replies at all, streamed lines included
///   silence after N      the same, after N more replies
///   wrong-length [N]     the text is N characters longer (less than 0: shorter); default -3
///   cut N                the CR and the N characters before it are missing
///   garble [N]           every third character is noise; for N replies
///   8bit [N]             the top bit of every character but CR is set; for N replies
///   join                 the reply comes twice, in one piece
///   split                the reply comes in two halves, 50 ms apart
///   delay MS [N]         the reply is MS late; for N replies
class Faults {
 public:
  /// False if the word isn't a fault or its numbers make no sense.
  bool set(std::string_view word, const std::vector<std::string>& arguments);
  bool isFault(std::string_view word) const;
  void clear() { *this = Faults{}; }

  /// `reply` with its CR. Empty result: nothing is sent.
  std::vector<OutgoingPart> apply(std::string reply);
  bool isSilent() const { return silent_; }

 private:
  bool setSilence(const std::vector<std::string>& arguments);
  void spoil(std::string& reply);

  bool silent_ = false;
  std::int64_t silentAfter_ = -1;
  std::int64_t delayed_ = 0;
  Instant delay_{};
  std::int64_t cut_ = 0;
  std::int64_t garbled_ = 0;
  std::int64_t eightBit_ = 0;
  std::int64_t lengthError_ = 0;
  bool join_ = false;
  bool split_ = false;
};

}  // namespace tarnvex::radio
