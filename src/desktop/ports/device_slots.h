#pragma once

#include <QString>
#include <QVector>
#include <functional>

#include "platform/settings_store.h"

namespace tarnvex::desktop {

/// A serial device of this machine.
struct FoundPort {
  /// Its device file, such as "/dev/ttyUSB0".
  QString path;
  /// A path that stays the same if the adapter is unplugged and plugged in again, even into another
  /// socket. Equals `path` if there is none.
  QString stablePath;
  /// Maker and product as the adapter reports them. May be empty.
  QString description;

  /// The text to display, such as "FTDI FT232R USB UART (ttyUSB0)".
  [[nodiscard]] QString title() const;
  bool operator==(const FoundPort& other) const = default;
};

/// The serial devices of this machine, USB adapters first.
QVector<FoundPort> findPorts();

/// The link in `folder` that leads to the device at `path`, or `path` itself.
QString stablePath(const QString& path, const QString& folder);

/// Maps the slots COM 1 to COM 4 to serial devices. A slot's device is stored in the settings,
/// section "Ports", values "COM1" to "COM4". A slot without a stored device takes the n-th serial
/// device found.
class DeviceSlots {
 public:
  static constexpr int kSlots = 4;
  /// What looks for the serial devices of this machine.
  using Find = std::function<QVector<FoundPort>()>;

  /// `find` is called for each question, so that devices may come and go.
  explicit DeviceSlots(platform::SettingsStore& settings, Find find = findPorts)
      : settings_(settings), find_(std::move(find)) {}

  /// The path of the slot's device. Empty if it has none.
  [[nodiscard]] QString device(int slot) const;
  /// Stores the slot's device. With an empty path, the slot again takes a device that is found.
  void setDevice(int slot, const QString& path);
  [[nodiscard]] bool isNamed(int slot) const;
  [[nodiscard]] QVector<FoundPort> found() const { return find_(); }

 private:
  [[nodiscard]] QString named(int slot) const;

  platform::SettingsStore& settings_;
  Find find_;
};

}  // namespace tarnvex::desktop
