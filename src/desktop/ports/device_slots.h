#pragma once

#include <QString>
#include <QVector>

#include "platform/settings_store.h"

namespace tarnvex::desktop {

/// The program's ports COM 1 to COM 4 as devices for devices of this machine. The settings name a
/// slot's device in section "Ports", values "COM1" to "COM4". A slot without one takes the n-th
/// serial device found, USB adapters first.
class DeviceSlots {
 public:
  static constexpr int kSlots = 4;

  struct FoundPort {
    QString path;
    QString description;
  };

  explicit DeviceSlots(platform::SettingsStore& settings) : settings_(settings) {}

  /// The device's path, empty if the slot has none.
  [[nodiscard]] QString device(int slot) const;
  /// Names the slot's device; an empty path gives the slot back to the found ones.
  void setDevice(int slot, const QString& path);
  [[nodiscard]] bool isNamed(int slot) const;
  [[nodiscard]] static QVector<FoundPort> foundPorts();

 private:
  [[nodiscard]] QString named(int slot) const;

  platform::SettingsStore& settings_;
};

}  // namespace tarnvex::desktop
