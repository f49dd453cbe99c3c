#pragma once

#include <string>

#include "platform/clock.h"
#include "platform/controls.h"
#include "platform/shared_state.h"

/// Search hits: one line of text each in a hit list of the main window, and nothing else: the
/// counter is read back out of the text. Lines are matched by substring anywhere in the line. A
/// text that is no frequency, or no ID, is never a hit.
namespace tarnvex::monitor {

/// "(tag)", or nothing for no tag.
std::string tagPart(const std::string& tag);

/// Enters or counts a frequency whose squelch is open. One opening counts once: `HitCounted` tells.
/// Returns whether the frequency was in the list already. Deliberate: only a line with a tag counts
/// up. A line without one stays at one hit, with a fresh time.
bool captureFrequency(platform::ListBox& hits, const std::string& frequency, const std::string& tag,
                      const platform::Clock& clock, platform::SharedState& state);

/// Enters an active ID. An ID that is in the list is never written again. Returns whether it was.
bool captureId(platform::ListBox& hits, const std::string& id, const std::string& tag,
               const platform::Clock& clock);

/// Likewise, with the bank (0 to 9) of the trunked system, as the BC245XLT's lines have it.
bool captureId(platform::ListBox& hits, const std::string& id, int bank, const std::string& tag,
               const platform::Clock& clock);

}  // namespace tarnvex::monitor
