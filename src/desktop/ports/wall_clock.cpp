#include "desktop/ports/wall_clock.h"

#include <QDateTime>
#include <chrono>

namespace tarnvex::desktop {

std::int64_t WallClock::seconds() const {
  using std::chrono::steady_clock;
  return std::chrono::duration_cast<std::chrono::seconds>(steady_clock::now().time_since_epoch())
      .count();
}

std::int64_t WallClock::milliseconds() const {
  return QDateTime::currentMSecsSinceEpoch();
}

std::string WallClock::now() const {
  return QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")).toStdString();
}

}  // namespace tarnvex::desktop
