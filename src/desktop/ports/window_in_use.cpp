#include "desktop/ports/window_in_use.h"

#include <QApplication>

namespace tarnvex::desktop {
namespace {

constexpr const char* kWithdrawn = "withdrawn";

/// Whether a message may be shown over this window. Menus and tips close by themselves, the splash
/// and the notice close together with what is over them, and the manual stays usable while a
/// question is open.
bool carriesQuestions(const QWidget* window) {
  const auto type = window->windowType();
  const QString name = window->objectName();
  return (type == Qt::Window || type == Qt::Dialog) && window->isVisible() &&
         name != QLatin1String("Form1") && name != QLatin1String("Form6") &&
         name != QLatin1String("help");
}

}  // namespace

QWidget* windowInUse() {
  QWidget* active = QApplication::activeWindow();
  if (active != nullptr && carriesQuestions(active)) {
    return active;
  }
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (carriesQuestions(window)) {
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
