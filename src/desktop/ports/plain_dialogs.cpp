#include "desktop/ports/plain_dialogs.h"

#include <QLabel>

namespace tarnvex::desktop {
namespace {

template <class Dialog>
Dialog* plain(Dialog* dialog) {
  for (QLabel* label : dialog->template findChildren<QLabel*>()) {
    label->setTextFormat(Qt::PlainText);
  }
  return dialog;
}

}  // namespace

QMessageBox* makeMessageBox(QMessageBox::Icon icon, const QString& title, const QString& text,
                            QMessageBox::StandardButtons buttons, QWidget* parent) {
  auto* box = new QMessageBox(icon, title, text, buttons, parent);
  box->setTextFormat(Qt::PlainText);
  if (buttons.testFlag(QMessageBox::No)) {
    box->setEscapeButton(QMessageBox::No);
  }
  return box;
}

QInputDialog* makeInputDialog(const QString& title, const QString& prompt, QWidget* parent) {
  auto* dialog = new QInputDialog(parent);
  dialog->setWindowTitle(title);
  // The label is created with its text.
  dialog->setLabelText(prompt);
  return plain(dialog);
}

QProgressDialog* makeProgressDialog(const QString& title, const QString& text, int steps,
                                    QWidget* parent) {
  auto* dialog = new QProgressDialog(text, QObject::tr("Cancel"), 0, steps, parent);
  dialog->setWindowTitle(title);
  dialog->setWindowModality(Qt::NonModal);
  dialog->setAutoReset(false);
  return plain(dialog);
}

}  // namespace tarnvex::desktop
