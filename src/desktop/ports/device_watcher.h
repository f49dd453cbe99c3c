#pragma once

#include <QFileSystemWatcher>
#include <QTimer>
#include <functional>

namespace tarnvex::desktop {

/// Notifies when a device may have come or gone. It waits a moment after the last change in the
/// folders of devices, until a new device has its permissions and links.
class DeviceWatcher : public QObject {
 public:
  DeviceWatcher(QStringList folders, std::function<void()> changed, QObject* parent);

 private:
  void watch();

  QStringList folders_;
  QFileSystemWatcher watcher_;
  QTimer settled_;
};

}  // namespace tarnvex::desktop
