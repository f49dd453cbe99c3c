#pragma once

#include <string>
#include <string_view>

#include "radio/wire.h"

namespace tarnvex::radio {

/// Steers a running radio by lines of text. Besides the faults (faults.h):
///   scene NAME | mode MDxx | become bc245|bc895 | tempo X
///   reception CHANNEL SECONDS      a transmission on a stored channel's frequency
///   talk ID SECONDS                a transmission of a talkgroup of the trunked bank in use
///   stray TEXT                     sends TEXT unasked
///   hangup | replug                unplugs the radio; plugs it in again ("ready PATH" precedes ok)
///   baud N | think MS | clear      line speed, thinking time; no more faults
///   state, say                     the state as key=value lines, then ok
///   help                           these lines
///   quit
/// Returns what to print, ended by a line "ok" or "error: ..."; sets `quit` for "quit".
std::string control(Wire& wire, std::string_view line, Instant now, bool& quit);

/// The text of "help".
std::string_view controlHelp();

}  // namespace tarnvex::radio
