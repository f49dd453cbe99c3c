#include "desktop/ports/wall_clock.h"

#include <QDateTime>

namespace tarnvex::desktop {

std::int64_t WallClock::seconds() const {
  return QDateTime::currentSecsSinceEpoch();
}

std::string WallClock::now() const {
  return QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")).toStdString();
}

}  // namespace tarnvex::desktop
