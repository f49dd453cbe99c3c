#include "desktop/ports/device_watcher.h"

#include <QFileInfo>

namespace tarnvex::desktop {
namespace {

constexpr int kSettleMilliseconds = 300;

}  // namespace

DeviceWatcher::DeviceWatcher(QStringList folders, std::function<void()> changed, QObject* parent)
    : QObject(parent), folders_(std::move(folders)) {
  settled_.setSingleShot(true);
  settled_.setInterval(kSettleMilliseconds);
  connect(&watcher_, &QFileSystemWatcher::directoryChanged, this, [this] { settled_.start(); });
  connect(&settled_, &QTimer::timeout, this, [this, changed = std::move(changed)] {
    watch();
    changed();
  });
  watch();
}

/// A folder that comes with the first device, and goes with the last, is watched anew.
void DeviceWatcher::watch() {
  for (const QString& folder : folders_) {
    if (QFileInfo::exists(folder) && !watcher_.directories().contains(folder)) {
      watcher_.addPath(folder);
    }
  }
}

}  // namespace tarnvex::desktop
