#include "desktop/windows/key_forwarder.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QScrollBar>
#include <optional>

#include "desktop/ports/text.h"

namespace tarnvex::desktop {

namespace {

/// What a key types for the form, "\r" for Enter; nothing if it is none of its keys.
std::optional<char> characterOf(const QKeyEvent& key, const QObject& watched) {
  if ((key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0) {
    return std::nullopt;
  }
  if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) {
    // On the panel, Enter presses the key with the focus.
    return watched.objectName() == QLatin1String("panel") ? std::nullopt : std::optional('\r');
  }
  const std::string typed = fromScreen(key.text());
  return typed.size() == 1 && static_cast<unsigned char>(typed[0]) > ' ' ? std::optional(typed[0])
                                                                         : std::nullopt;
}

/// Whether Page Up and Page Down move something here.
bool scrolls(const QObject* here) {
  if (here == nullptr) {
    return false;
  }
  const auto* area = qobject_cast<const QAbstractScrollArea*>(here);
  return qobject_cast<const QAbstractItemView*>(here) != nullptr ||
         qobject_cast<const QComboBox*>(here) != nullptr ||
         (area != nullptr && area->verticalScrollBar()->maximum() > 0) || scrolls(here->parent());
}

}  // namespace

bool KeyForwarder::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease) {
    return QObject::eventFilter(watched, event);
  }
  const auto* key = static_cast<QKeyEvent*>(event);
  if (!key->isAutoRepeat()) {
    down_ = event->type() == QEvent::KeyPress ? key->key() : 0;
  }
  return event->type() == QEvent::KeyPress && press(*key, *watched);
}

bool KeyForwarder::turnPage(const QKeyEvent& key, const QObject& watched) {
  const bool pageKey = key.key() == Qt::Key_PageUp || key.key() == Qt::Key_PageDown;
  if (!pageKey || (key.modifiers() & ~Qt::KeypadModifier) != 0 || !onPageKey || scrolls(&watched)) {
    return false;
  }
  onPageKey(key.key() == Qt::Key_PageUp);
  return true;
}

bool KeyForwarder::press(const QKeyEvent& key, const QObject& watched) {
  // The key has been held down since another window had the focus, such as the small window that it
  // closed.
  if (key.isAutoRepeat() && key.key() != down_) {
    return true;
  }
  if (turnPage(key, watched)) {
    return true;
  }
  const auto character = characterOf(key, watched);
  if (character) {
    gate_.enter([&form = form_, character = *character] { form.typeKey(character); });
  }
  return character.has_value();
}

}  // namespace tarnvex::desktop
