#pragma once

#include <string>

#include "platform/clock.h"
#include "platform/controls.h"
#include "platform/shared_state.h"

/// Search hits. Each is a line of text in a hit list of the main window, and stored nowhere else:
/// even the counter is read back from the text. A line belongs to a hit if the frequency or ID
/// occurs anywhere in it. A text that isn't a frequency or ID is never a hit.
namespace tarnvex::monitor {

/// "(tag)", or empty if there is no tag.
std::string tagPart(const std::string& tag);

/// Enters a frequency whose squelch is open, or counts it. An opening of the squelch counts once,
/// which `HitCounted` ensures. Returns whether the frequency was in the list already. Deliberate:
/// only a line with a tag counts up. A line without one gets the new time, but stays at one hit.
bool captureFrequency(platform::ListBox& hits, const std::string& frequency, const std::string& tag,
                      const platform::Clock& clock, platform::SharedState& state);

/// Enters an active ID if the list doesn't have it. Returns whether the list had it already.
bool captureId(platform::ListBox& hits, const std::string& id, const std::string& tag,
               const platform::Clock& clock);

/// The same for the BC245XLT, whose lines also have the bank (0 to 9) of the trunked system.
bool captureId(platform::ListBox& hits, const std::string& id, int bank, const std::string& tag,
               const platform::Clock& clock);

}  // namespace tarnvex::monitor
