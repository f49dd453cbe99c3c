#include "desktop/windows/window_exit.h"

#include <QDialog>
#include <QMenu>

#include "desktop/ports/window_in_use.h"

namespace tarnvex::desktop {

void takeOffScreen(QWidget* window) {
  // Windows of their own, which would outlive the form by the time until the deletion.
  for (QMenu* menu : window->findChildren<QMenu*>()) {
    menu->close();
  }
  for (QDialog* question : window->findChildren<QDialog*>()) {
    // Those that have left before wait for their deletion without a form.
    if (question->isVisible()) {
      withdraw(question);
    }
  }
  window->setEnabled(false);
  window->hide();
  window->deleteLater();
}

}  // namespace tarnvex::desktop
