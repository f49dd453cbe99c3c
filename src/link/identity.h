#pragma once

#include <string>

#include "link/scanner_commands.h"
#include "platform/shared_state.h"

namespace tarnvex::link {

// Which radio the program works with: `ModelKey` and the three texts of the about box. Only these
// functions change them. The splash and the polls call them with what "SI" has answered.

/// A BC895XLT has answered. It reports neither a serial number nor a version.
void adoptBc895(platform::SharedState& state);

/// The splash takes the answer for a BC245XLT's. A version that is no number changes nothing.
void adoptBc245(platform::SharedState& state, const IdentityReply& identity);

/// The poll of the BC245XLT reads the name and the serial number from other places of the answer.
/// Deliberate: its texts replace those of the splash with the first tick.
void adoptPolledBc245(platform::SharedState& state, const IdentityReply& identity);

/// The poll has found the other radio, and its main window is about to open. The other texts stay
/// until that window's poll reads them. `modelKey` is "BC895" or "BC245".
void adoptOtherModel(platform::SharedState& state, const std::string& modelKey);

}  // namespace tarnvex::link
