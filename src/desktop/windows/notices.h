#pragma once

#include <QWidget>

namespace tarnvex::desktop {

/// The splash window, with the program's picture, name, version and purpose.
QWidget* makeSplash();

/// A notice with one label and no buttons.
QWidget* makeNotice(const QString& caption, const QString& text);

}  // namespace tarnvex::desktop
