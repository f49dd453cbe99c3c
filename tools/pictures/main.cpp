#include <QApplication>
#include <cstdio>

#include "pictures/photographer.h"

/// Takes pictures of the program itself, with a simulated radio that it controls through a pipe:
/// "tarnvex-pictures FOLDER PIPE" takes those of the manual (see scripts/help-pictures). With a
/// size such as 1024x600, it takes every page and dialog in windows of that size (see
/// scripts/pictures). A new picture is a new row of shots. The exit status is 0 if all pictures
/// were taken.
namespace {

using tarnvex::desktop::Program;
using tarnvex::pictures::Photographer;

/// Reads "WIDTHxHEIGHT". Any other text gives an invalid size.
QSize sizeOf(const QString& text) {
  const QStringList sides = text.split(QLatin1Char('x'));
  return sides.size() == 2 ? QSize(sides[0].toInt(), sides[1].toInt()) : QSize();
}

/// Sets the palette of a common dark desktop.
void darken() {
  QPalette palette(QColor(0x31, 0x36, 0x3b), QColor(0x31, 0x36, 0x3b));
  palette.setColor(QPalette::Base, QColor(0x23, 0x26, 0x29));
  palette.setColor(QPalette::AlternateBase, QColor(0x2a, 0x2e, 0x32));
  palette.setColor(QPalette::Highlight, QColor(0x3d, 0xae, 0xe9));
  QApplication::setPalette(palette);
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() < 3 || arguments.size() > 4) {
    std::fputs("Usage: tarnvex-pictures FOLDER PIPE [WIDTHxHEIGHT]\n", stderr);
    return 2;
  }
  if (qEnvironmentVariableIsSet("TARNVEX_DARK")) {
    darken();
  }
  Program program;
  const Photographer photographer(program, arguments[1], arguments[2], sizeOf(arguments.value(3)));
  const int status = program.run();
  return photographer.done() ? status : 1;
}
