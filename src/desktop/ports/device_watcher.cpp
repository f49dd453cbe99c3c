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

/// Some folders appear with the first device and disappear with the last one, so they must be
/// watched anew.
void DeviceWatcher::watch() {
  for (const QString& folder : folders_) {
    if (QFileInfo::exists(folder) && !watcher_.directories().contains(folder)) {
      watcher_.addPath(folder);
    }
  }
}

}  // namespace tarnvex::desktop
