#pragma once

#include "desktop/panel/panel_renderer.h"

namespace tarnvex::desktop {

/// The lit elements in words, in the order for reading the display aloud: "Frequency 155.1150, Fire
/// dispatch, channel 12, SCAN, bank A B".
QString readDisplay(const PanelLayout& layout, const FrontState& state);
/// What is being received, in words: only the lines of text, without the indicators that come and
/// go. "Not live" if the display doesn't show a live radio.
QString readReception(const PanelLayout& layout, const FrontState& state);

}  // namespace tarnvex::desktop
