#pragma once

namespace tarnvex::desktop {

class RadioPanel;

/// Makes screen readers see a RadioPanel as a group that reads its display, with a button for each
/// key. Called by every panel; the first call counts.
void installPanelAccessibility();

/// Tells a screen reader that the focus is on that key now.
void announceKeyFocus(RadioPanel* panel, int keyIndex);

}  // namespace tarnvex::desktop
