#pragma once

namespace tarnvex::desktop {

class RadioPanel;

/// Presents a RadioPanel to screen readers as a group that reads its display, with a button for
/// each key and a slider for the knob. Every panel calls it, and only the first call has an effect.
void installPanelAccessibility();

/// Tells a screen reader that this key now has the focus.
void announceKeyFocus(RadioPanel* panel, int keyIndex);

/// Tells it that the knob, which the panel has, is at another mark.
void announceKnob(RadioPanel* panel);

}  // namespace tarnvex::desktop
