#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "radio/chance.h"
#include "radio/extra_line.h"
#include "radio/reply_faults.h"

namespace tarnvex::radio {

/// Faults of the line from the radio to the program, on demand. SerialLine (serial_line.h) passes
/// every exchange through it. Everything random comes from the seed: the same faults, set at the
/// same exchanges, spoil the same bytes.
///
/// Faults of the replies themselves:
///   delay MS, cut N, ...      see ReplyFaults
/// Lines that nobody asked for (several can be in effect):
///   extra WHAT ...            see ExtraLine
///   stream N                  "extra stream anywhere every N"
/// The line as a whole:
///   noise PERCENT [lost|doubled|changed]
///                             spoils that share of all bytes in this way, or in one of the three;
///                             0 ends it
///   silence on|off            nothing is sent at all
///   silence after N           nothing more is sent after N replies
class Faults {
 public:
  explicit Faults(std::uint64_t seed = 1) : seed_(seed), chance_(seed) {}

  /// False if the words aren't a fault or its numbers make no sense; nothing changes then.
  bool set(std::string_view line);
  static bool isFault(std::string_view word);
  void clear() { *this = Faults(seed_); }

  /// What an exchange puts on the line, in the order in which it is queued. May be empty.
  std::vector<OutgoingPart> apply(const Exchange& exchange);
  /// Adds the line's noise to bytes that the radio sends by itself.
  std::string noisy(std::string bytes);
  [[nodiscard]] bool isSilent() const { return silent_; }

 private:
  enum class Noise { Any, Lost, Doubled, Changed };
  using Setter = bool (Faults::*)(std::span<const std::string>);
  static Setter setterOf(std::string_view word);
  bool setSilence(std::span<const std::string> words);
  bool setNoise(std::span<const std::string> words);
  bool addExtra(std::span<const std::string> words);
  bool addStream(std::span<const std::string> words);
  void countDownToSilence();
  std::string spoilt(char c);

  void remember(const Exchange& exchange);

  std::uint64_t seed_;
  Chance chance_;
  ReplyFaults replies_;
  std::vector<ExtraLine> extras_;
  bool silent_ = false;
  std::int64_t silentAfter_ = -1;
  double noise_ = 0;  ///< share of the bytes, 0 to 1
  Noise noiseKind_ = Noise::Any;
  std::string lastCommand_;
  std::string lastReply_;
  std::string previous_;  ///< the reply to the last different command
};

}  // namespace tarnvex::radio
