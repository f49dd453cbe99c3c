#include "desktop/windows/window_exit.h"

#include <QDialog>
#include <QMenu>
#include <QPointer>

#include "desktop/ports/window_in_use.h"

namespace tarnvex::desktop {

void takeOffScreen(QWidget* window, platform::EventGate& gate) {
  // Menus are separate windows, which would stay open until the deletion, when the form may be
  // gone.
  for (QMenu* menu : window->findChildren<QMenu*>()) {
    menu->close();
  }
  for (QDialog* question : window->findChildren<QDialog*>()) {
    // Hidden ones have been closed already and wait for their deletion.
    if (question->isVisible()) {
      withdraw(question);
    }
  }
  window->setEnabled(false);
  window->hide();
  gate.whenIdle([window = QPointer(window)] {
    if (window) {
      window->deleteLater();
    }
  });
}

}  // namespace tarnvex::desktop
