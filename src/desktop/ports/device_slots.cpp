#include "desktop/ports/device_slots.h"

#include <QDir>
#include <QSerialPortInfo>
#include <algorithm>

namespace tarnvex::desktop {
namespace {

std::string valueName(int slot) {
  return "COM" + std::to_string(slot);
}

/// Some adapters leave the maker's name empty. Others repeat it in the product's name.
QString describe(const QSerialPortInfo& port) {
  const QString maker = port.manufacturer().simplified();
  const QString product = port.description().simplified();
  return product.startsWith(maker) ? product : QString(maker + u' ' + product).trimmed();
}

}  // namespace

QString FoundPort::title() const {
  const QString name = QFileInfo(path).fileName();
  return description.isEmpty() ? name : QStringLiteral("%1 (%2)").arg(description, name);
}

QString stablePath(const QString& path, const QString& folder) {
  const auto links = QDir(folder).entryInfoList(QDir::Files | QDir::System);
  const auto link = std::ranges::find(links, path, &QFileInfo::canonicalFilePath);
  return link == links.end() ? path : link->filePath();
}

QVector<FoundPort> findPorts() {
  auto ports = QSerialPortInfo::availablePorts();
  std::ranges::stable_sort(ports, [](const auto& a, const auto& b) {
    return std::pair(!a.hasVendorIdentifier(), a.portName()) <
           std::pair(!b.hasVendorIdentifier(), b.portName());
  });
  QVector<FoundPort> found;
  for (const auto& port : ports) {
    const QString path = port.systemLocation();
    found.push_back({path, stablePath(path, QStringLiteral("/dev/serial/by-id")), describe(port)});
  }
  return found;
}

QString DeviceSlots::device(int slot) const {
  QString path = named(slot);
  if (!path.isEmpty()) {
    return path;
  }
  const auto ports = found();
  return slot >= 1 && slot <= ports.size() ? ports[slot - 1].path : QString();
}

void DeviceSlots::setDevice(int slot, const QString& path) {
  settings_.saveSetting("Ports", valueName(slot), QFile::encodeName(path).toStdString());
}

bool DeviceSlots::isNamed(int slot) const {
  return !named(slot).isEmpty();
}

QString DeviceSlots::named(int slot) const {
  return QFile::decodeName(settings_.getSetting("Ports", valueName(slot), "").c_str());
}

}  // namespace tarnvex::desktop
