#pragma once

#include <QColor>

namespace tarnvex::desktop {

/// The colour at this share of the way from one colour to another: 0 is the first, 1 the other.
inline QColor mixed(const QColor& from, const QColor& to, double share) {
  const auto part = [share](double one, double other) { return one + (other - one) * share; };
  return QColor::fromRgbF(float(part(from.redF(), to.redF())),
                          float(part(from.greenF(), to.greenF())),
                          float(part(from.blueF(), to.blueF())));
}

}  // namespace tarnvex::desktop
