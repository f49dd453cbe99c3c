#pragma once

#include <cstdint>
#include <string>

#include "platform/non_copyable.h"

namespace tarnvex::monitor {

/// What the radio hears at one tick of the poll. Texts are core text; 0 and empty mean "not known".
struct Heard {
  /// The radio's mode, such as "MD00".
  std::string mode;
  /// In Hz; on a trunked system the voice channel's.
  std::int64_t frequency = 0;
  /// The talkgroup's ID as the display shows it; empty for a conventional reception.
  std::string talkgroup;
  std::string tag;
  /// 1 to 10.
  int bank = 0;
  /// The channel's number; on a trunked system the slot's in its group.
  int channel = 0;
  /// In Hz.
  double tone = 0;
  /// Bars of the signal meter that are lit.
  int bars = 0;

  bool operator==(const Heard&) const = default;
};

/// Something that was heard from `started` on, for some `seconds`.
struct Reception {
  /// UTC, in milliseconds since 1970.
  std::int64_t started = 0;
  double seconds = 0;
  Heard heard;
  /// "BC895XLT" or "BC245XLT".
  std::string radio;
  /// Name of the wave file in the program's directory; empty if there is none.
  std::string recording;

  bool operator==(const Reception&) const = default;
};

/// Told by the polls and the recording what goes on. None of its operations takes longer than a
/// moment.
class ReceptionListener : private platform::NonCopyable {
 public:
  virtual ~ReceptionListener() = default;

  /// A tick, or a round of an ID loop, is over. Null if nothing was heard in it.
  virtual void tick(const Heard* heard) = 0;
  virtual void recordingBegins() = 0;
  /// The recording is over. `file` is empty if none was made.
  virtual void recordingEnds(const std::string& file) = 0;
};

}  // namespace tarnvex::monitor
