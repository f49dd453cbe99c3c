#pragma once

#include <QSet>
#include <QString>

namespace tarnvex::desktop {

/// What can be told about the machine's devices without opening them. It looks once, at its
/// construction. Only this user's programs can be seen.
class DeviceUse {
 public:
  DeviceUse();

  /// In words, such as "in use by another program". `path` may be a link.
  [[nodiscard]] QString of(const QString& path) const;

 private:
  /// Resolved paths.
  QSet<QString> ours_;
  QSet<QString> others_;
};

}  // namespace tarnvex::desktop
