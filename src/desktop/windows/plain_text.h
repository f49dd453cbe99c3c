#pragma once

#include <QLabel>

/// Text that comes from a file, the radio or a device is never taken for markup. Labels and tips
/// are made here and nowhere else; a test sees to it.
namespace tarnvex::desktop {

/// A label that shows its text as it is, now and after each change.
QLabel* makeLabel(const QString& text = {});

/// The text of a tip, escaped, so that the tip shows it as it is.
QString plainTip(QString text);

/// A text for a menu or a button, whose ampersands mark no key.
QString withoutMnemonics(QString text);

}  // namespace tarnvex::desktop
