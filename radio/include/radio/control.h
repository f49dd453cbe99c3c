#pragma once

#include <string>
#include <string_view>

#include "radio/wire.h"

namespace tarnvex::radio {

/// Controls a running radio with a line of text: its scenes and modes, its line, and all the faults
/// of faults.h. `kControlHelp` lists the words. Returns what to print, ended by a line "ok" or
/// "error: ..."; sets `quit` for "quit". "replug" prints "ready PATH" before its "ok".
std::string control(Wire& wire, std::string_view line, Instant now, bool& quit);

/// The text of "help".
extern const std::string_view kControlHelp;

}  // namespace tarnvex::radio
