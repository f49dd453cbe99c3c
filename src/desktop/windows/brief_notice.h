#pragma once

#include <QWidget>

namespace tarnvex::desktop {

/// Shows a sentence in a window's lower left corner for three seconds, for what isn't worth a
/// message box. It takes no clicks. A newer one replaces it. A screen reader says it.
void tellBriefly(QWidget* window, const QString& text);

}  // namespace tarnvex::desktop
