#pragma once

#include <QLabel>

/// Text from a file, the radio or a device must never be taken for markup. So labels and tips are
/// created here and nowhere else; a test checks that.
namespace tarnvex::desktop {

/// A label that shows its text as it is, now and after each change.
QLabel* makeLabel(const QString& text = {});

/// The text of a tip, escaped where it must be, so that the tip shows it as it is.
QString plainTip(QString text);

/// A text for a menu or a button in which ampersands don't mark a key.
QString withoutMnemonics(QString text);

}  // namespace tarnvex::desktop
