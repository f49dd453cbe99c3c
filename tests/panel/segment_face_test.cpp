#include "desktop/panel/segment_face.h"

#include <gtest/gtest.h>

#include <QRectF>

namespace tarnvex::desktop {
namespace {

class Segments : public testing::TestWithParam<SegmentFace::Source> {
 protected:
  const SegmentFace face{GetParam()};

  static QRectF extent(const QVector<QPainterPath>& shapes) {
    QRectF all;
    for (const QPainterPath& shape : shapes) {
      all |= shape.boundingRect();
    }
    return all;
  }
  static QPainterPath joined(const SegmentLine& line) {
    QPainterPath all;
    for (const QPainterPath& shape : line.lit) {
      all.addPath(shape);
    }
    return all;
  }
};

TEST_P(Segments, ShowAllTextsOfTheRadios) {
  for (const char* text :
       {"155.1150", "888.8888", "Initializing", "Scanning", "Searching", "- -   - - -",
        "Non-Active ID", "Uploading...", "Send", "Error", "E2-800     ", "P  12", "103.5", ""}) {
    EXPECT_TRUE(face.canShow(text)) << text;
  }
  EXPECT_FALSE(face.canShow("100#"));
  EXPECT_FALSE(face.canShow(QStringLiteral("\u00e9")));
}

TEST_P(Segments, EveryLetterAndDigitHasAShapeOfItsOwn) {
  const QString characters = "123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-";
  for (int i = 0; i < characters.size(); ++i) {
    const QPainterPath shape = joined(face.line(characters[i], "", false));
    EXPECT_FALSE(shape.isEmpty()) << characters[i].toLatin1();
    EXPECT_EQ(shape, joined(face.line(characters[i].toLower(), "", false)));
    for (int k = 0; k < i; ++k) {
      EXPECT_NE(shape, joined(face.line(characters[k], "", false)))
          << characters[i].toLatin1() << " and " << characters[k].toLatin1();
    }
  }
  EXPECT_TRUE(face.line(" ", "", false).lit.isEmpty());
}

TEST_P(Segments, PointsShareTheCellBeforeThem) {
  const auto cells = [this](const char* text) {
    return qRound(face.line(text, "", false).width / kCellAdvance);
  };
  EXPECT_EQ(cells("155.1150"), 7);
  EXPECT_EQ(cells("Uploading..."), 11);  // only the first point shares the cell before it
  EXPECT_EQ(cells("."), 1);
  EXPECT_EQ(cells(""), 0);
  const QRectF with = extent(face.line("5.", "", false).lit);
  EXPECT_GT(with.right(), extent(face.line("5", "", false).lit).right());
  EXPECT_LT(with.right(), kCellAdvance + 0.1);
}

TEST_P(Segments, ShortTextsAreAlignedWithinTheCellsAtRest) {
  const SegmentLine right = face.line("12", "88888", true);
  const SegmentLine left = face.line("12", "88888", false);
  EXPECT_DOUBLE_EQ(right.width, 5 * kCellAdvance);
  EXPECT_GT(extent(right.lit).left(), 3 * kCellAdvance);
  EXPECT_LT(extent(left.lit).right(), 2 * kCellAdvance);
  EXPECT_DOUBLE_EQ(face.line("1234567", "88888", true).width, 7 * kCellAdvance);
}

INSTANTIATE_TEST_SUITE_P(Sources, Segments,
                         testing::Values(SegmentFace::Source::Installed,
                                         SegmentFace::Source::Drawn));

}  // namespace
}  // namespace tarnvex::desktop
