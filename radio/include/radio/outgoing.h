#pragma once

#include <string>
#include <vector>

#include "radio/line_pacer.h"

namespace tarnvex::radio {

/// Bytes on their way to the program, as one of the things that an exchange puts on the line.
struct OutgoingPart {
  enum class Timing {
    Reply,   ///< after the radio's thinking time
    AtOnce,  ///< as soon as the command has come and what is queued before it has gone
    Apart,   ///< at its own time, without holding up the replies to later commands
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

/// The same bytes with every top bit but that of a CR set.
std::string withTopBits(std::string bytes);
/// Each byte of the part as a part of its own, 20 ms apart.
std::vector<OutgoingPart> slowly(const OutgoingPart& part);

}  // namespace tarnvex::radio
