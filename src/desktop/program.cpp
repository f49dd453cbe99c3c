#include "desktop/program.h"

#include <QGuiApplication>
#include <QIcon>

#include "desktop/report.h"
#include "desktop/windows/outline_style.h"

/// The pictures are in a library, and the linker only takes what is used. Qt requires this call to
/// be outside any namespace.
static void initialiseResources() {
  Q_INIT_RESOURCE(desktop);
}

namespace tarnvex::desktop {

Program::Program(const QString& settingsPath, const QString& programFolder,
                 platform::SerialPortMaker otherPorts)
    : settings(settingsPath),
      makePort(link::watchedPorts(otherPorts ? std::move(otherPorts) : machinePorts(), traffic)),
      directory(QFile::encodeName(programFolder).toStdString()) {
  initialiseResources();
  installOutlines();
  settings.onFailure = [this](const std::string& description) {
    gate.enterMessage([this, description] {
      dialogs.messageBox("The settings could not be saved: " + description +
                             ". They stay in effect until Tarnvex ends.",
                         "Settings", platform::kWarning);
    });
  };
  QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/tarnvex.svg")));
}

platform::SerialPortMaker Program::machinePorts() {
  return [this] { return std::make_unique<QtSerialPort>(loop, gate, devices); };
}

int Program::run() {
  application.start();
  return loop.run();
}

QString Program::report() const {
  const auto* form = application.mainForm();
  return makeReport({devices, settings, traffic,
                     QString::fromStdString(form != nullptr ? form->linkState.text() : "")});
}

}  // namespace tarnvex::desktop
