#include "desktop/windows/text_box.h"

#include <QApplication>
#include <QKeyEvent>
#include <algorithm>

#include "desktop/ports/text.h"

namespace tarnvex::desktop {

TextBoxEditing::TextBoxEditing(QLineEdit* widget, platform::TextBox& model,
                               platform::EventGate& gate, bool isDialogs)
    : QObject(widget), widget_(widget), model_(model), gate_(gate), isDialogs_(isDialogs) {
  widget->setValidator(new Rule(widget, model));
  widget->installEventFilter(this);
  connect(widget, &QLineEdit::inputRejected, widget, &QApplication::beep);
  connect(widget, &QLineEdit::textEdited, widget,
          [&model](const QString& text) { model.userEdit(fromScreen(text)); });
}

/// A text that was copied with blanks or a line end is accepted without them.
QValidator::State TextBoxEditing::Rule::validate(QString& text, int& cursor) const {
  const auto taken = [this](const QString& shown) {
    bool dropped = false;
    const std::string edited = fromScreen(shown, &dropped);
    return !dropped && model_.takes(edited);
  };
  if (!taken(text)) {
    QString rest = text;
    rest.removeIf([](QChar character) { return character.isSpace(); });
    if (rest.size() == text.size() || !taken(rest)) {
      return Invalid;
    }
    cursor = static_cast<int>(std::min<qsizetype>(cursor, rest.size()));
    text = rest;
  }
  return Acceptable;
}

bool TextBoxEditing::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::FocusIn:
      focusIn(static_cast<QFocusEvent*>(event)->reason());
      break;
    case QEvent::MouseButtonRelease:
      QMetaObject::invokeMethod(
          this, [this] { released(); }, Qt::QueuedConnection);
      break;
    case QEvent::KeyPress:
      if (!replaying_ && key(*static_cast<QKeyEvent*>(event))) {
        return true;
      }
      break;
    default:
      break;
  }
  return QObject::eventFilter(watched, event);
}

/// Tells the model only if the user has entered the box. A window that comes back, or a menu that
/// closes, leaves the box as it was.
void TextBoxEditing::focusIn(Qt::FocusReason reason) {
  firstClick_ = reason == Qt::MouseFocusReason;
  const bool comesBack = reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
                         reason == Qt::MenuBarFocusReason;
  if (!firstClick_ && !comesBack) {
    tellFocus();
  }
}

/// After the click has placed the cursor, and only if the user hasn't selected text by dragging.
void TextBoxEditing::released() {
  if (std::exchange(firstClick_, false) && !widget_->hasSelectedText()) {
    tellFocus();
  }
}

void TextBoxEditing::tellFocus() {
  gate_.enter([guard = QPointer<TextBoxEditing>(this)] {
    if (guard) {
      guard->model_.userFocus();
    }
  });
}

/// True if the key goes to the model.
bool TextBoxEditing::key(const QKeyEvent& event) {
  const bool command = (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) != 0;
  const std::string typed = fromScreen(event.text());
  if (typed.size() != 1 || command || typed[0] == '\t' || event.key() == Qt::Key_Escape ||
      event.key() == Qt::Key_Delete || (isDialogs_ && typed[0] == '\r')) {
    return false;
  }
  gate_.enter([guard = QPointer<TextBoxEditing>(this), character = typed[0], code = event.key(),
               text = event.text()] {
    if (guard && guard->model_.userKey(character)) {
      guard->replay(code, text);
    }
  });
  return true;
}

void TextBoxEditing::replay(int code, const QString& text) {
  replaying_ = true;
  QKeyEvent event(QEvent::KeyPress, code, Qt::NoModifier, text);
  QApplication::sendEvent(widget_, &event);
  replaying_ = false;
}

}  // namespace tarnvex::desktop
