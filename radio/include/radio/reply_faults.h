#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "radio/chance.h"
#include "radio/outgoing.h"

namespace tarnvex::radio {

/// Faults of the replies themselves. One of each kind can be in effect; they are applied in this
/// order. WHEN is nothing (the next reply), N (the next N replies) or "every N" (one reply in N, at
/// random):
///   wrong-length [N [WHEN]]   the text is N characters longer, or shorter if N is negative (-3)
///   garble [WHEN]             every third character is replaced by another
///   8bit [WHEN]               the top bit of every character but CR is set
///   cut N [WHEN]              the CR and the N characters before it are missing
///   delay MS [WHEN]           the reply is MS late
///   join [WHEN]               the reply comes twice, in one piece
///   split [WHEN]              the reply comes in two halves, 50 ms apart
///   slow [WHEN]               the reply comes one byte every 20 ms
class ReplyFaults {
 public:
  static bool isFault(std::string_view word);
  /// Returns false and changes nothing if the first word isn't a fault or the others aren't valid.
  bool set(std::span<const std::string> words);
  /// What is sent instead of `reply`, which ends with CR.
  std::vector<OutgoingPart> apply(std::string reply, Chance& chance);

 private:
  enum Kind { kWrongLength, kGarble, kEightBit, kCut, kDelay, kJoin, kSplit, kSlow, kKinds };
  struct Fault {
    std::int64_t amount = 0;
    Occasion occasion;
  };

  /// The amount of a fault if it is to affect this reply.
  std::optional<std::int64_t> strike(Kind kind, Chance& chance);
  void spoil(std::string& reply, Chance& chance);

  std::array<Fault, kKinds> faults_;
};

}  // namespace tarnvex::radio
