#pragma once

#include <cstdint>
#include <string>

#include "platform/non_copyable.h"

namespace tarnvex::monitor {

/// What the radio hears at one tick of the poll. Texts are in the core's encoding. 0 and empty mean
/// "not known".
struct Heard {
  /// The radio's mode, such as "MD00".
  std::string mode;
  /// In Hz. On a trunked system, that of the voice channel.
  std::int64_t frequency = 0;
  /// The talkgroup's ID as the display shows it. Empty for a conventional reception.
  std::string talkgroup;
  std::string tag;
  /// 1 to 10.
  int bank = 0;
  /// The channel's number. On a trunked system, the slot's number in its group.
  int channel = 0;
  /// In Hz.
  double tone = 0;
  /// The number of lit bars of the signal meter.
  int bars = 0;

  bool operator==(const Heard&) const = default;
};

/// Something that was heard, from `started` on and for `seconds`.
struct Reception {
  /// UTC, in milliseconds since 1970.
  std::int64_t started = 0;
  double seconds = 0;
  Heard heard;
  /// "BC895XLT" or "BC245XLT".
  std::string radio;
  /// The name of the wave file in the program's directory. Empty if there is none.
  std::string recording;

  bool operator==(const Reception&) const = default;
};

/// Is notified by the polls and the recording. All operations return quickly.
class ReceptionListener : private platform::NonCopyable {
 public:
  virtual ~ReceptionListener() = default;

  /// A tick, or a round of an ID loop, has ended. `heard` is null if nothing was heard in it.
  virtual void tick(const Heard* heard) = 0;
  virtual void recordingBegins() = 0;
  /// The recording has ended. `file` is empty if no file was made.
  virtual void recordingEnds(const std::string& file) = 0;
};

}  // namespace tarnvex::monitor
