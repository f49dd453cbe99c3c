#include <QApplication>

#include "desktop/program.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Tarnvex"));
  QApplication::setApplicationVersion(QStringLiteral("1.00"));
  QApplication::setDesktopFileName(QStringLiteral("io.github.tarnvex.Tarnvex"));
  // The program ends by its own closing steps, not because no window shows for a moment.
  QApplication::setQuitOnLastWindowClosed(false);
  return tarnvex::desktop::Program().run();
}
