#include <gtest/gtest.h>

#include <QSet>
#include <functional>

#include "desktop/panel/panel_geometry.h"
#include "desktop/panel/panel_layout.h"

namespace tarnvex::desktop {
namespace {

class BothLayouts : public testing::TestWithParam<std::function<PanelLayout()>> {
 protected:
  const PanelLayout layout = GetParam()();
};

TEST_P(BothLayouts, NothingOverlaps) {
  QVector<QPair<QString, QRectF>> front{{"bezel", layout.bezel}};
  if (layout.knob) {
    front.append({"knob", layout.knob->area()});
  }
  for (const PanelKey& key : layout.keys) {
    front.append({key.control, key.rect});
  }
  for (const PanelCaption& caption : layout.captions) {
    // Two captions share a line from both ends. They must not overlap the other elements.
    for (const auto& other : front) {
      EXPECT_FALSE(caption.rect.intersects(other.second) && other.first != "knob")
          << caption.text.toStdString() << " on " << other.first.toStdString();
    }
  }
  QVector<QPair<QString, QRectF>> glass;
  for (const DisplayElement& element : layout.elements) {
    glass.append({element.name, element.rect});
    EXPECT_TRUE(layout.glass.contains(element.rect)) << element.name.toStdString();
  }
  for (const auto& things : {front, glass}) {
    for (int i = 0; i < things.size(); ++i) {
      for (int k = i + 1; k < things.size(); ++k) {
        EXPECT_FALSE(things[i].second.intersects(things[k].second))
            << things[i].first.toStdString() << " and " << things[k].first.toStdString();
      }
    }
  }
  for (const auto& thing : front) {
    EXPECT_TRUE(layout.body.contains(thing.second)) << thing.first.toStdString();
  }
  EXPECT_TRUE(layout.bezel.contains(layout.glass));
}

TEST_P(BothLayouts, ArrowKeysReachEveryKey) {
  QSet<int> reached{0};
  QVector<int> open{0};
  while (!open.isEmpty()) {
    const int from = open.takeLast();
    for (const Qt::Key arrow : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down}) {
      const int next = neighbourKey(layout, from, arrow);
      if (!reached.contains(next)) {
        reached.insert(next);
        open.append(next);
      }
    }
  }
  EXPECT_EQ(reached.size(), layout.keys.size());
}

INSTANTIATE_TEST_SUITE_P(Radios, BothLayouts, testing::Values(bc895Layout, bc245Layout));

}  // namespace
}  // namespace tarnvex::desktop
