#include "desktop/ports/device_slots.h"

#include <QFile>
#include <QSerialPortInfo>
#include <algorithm>

namespace tarnvex::desktop {
namespace {

std::string valueName(int slot) {
  return "COM" + std::to_string(slot);
}

}  // namespace

QString DeviceSlots::device(int slot) const {
  const QString path = named(slot);
  if (!path.isEmpty()) {
    return path;
  }
  const auto found = foundPorts();
  return slot >= 1 && slot <= found.size() ? found[slot - 1].path : QString();
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

QVector<DeviceSlots::FoundPort> DeviceSlots::foundPorts() {
  auto ports = QSerialPortInfo::availablePorts();
  std::ranges::stable_sort(ports, [](const auto& a, const auto& b) {
    return std::pair(!a.hasVendorIdentifier(), a.portName()) <
           std::pair(!b.hasVendorIdentifier(), b.portName());
  });
  QVector<FoundPort> found;
  for (const auto& port : ports) {
    found.push_back({port.systemLocation(), port.description()});
  }
  return found;
}

}  // namespace tarnvex::desktop
