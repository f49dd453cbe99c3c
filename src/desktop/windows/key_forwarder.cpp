#include "desktop/windows/key_forwarder.h"

#include <QKeyEvent>

#include "desktop/ports/text.h"

namespace tarnvex::desktop {

bool KeyForwarder::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease) {
    return QObject::eventFilter(watched, event);
  }
  const auto* key = static_cast<QKeyEvent*>(event);
  if (!key->isAutoRepeat()) {
    down_ = event->type() == QEvent::KeyPress ? key->key() : 0;
  }
  if (event->type() == QEvent::KeyRelease) {
    return false;
  }
  // The key has been held down since another window had the focus, such as the small window that it
  // closed.
  if (key->isAutoRepeat() && key->key() != down_) {
    return true;
  }
  if ((key->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0) {
    return false;
  }
  // On the panel, Enter presses the key with the focus.
  const bool enter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
  if (enter && watched->objectName() == QLatin1String("panel")) {
    return false;
  }
  const std::string typed = enter ? "\r" : fromScreen(key->text());
  if (typed.size() != 1 || (!enter && static_cast<unsigned char>(typed[0]) <= ' ')) {
    return false;
  }
  gate_.enter([&form = form_, character = typed[0]] { form.typeKey(character); });
  return true;
}

}  // namespace tarnvex::desktop
