#pragma once

#include <QDialog>

namespace tarnvex::desktop {

/// The window over which a message or dialog is shown: the active one, or else any visible one.
/// Never a menu, a tip or the manual. Null if there is none.
QWidget* windowInUse();

/// Closes a dialog without an answer, because its window closes.
void withdraw(QDialog* dialog);
[[nodiscard]] bool isWithdrawn(const QDialog& dialog);

}  // namespace tarnvex::desktop
