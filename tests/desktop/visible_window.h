#pragma once

#include <QApplication>
#include <QWidget>

namespace tarnvex::test {

/// The visible window of a class, or null. With a name, only one whose object has this name.
template <class Window = QWidget>
Window* visibleWindow(const QString& name = {}) {
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    auto* window = dynamic_cast<Window*>(widget);
    if (window != nullptr && window->isVisible() &&
        (name.isEmpty() || window->objectName() == name)) {
      return window;
    }
  }
  return nullptr;
}

}  // namespace tarnvex::test
