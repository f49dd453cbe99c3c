#include "desktop/report.h"

#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QStringList>
#include <QSysInfo>

#include "platform/version.h"

namespace tarnvex::desktop {
namespace {

QString stateOf(const QString& path) {
  const QFileInfo file(path);
  if (!file.exists()) {
    return QStringLiteral("not there");
  }
  return file.isReadable() && file.isWritable() ? QStringLiteral("usable")
                                                : QStringLiteral("no permission to use it");
}

QStringList deviceLines(const DeviceSlots& devices) {
  QStringList lines;
  for (int slot = 1; slot <= DeviceSlots::kSlots; ++slot) {
    const QString path = devices.device(slot);
    const QString named =
        devices.isNamed(slot) ? QStringLiteral("chosen") : QStringLiteral("found");
    lines << (path.isEmpty() ? QStringLiteral("COM %1: no device").arg(slot)
                             : QStringLiteral("COM %1: %2 (%3, %4)")
                                   .arg(QString::number(slot), path, named, stateOf(path)));
  }
  for (const auto& port : devices.found()) {
    lines << QStringLiteral("Found: %1, %2").arg(port.title(), port.path);
  }
  return lines;
}

QString section(const char* heading, const QString& text) {
  return QStringLiteral("\n%1\n%2\n").arg(QLatin1String(heading), text.trimmed());
}

}  // namespace

QString makeReport(const ReportSources& sources) {
  const QStringList system = {
      QStringLiteral("Tarnvex %1").arg(QLatin1String(platform::version())),
      QStringLiteral("%1, %2 %3, %4")
          .arg(QSysInfo::prettyProductName(), QSysInfo::kernelType(), QSysInfo::kernelVersion(),
               QSysInfo::currentCpuArchitecture()),
      QStringLiteral("Qt %1 on %2").arg(QLatin1String(qVersion()), QGuiApplication::platformName()),
  };
  const QString report = system.join(QLatin1Char('\n')) + QLatin1Char('\n') +
                         section("Line", sources.line) +
                         section("Devices", deviceLines(sources.devices).join(QLatin1Char('\n'))) +
                         section("Settings", sources.settings.allText()) +
                         section("Traffic", QString::fromLatin1(sources.traffic.text()));
  return QString(report).replace(QDir::homePath(), QStringLiteral("~"));
}

}  // namespace tarnvex::desktop
