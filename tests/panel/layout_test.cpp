#include <gtest/gtest.h>

#include <QSet>
#include <functional>

#include "desktop/panel/panel_geometry.h"
#include "desktop/panel/panel_layout.h"

namespace tarnvex::desktop {
namespace {

QStringList array(const char* name, int count) {
  QStringList names;
  for (int i = 0; i < count; ++i) names.append(QString("%1(%2)").arg(name).arg(i));
  return names;
}

TEST(PanelLayout, DeskSetKeysFollowTheKeypadArray) {
  const QStringList captions =
      QString(
          "STEP|AUX|DIM|WX|RMT|SEND|HOLD|LIMIT|SRC|AUTO|SCAN|MANUAL|PRI|TRUNK|DATA|L/O|DELAY|"
          "CTCSS|1|2|3|4|5|6|7|8|9|.|0|E |A|B|C|D|E|F|G|H|I|J|FREQ  CHAN")
          .split('|');
  const PanelLayout layout = bc895Layout();
  ASSERT_EQ(layout.keys.size(), captions.size());
  for (int i = 0; i < captions.size(); ++i) {
    EXPECT_EQ(layout.keys[i].caption, captions[i]) << i;
    EXPECT_EQ(layout.keyIndex(QString("Keypad(%1)").arg(i)), i);
  }
  EXPECT_EQ(layout.keyIndex("Keypad(41)"), -1);
}

TEST(PanelLayout, HandheldKeysCarryTheirLabels) {
  QStringList captions;
  const PanelLayout layout = bc245Layout();
  for (int label = 1; label <= 26; ++label) {
    const int index = layout.keyIndex(QString("Label%1").arg(label));
    captions.append(index < 0 ? "none" : layout.keys[index].caption);
  }
  EXPECT_EQ(captions.join('|').toStdString(),
            "|  SCAN| MAN| TRNK|    SVC|     PRI|none|1|2|3|none|4|5|6|7|8|9|.|0|E|   LIMIT| SRCH|"
            "   HOLD|  DLY|   L/O| DATA");
  EXPECT_EQ(layout.keys.size(), captions.size() - 2);
}

TEST(PanelLayout, HoldsEveryElementThatThePollWrites) {
  const QStringList desk =
      QString(
          "Frequency Alpha Channel CTCSS Scan Hold Search Trunk Wx Auto Priority Delay LO MHZ "
          "CtcssStat Bank Alert Line STEP")
          .split(' ') +
      array("Bankltr", 10) + array("Sig", 5);
  const QStringList hand = QString(
                               "Frequency Alpha Channel TrunkType Trunk Att Data Dly Hold LO "
                               "Pri Police Scan Keylock Search")
                               .split(' ') +
                           array("Bank", 11) + array("Bankltr", 10);
  const auto sorted = [](QStringList names) {
    names.sort();
    return names;
  };
  const auto names = [](const PanelLayout& layout) {
    QStringList result;
    for (const DisplayElement& element : layout.elements) result.append(element.name);
    return result;
  };
  EXPECT_EQ(sorted(names(bc895Layout())), sorted(desk));
  EXPECT_EQ(sorted(names(bc245Layout())), sorted(hand));
  EXPECT_EQ(bc895Layout().knob->marks, 13);
  EXPECT_FALSE(bc245Layout().knob.has_value());
}

class BothLayouts : public testing::TestWithParam<std::function<PanelLayout()>> {
 protected:
  const PanelLayout layout = GetParam()();
};

TEST_P(BothLayouts, NothingOverlaps) {
  QVector<QPair<QString, QRectF>> front{{"bezel", layout.bezel}};
  if (layout.knob) front.append({"knob", layout.knob->area()});
  for (const PanelKey& key : layout.keys) front.append({key.control, key.rect});
  for (const PanelCaption& caption : layout.captions) {
    // Two captions share a line from both ends; what matters is that they keep off the rest.
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

TEST_P(BothLayouts, KeysCanBeToldApartByEar) {
  QSet<QString> spoken;
  for (const PanelKey& key : layout.keys) {
    EXPECT_FALSE(key.spoken.isEmpty()) << key.control.toStdString();
    EXPECT_FALSE(spoken.contains(key.spoken)) << key.spoken.toStdString();
    EXPECT_TRUE(!key.label.isEmpty() || key.icon != KeyIcon::None);
    spoken.insert(key.spoken);
  }
}

TEST_P(BothLayouts, ArrowKeysReachEveryKey) {
  QSet<int> reached{0};
  QVector<int> open{0};
  while (!open.isEmpty()) {
    const int from = open.takeLast();
    for (const Qt::Key arrow : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down}) {
      const int next = neighbourKey(layout, from, arrow);
      if (reached.contains(next)) continue;
      reached.insert(next);
      open.append(next);
    }
  }
  EXPECT_EQ(reached.size(), layout.keys.size());
}

INSTANTIATE_TEST_SUITE_P(Radios, BothLayouts, testing::Values(bc895Layout, bc245Layout));

}  // namespace
}  // namespace tarnvex::desktop
