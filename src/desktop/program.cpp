#include "desktop/program.h"

#include <QGuiApplication>
#include <QIcon>

/// The pictures stand in a library, from which the linker takes only what is asked for. Qt wants
/// this call outside of any namespace.
static void initialiseResources() {
  Q_INIT_RESOURCE(desktop);
}

namespace tarnvex::desktop {

Program::Program(const QString& settingsPath, const QString& programFolder,
                 platform::SerialPorts* otherPorts)
    : settings(settingsPath),
      portsInUse(otherPorts != nullptr ? *otherPorts : ports),
      directory(QFile::encodeName(programFolder).toStdString()) {
  initialiseResources();
  QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/tarnvex.svg")));
}

int Program::run() {
  application.start();
  return loop.run();
}

}  // namespace tarnvex::desktop
