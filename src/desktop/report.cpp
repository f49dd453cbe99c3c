#include "desktop/report.h"

#include <QDir>
#include <QGuiApplication>
#include <QRegularExpression>
#include <QStringList>
#include <QSysInfo>

#include "desktop/ports/device_use.h"
#include "platform/version.h"

namespace tarnvex::desktop {
namespace {

QStringList deviceLines(const DeviceSlots& devices) {
  const DeviceUse use;
  QStringList lines;
  for (int slot = 1; slot <= DeviceSlots::kSlots; ++slot) {
    const QString path = devices.device(slot);
    const QString named =
        devices.isNamed(slot) ? QStringLiteral("chosen") : QStringLiteral("found");
    lines << (path.isEmpty() ? QStringLiteral("COM %1: no device").arg(slot)
                             : QStringLiteral("COM %1: %2 (%3, %4)")
                                   .arg(QString::number(slot), path, named, use.of(path)));
  }
  for (const auto& port : devices.found()) {
    lines << QStringLiteral("Found: %1, %2 (%3)").arg(port.title(), port.path, use.of(port.path));
  }
  return lines;
}

QString section(const char* heading, const QString& text) {
  return QStringLiteral("\n%1\n%2\n").arg(QLatin1String(heading), text.trimmed());
}

/// Puts "~" in place of the home folder, but not within the names of other folders.
QString withoutHome(QString text) {
  const QString home = QDir::homePath();
  // Without a home folder, Qt names the root.
  if (home == QDir::rootPath()) {
    return text;
  }
  const QRegularExpression path(
      QStringLiteral("(?<![\\w.-])%1(?![\\w-]|\\.\\w)").arg(QRegularExpression::escape(home)),
      QRegularExpression::UseUnicodePropertiesOption);
  return text.replace(path, QStringLiteral("~"));
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
  return withoutHome(report);
}

}  // namespace tarnvex::desktop
