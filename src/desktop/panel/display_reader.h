#pragma once

#include "desktop/panel/panel_renderer.h"

namespace tarnvex::desktop {

/// The lit elements in words, in the order in which one would read the display aloud:
/// "Frequency 155.1150, Fire dispatch, channel 12, SCAN, bank A B".
QString readDisplay(const PanelLayout& layout, const FrontState& state);
/// What is being received, in words: the lines of text alone, without the marks that come and go as
/// the radio works.
QString readReception(const PanelLayout& layout, const FrontState& state);

}  // namespace tarnvex::desktop
