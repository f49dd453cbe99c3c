#include "desktop/ports/window_in_use.h"

#include <QApplication>

namespace tarnvex::desktop {

QWidget* windowInUse() {
  if (QWidget* active = QApplication::activeWindow()) {
    return active;
  }
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window->objectName() != QLatin1String("Form1")) {
      return window;
    }
  }
  return nullptr;
}

}  // namespace tarnvex::desktop
