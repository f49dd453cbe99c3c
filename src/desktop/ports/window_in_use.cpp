#include "desktop/ports/window_in_use.h"

#include <QApplication>

namespace tarnvex::desktop {
namespace {

constexpr const char* kWithdrawn = "withdrawn";

}  // namespace

QWidget* windowInUse() {
  // Splash and notice go by themselves, with what stands over them.
  const auto passes = [](const QWidget* window) {
    return window->objectName() == QLatin1String("Form1") ||
           window->objectName() == QLatin1String("Form6");
  };
  QWidget* active = QApplication::activeWindow();
  if (active != nullptr && !passes(active)) {
    return active;
  }
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && !passes(window)) {
      return window;
    }
  }
  return nullptr;
}

void withdraw(QDialog* dialog) {
  dialog->setProperty(kWithdrawn, true);
  dialog->reject();
}

bool isWithdrawn(const QDialog& dialog) {
  return dialog.property(kWithdrawn).toBool();
}

}  // namespace tarnvex::desktop
