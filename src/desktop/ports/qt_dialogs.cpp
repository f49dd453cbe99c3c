#include "desktop/ports/qt_dialogs.h"

#include <QApplication>
#include <QColorDialog>
#include <QGridLayout>
#include <QLineEdit>
#include <QToolTip>
#include <QValidator>

#include "desktop/ports/colour.h"
#include "desktop/ports/plain_dialogs.h"
#include "desktop/ports/run_dialog.h"
#include "desktop/ports/text.h"
#include "desktop/ports/window_in_use.h"

namespace tarnvex::desktop {
namespace {

using platform::Answer;

QMessageBox::Icon iconOf(int flags) {
  switch (flags & 0x70) {
    case 16:
      return QMessageBox::Critical;
    case 32:
      return QMessageBox::Question;
    default:
      return QMessageBox::Warning;
  }
}

QMessageBox::StandardButtons buttonsOf(int flags) {
  switch (flags & 0x0F) {
    case 1:
      return QMessageBox::Ok | QMessageBox::Cancel;
    case 4:
      return QMessageBox::Yes | QMessageBox::No;
    default:
      return QMessageBox::Ok;
  }
}

Answer answerOf(int button, int flags) {
  switch (button) {
    case QMessageBox::Yes:
      return Answer::Yes;
    case QMessageBox::Ok:
      return Answer::Ok;
    default:
      break;
  }
  switch (flags & 0x0F) {
    case 1:
      return Answer::Cancel;
    case 4:
      return Answer::No;
    default:
      return Answer::Ok;
  }
}

class CodePage : public QValidator {
 public:
  using QValidator::QValidator;
  State validate(QString& text, int& /*cursor*/) const override {
    bool dropped = false;
    fromScreen(text, &dropped);
    return dropped ? Invalid : Acceptable;
  }
};

/// The edit takes only letters that the program's files can hold, and says so.
void refuseForeignLetters(QLineEdit* edit) {
  edit->setValidator(new CodePage(edit));
  QObject::connect(edit, &QLineEdit::inputRejected, edit, [edit] {
    QApplication::beep();
    QToolTip::showText(edit->mapToGlobal(edit->rect().bottomLeft()),
                       QObject::tr("The file can hold only the letters of western alphabets."),
                       edit);
  });
}

/// Makes the box wide enough for its title and the window's buttons. A short question would be
/// narrower.
void makeRoomForTitle(QMessageBox& box) {
  const QFontMetrics metrics(box.font());
  const int width = metrics.horizontalAdvance(box.windowTitle()) + metrics.height() * 10;
  if (auto* grid = qobject_cast<QGridLayout*>(box.layout())) {
    grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
  }
}

}  // namespace

Answer QtDialogs::messageBox(const std::string& text, const std::string& title,
                             platform::MessageFlags flags) {
  return ask(text, title, flags, QMessageBox::NoButton);
}

Answer QtDialogs::askToDestroy(const std::string& text, const std::string& title,
                               platform::MessageFlags flags) {
  return ask(text, title, flags, QMessageBox::No);
}

Answer QtDialogs::ask(const std::string& text, const std::string& title,
                      platform::MessageFlags flags, QMessageBox::StandardButton preset) {
  if (gate_.ended()) {
    return answerOf(QMessageBox::NoButton, flags);
  }
  // If the window below closes while the box is open, it destroys the box.
  const QPointer<QMessageBox> box =
      makeMessageBox(iconOf(flags), messageToScreen(title), messageToScreen(text), buttonsOf(flags),
                     windowInUse());
  box->setObjectName(QStringLiteral("messageBox"));
  box->setDefaultButton(preset);
  makeRoomForTitle(*box);
  const int button = runDialog(box, gate_).value_or(QMessageBox::NoButton);
  delete box.data();
  return answerOf(button, flags);
}

std::string QtDialogs::inputBox(const std::string& prompt, const std::string& title) {
  if (gate_.ended()) {
    return {};
  }
  const QPointer<QInputDialog> box =
      makeInputDialog(toScreen(title), toScreen(prompt), windowInUse());
  box->setObjectName(QStringLiteral("inputBox"));
  box->resize(box->fontMetrics().averageCharWidth() * 48, box->sizeHint().height());
  for (QLineEdit* edit : box->findChildren<QLineEdit*>()) {
    refuseForeignLetters(edit);
  }
  const bool accepted = runDialog(box, gate_) == QDialog::Accepted;
  std::string line = accepted ? fromScreen(box->textValue()) : std::string();
  delete box.data();
  return line;
}

std::optional<platform::Colour> QtDialogs::chooseColour(platform::Colour current) {
  if (gate_.ended()) {
    return std::nullopt;
  }
  const QPointer<QColorDialog> dialog = new QColorDialog(toScreen(current), windowInUse());
  dialog->setObjectName(QStringLiteral("colourDialog"));
  std::optional<platform::Colour> chosen;
  if (runDialog(dialog, gate_) == QDialog::Accepted) {
    chosen = fromScreen(dialog->selectedColor());
  }
  delete dialog.data();
  return chosen;
}

void QtDialogs::beep() {
  constexpr int kBeepMilliseconds = 100;
  // Pasting a thousand characters that aren't accepted should beep once.
  if (!lastBeep_.isValid() || lastBeep_.hasExpired(kBeepMilliseconds)) {
    QApplication::beep();
    lastBeep_.start();
  }
}

void QtDialogs::setBusyPointer(bool busy) {
  if (busy == busy_) {
    return;
  }
  busy_ = busy;
  if (busy) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QApplication::restoreOverrideCursor();
  }
}

}  // namespace tarnvex::desktop
