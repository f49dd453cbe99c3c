#pragma once

#include <QDialog>

namespace tarnvex::desktop {

/// The window that a message or dialog belongs over: the active one, or else any that is on the
/// screen. Null if there is none.
/// Never a menu, a tip or the manual.
QWidget* windowInUse();

/// Closes a dialog without an answer, because the window that it belongs to closes.
void withdraw(QDialog* dialog);
[[nodiscard]] bool isWithdrawn(const QDialog& dialog);

}  // namespace tarnvex::desktop
