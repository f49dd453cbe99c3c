#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "radio/chance.h"
#include "radio/extra_line.h"

namespace tarnvex::radio {

/// What goes wrong on the line from the radio to the program, on demand. SerialLine (serial_line.h)
/// passes every exchange through it. All chance comes from the seed: the same faults, set at the
/// same exchanges, spoil the same bytes.
///
/// Faults of the reply itself. They add up in this order; WHEN is nothing (the next reply), N (the
/// next N replies) or "every N" (one reply in N, by chance):
///   wrong-length [N [WHEN]]   the text is N characters longer (less than 0: shorter); default -3
///   garble [WHEN]             every third character is another one
///   8bit [WHEN]               the top bit of every character but CR is set
///   cut N [WHEN]              the CR and the N characters before it are missing
///   delay MS [WHEN]           the reply is MS late
///   join [WHEN]               the reply comes twice, in one piece
///   split [WHEN]              the reply comes in two halves, 50 ms apart
///   slow [WHEN]               the reply comes one byte each 20 ms
/// Lines that nobody asked for:
///   extra WHAT ...            see ExtraLine; several can be in effect
///   stream N                  "extra stream anywhere every N"
/// The line as a whole:
///   noise PERCENT [lost|doubled|changed]
///                             that share of all bytes is spoilt in that way, or in one of the
///                             three; 0 ends it
///   silence on|off            nothing is sent at all
///   silence after N           the same, after N more replies
class Faults {
 public:
  explicit Faults(std::uint64_t seed = 1) : seed_(seed), chance_(seed) {}

  /// False if the words aren't a fault or its numbers make no sense; nothing changes then.
  bool set(std::string_view line);
  static bool isFault(std::string_view word);
  void clear() { *this = Faults(seed_); }

  /// What an exchange puts on the line, in the order in which it is queued; empty if nothing.
  std::vector<OutgoingPart> apply(const Exchange& exchange);
  /// Bytes that the radio sends by itself, with the noise of the line.
  std::string noisy(std::string bytes);
  [[nodiscard]] bool isSilent() const { return silent_; }

 private:
  enum Kind { kWrongLength, kGarble, kEightBit, kCut, kDelay, kJoin, kSplit, kSlow, kKinds };
  enum class Noise { Any, Lost, Doubled, Changed };
  struct ReplyFault {
    std::int64_t amount = 0;
    Occasion occasion;
  };

  bool setReplyFault(Kind kind, std::span<const std::string> words);
  bool setSilence(std::span<const std::string> words);
  bool setNoise(std::span<const std::string> words);
  bool addExtra(std::span<const std::string> words);
  /// The amount of a fault if it strikes this reply.
  std::optional<std::int64_t> strike(Kind kind);
  void spoil(std::string& reply);
  std::vector<OutgoingPart> replyParts(std::string reply);
  void remember(const Exchange& exchange);

  std::uint64_t seed_;
  Chance chance_;
  std::array<ReplyFault, kKinds> replyFaults_;
  std::vector<ExtraLine> extras_;
  bool silent_ = false;
  std::int64_t silentAfter_ = -1;
  double noise_ = 0;  ///< share of the bytes, 0 to 1
  Noise noiseKind_ = Noise::Any;
  std::string lastCommand_;
  std::string lastReply_;
  std::string previous_;  ///< the reply to the last command that wasn't this one
};

}  // namespace tarnvex::radio
