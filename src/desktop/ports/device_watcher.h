#pragma once

#include <QFileSystemWatcher>
#include <QTimer>
#include <functional>

namespace tarnvex::desktop {

/// Tells when a device may have come or gone: a moment after the last change in the folders of
/// devices, so that a device has its rights and its links by then.
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
