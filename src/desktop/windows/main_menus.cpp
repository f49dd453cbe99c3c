#include "desktop/windows/main_menus.h"

#include <QCoreApplication>

namespace tarnvex::desktop {

void addCommands(QMenu* menu, std::span<const MenuCommand> commands, shell::MainForm& form,
                 platform::EventGate& gate) {
  for (const MenuCommand& command : commands) {
    if (command.name == nullptr) {
      menu->addSeparator();
      continue;
    }
    auto* action = menu->addAction(
        QCoreApplication::translate("MainWindow", command.caption), menu,
        [&form, &gate, run = command.run] { gate.enter([&form, run] { (form.*run)(); }); });
    action->setObjectName(QLatin1String(command.name));
    action->setShortcut(command.key);
  }
}

}  // namespace tarnvex::desktop
