#include "desktop/windows/text_box.h"

#include <QApplication>
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

/// Selects the text only if the user has entered the box. A window that comes back, or a menu that
/// closes, leaves the box as it was.
void TextBoxEditing::focusIn(Qt::FocusReason reason) {
  firstClick_ = reason == Qt::MouseFocusReason;
  const bool comesBack = reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
                         reason == Qt::MenuBarFocusReason;
  if (!firstClick_ && !comesBack) {
    selectWhole();
  }
}

/// After the click has placed the cursor, and only if the user hasn't selected text by dragging.
void TextBoxEditing::released() {
  if (std::exchange(firstClick_, false) && !widget_->hasSelectedText()) {
    selectWhole();
  }
}

void TextBoxEditing::selectWhole() {
  if (model_.selectsAllOnFocus()) {
    widget_->selectAll();
  }
}

bool TextBoxEditing::isTyped(const QKeyEvent& event, const std::string& typed) const {
  const bool command = (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) != 0;
  return typed.size() == 1 && !command && typed[0] != '\t' && event.key() != Qt::Key_Escape &&
         event.key() != Qt::Key_Delete && !(isDialogs_ && typed[0] == '\r');
}

/// True if the key waits for the core.
bool TextBoxEditing::key(const QKeyEvent& event) {
  const std::string typed = fromScreen(event.text());
  if (isTyped(event, typed)) {
    enqueue(event,
            [character = typed[0]](platform::TextBox& model) { return model.userKey(character); });
    return true;
  }
  const bool leaves = event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab ||
                      event.key() == Qt::Key_Escape || typed == "\r";
  if (leaves || waiting_.use_count() == 1) {
    return false;
  }
  enqueue(event, [](const platform::TextBox& /*model*/) { return true; });
  return true;
}

template <class Allowed>
void TextBoxEditing::enqueue(const QKeyEvent& event, Allowed allowed) {
  gate_.enter([guard = QPointer<TextBoxEditing>(this), waiting = waiting_, allowed,
               code = event.key(), held = event.modifiers(), text = event.text()] {
    if (guard && allowed(guard->model_)) {
      guard->replay(code, held, text);
    }
  });
}

void TextBoxEditing::replay(int code, Qt::KeyboardModifiers held, const QString& text) {
  replaying_ = true;
  QKeyEvent event(QEvent::KeyPress, code, held, text);
  QApplication::sendEvent(widget_, &event);
  replaying_ = false;
}

}  // namespace tarnvex::desktop
