#pragma once

#include <QWidget>

namespace tarnvex::desktop {

/// Shows a sentence in a window's lower left corner for three seconds, for what isn't worth a
/// message box. It takes no clicks. A newer one replaces it. A screen reader says it: see
/// accessible_roles.h.
void tellBriefly(QWidget* window, const QString& text);
/// Whether an object is what shows such a sentence.
bool isBriefNotice(const QObject* object);

}  // namespace tarnvex::desktop
