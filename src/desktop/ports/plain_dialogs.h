#pragma once

#include <QInputDialog>
#include <QMessageBox>
#include <QProgressDialog>

/// Qt guesses whether a dialog's text is markup. So the small dialogs are created here and nowhere
/// else; a test checks that. They show their texts as they are.
namespace tarnvex::desktop {

/// A box with one line of text or more, and buttons. No is the answer to Escape, if there is a No.
QMessageBox* makeMessageBox(QMessageBox::Icon icon, const QString& title, const QString& text,
                            QMessageBox::StandardButtons buttons, QWidget* parent);

/// A dialog that asks for a line of text.
QInputDialog* makeInputDialog(const QString& title, const QString& prompt, QWidget* parent);

/// A dialog with a progress bar and a Cancel button. It isn't modal, since a modal one would turn
/// the event loop at each step.
QProgressDialog* makeProgressDialog(const QString& title, const QString& text, int steps,
                                    QWidget* parent);

}  // namespace tarnvex::desktop
