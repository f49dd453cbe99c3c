#pragma once

#include <QColor>
#include <algorithm>
#include <cmath>

namespace tarnvex::desktop {

/// The colour at this share of the way from one colour to another: 0 is the first, 1 the other.
inline QColor mixed(const QColor& from, const QColor& to, double share) {
  const auto part = [share](double one, double other) { return one + (other - one) * share; };
  return QColor::fromRgbF(float(part(from.redF(), to.redF())),
                          float(part(from.greenF(), to.greenF())),
                          float(part(from.blueF(), to.blueF())));
}

inline double luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
         0.0722 * linear(colour.blueF());
}

/// From 1 for equal colours to 21 for black and white, as the guidelines for accessible pages
/// define it.
inline double contrast(const QColor& one, const QColor& other) {
  const auto [dark, bright] = std::minmax({luminance(one), luminance(other)});
  return (bright + 0.05) / (dark + 0.05);
}

}  // namespace tarnvex::desktop
