#pragma once

class QWidget;

namespace tarnvex::desktop {

/// Makes a box ignore the wheel unless it has the focus, so that scrolling the page changes no
/// value.
void calmWheel(QWidget* box);

}  // namespace tarnvex::desktop
