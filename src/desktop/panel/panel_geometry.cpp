#include "desktop/panel/panel_geometry.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tarnvex::desktop {
namespace {

// A step to the side counts as this many steps ahead.
constexpr double kAsideWeight = 2.5;

QPointF directionOf(Qt::Key arrow) {
  switch (arrow) {
    case Qt::Key_Left:
      return {-1, 0};
    case Qt::Key_Right:
      return {1, 0};
    case Qt::Key_Up:
      return {0, -1};
    default:
      return {0, 1};
  }
}

}  // namespace

int keyAt(const PanelLayout& layout, const QPointF& point) {
  const auto found = std::ranges::find_if(
      layout.keys, [&point](const PanelKey& key) { return key.rect.contains(point); });
  return found == layout.keys.end() ? -1 : static_cast<int>(found - layout.keys.begin());
}

bool isOnKnob(const PanelLayout& layout, const QPointF& point) {
  return layout.knob && QLineF(layout.knob->centre, point).length() <= layout.knob->ringRadius;
}

int neighbourKey(const PanelLayout& layout, int from, Qt::Key arrow) {
  const QPointF ahead = directionOf(arrow);
  const QPointF start = layout.keys[from].rect.center();
  int best = from;
  double least = std::numeric_limits<double>::max();
  for (int i = 0; i < layout.keys.size(); ++i) {
    const QPointF way = layout.keys[i].rect.center() - start;
    const double forward = QPointF::dotProduct(way, ahead);
    const double aside = std::abs(way.x() * ahead.y() - way.y() * ahead.x());
    if (forward < 1 || aside > 3 * forward) {
      continue;
    }
    const double cost = forward + kAsideWeight * aside;
    if (cost >= least) {
      continue;
    }
    least = cost;
    best = i;
  }
  return best;
}

}  // namespace tarnvex::desktop
