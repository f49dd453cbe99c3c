#include <QApplication>

#include "desktop/command_line.h"
#include "desktop/program.h"
#include "platform/version.h"

using namespace tarnvex;

int main(int argc, char** argv) {
  QStringList arguments;
  std::for_each(argv + 1, argv + argc,
                [&](const char* argument) { arguments << QString::fromLocal8Bit(argument); });
  if (const auto status = desktop::answerQuestion(arguments)) {
    return *status;
  }
  if (const auto status = desktop::refuseArguments(arguments)) {
    return *status;
  }
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Tarnvex"));
  QApplication::setApplicationVersion(QString::fromLatin1(platform::version()));
  QApplication::setDesktopFileName(QStringLiteral("io.github.tarnvex.Tarnvex"));
  // The program ends when it says so, not because no window is visible for a moment.
  QApplication::setQuitOnLastWindowClosed(false);
  return desktop::Program().run();
}
