#pragma once

#include <string>
#include <vector>

#include "radio/line_pacer.h"

namespace tarnvex::radio {

/// Bytes on their way to the program: one of the things that an exchange puts on the line.
struct OutgoingPart {
  /// When the bytes are sent.
  enum class Timing {
    Reply,   ///< after the radio's thinking time
    AtOnce,  ///< after the command and everything that is already queued
    Apart,   ///< at its own time, without delaying the replies to later commands
  };
  std::string bytes;
  Instant delay{};     ///< counted from the command's last byte
  bool whole = false;  ///< in one piece, not byte by byte
  Timing timing = Timing::Reply;
};

/// A command and its answer, as the faults see them.
struct Exchange {
  std::string command;     ///< without CR
  std::string reply;       ///< with CR
  std::string idLine;      ///< the line that the radio would stream now, without CR
  bool streaming = false;  ///< "IDN" is in effect
};

/// The bytes with their top bits set, except in a CR.
std::string withTopBits(std::string bytes);
/// The part's bytes as separate parts, 20 ms apart.
std::vector<OutgoingPart> slowly(const OutgoingPart& part);

}  // namespace tarnvex::radio
