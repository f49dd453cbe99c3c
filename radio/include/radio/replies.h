#pragma once

#include <string>

#include "radio/state.h"

namespace tarnvex::radio {

/// Replies with fields at fixed columns, counted from 1.

/// "C001 F01551150 TF DN LF AF RF N13": number 2-4, frequency 7-14, trunked 16, delay 19, lockout
/// 22, alert 25, line 28, tone 32-33.
std::string channelReply(const State& state, int channel);
/// The same with "PM001 " in front of the frequency.
std::string memoryReply(const State& state, int channel);
/// "S024 F01551150": level 2-4, frequency 7-14.
std::string signalReply(const State& state);
/// "WI024F01551150": level 3-5, frequency 7-14.
std::string windowReply(const State& state);
/// "IC B1 001616": group 4, slot digit 5, ID 7-12. The BC245XLT sends "-" as character 254.
std::string slotReply(const State& state, Slot slot);
/// "SIBC245XLT 0024500172 V124": name 3-10, serial number 12-21, firmware x 100 at 24-26.
std::string identityReply();
/// "TB B E2-800": bank letter 4, system type from 6.
std::string trunkTypeReply(const State& state);
/// The answer to `IDN`. On a BC895XLT in ID search it has the ID at 9-14, or is a text with an "E"
/// if there is none. It has no bank letter, which could be an "E".
std::string streamingReply(const State& state);
/// A streamed line: "ID S 001616" (state at 4, ID at 6-11), or "ID E" if there is no ID.
std::string streamedLine(const State& state);
/// Whether lines are streamed in this activity: BC895XLT ID hold, BC245XLT ID search and hold.
bool streamsLines(const State& state);

}  // namespace tarnvex::radio
