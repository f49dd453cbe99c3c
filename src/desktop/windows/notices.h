#pragma once

#include <QWidget>

namespace tarnvex::desktop {

/// The splash: picture, name, version and purpose of the program.
QWidget* makeSplash();

/// A notice with one label and no buttons.
QWidget* makeNotice(const QString& caption, const QString& text, QWidget* parent);

}  // namespace tarnvex::desktop
