#pragma once

class QWidget;

namespace tarnvex::desktop {

/// For every drop-down box and number box: without the focus, the box leaves the wheel to the page
/// below it, so that a user who scrolls changes nothing.
void calmWheel(QWidget* box);

}  // namespace tarnvex::desktop
