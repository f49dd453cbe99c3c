#pragma once

namespace tarnvex::desktop {

class RadioPanel;

/// Makes Qt present a RadioPanel to screen readers as a group, described by its display, with a
/// button for each key, a slider for the knob and a notification for what is received. Every panel
/// calls this; only the first call has an effect.
void installPanelAccessibility();

/// Tells a screen reader that this key now has the focus.
void announceKeyFocus(RadioPanel* panel, int keyIndex);

/// Tells a screen reader that the knob has moved to another mark. Only for a panel with a knob.
void announceKnob(RadioPanel* panel);

/// Tells a screen reader that the panel has a new announcement. It speaks it when it has nothing
/// else to say, wherever the focus is.
void announceReception(RadioPanel* panel);

}  // namespace tarnvex::desktop
