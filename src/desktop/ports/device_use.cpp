#include "desktop/ports/device_use.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace tarnvex::desktop {
namespace {

/// Adds the device files that a process has open.
void addOpenDevices(const QString& process, QSet<QString>& devices) {
  const QDir open(QStringLiteral("/proc/%1/fd").arg(process));
  for (const QFileInfo& file : open.entryInfoList(QDir::Files | QDir::System)) {
    if (const QString path = file.symLinkTarget(); path.startsWith(QLatin1String("/dev/"))) {
      devices.insert(path);
    }
  }
}

}  // namespace

DeviceUse::DeviceUse() {
  const QString ours = QString::number(QCoreApplication::applicationPid());
  for (const QString& name : QDir(QStringLiteral("/proc")).entryList(QDir::Dirs)) {
    if (name[0].isDigit()) {
      addOpenDevices(name, name == ours ? ours_ : others_);
    }
  }
}

QString DeviceUse::of(const QString& path) const {
  const QFileInfo file(path);
  const QString device = file.canonicalFilePath();
  if (!file.exists()) {
    return QStringLiteral("not there");
  }
  if (ours_.contains(device)) {
    return QStringLiteral("in use by Tarnvex");
  }
  if (others_.contains(device)) {
    return QStringLiteral("in use by another program");
  }
  return file.isReadable() && file.isWritable() ? QStringLiteral("apparently free")
                                                : QStringLiteral("no permission to use it");
}

}  // namespace tarnvex::desktop
