#include "desktop/panel/segment_face.h"

#include <QFont>
#include <QFontDatabase>
#include <QTransform>
#include <algorithm>

namespace tarnvex::desktop {
namespace {

const QString kFamily = QStringLiteral("DSEG14 Classic");
constexpr int kFontPixels = 100;
// A slight slant, as the cells of such displays have.
constexpr double kSlant = 0.07;

QPainterPath fontGlyph(const QFont& font, QChar character) {
  QPainterPath path;
  path.addText(0, 0, font, QString(character));
  QTransform toCell;
  toCell.scale(1.0 / kFontPixels, 1.0 / kFontPixels);
  toCell.translate(0, kFontPixels);
  return toCell.map(path);
}

/// The font strikes its zero through; in a frequency a plain one reads better, and its O is one.
QChar drawnAs(QChar character) {
  return character == QLatin1Char('0') ? QLatin1Char('O') : character.toUpper();
}

}  // namespace

SegmentFace::SegmentFace(Source wanted) : source_(wanted) {
  const DrawnSegments drawn = drawSegments();
  if (!QFontDatabase::families().contains(kFamily)) source_ = Source::Drawn;
  glyphs_ = drawn.glyphs;
  point_ = drawn.point;
  all_ = drawn.all;
  if (source_ == Source::Drawn) return;
  QFont font(kFamily);
  font.setPixelSize(kFontPixels);
  font.setHintingPreference(QFont::PreferNoHinting);
  for (auto it = glyphs_.begin(); it != glyphs_.end(); ++it) {
    if (!it.value().isEmpty()) it.value() = fontGlyph(font, drawnAs(it.key()));
  }
  point_ = fontGlyph(font, QLatin1Char('.'));
  all_ = fontGlyph(font, QLatin1Char('~'));
}

bool SegmentFace::canShow(const QString& text) const {
  return std::all_of(text.begin(), text.end(), [this](QChar c) {
    return c == QLatin1Char('.') || glyphs_.contains(c.toUpper());
  });
}

QPainterPath SegmentFace::glyph(QChar character) const {
  return glyphs_.value(character.toUpper());
}

QVector<SegmentFace::Cell> SegmentFace::cells(const QString& text) {
  QVector<Cell> cells;
  for (const QChar c : text) {
    if (c != QLatin1Char('.')) {
      cells.append({c, false});
    } else if (!cells.isEmpty() && !cells.last().point) {
      cells.last().point = true;
    } else {
      cells.append({QLatin1Char(' '), true});
    }
  }
  return cells;
}

SegmentLine SegmentFace::line(const QString& text, const QString& rest, bool toRight) const {
  QVector<Cell> shown = cells(text);
  QVector<Cell> resting = cells(rest);
  const int count = static_cast<int>(std::max(shown.size(), resting.size()));
  const auto pad = [count, toRight](QVector<Cell>& line) {
    while (line.size() < count)
      line.insert(toRight ? 0 : line.size(), Cell{QLatin1Char(' '), false});
  };
  const bool longer = shown.size() > resting.size();
  pad(shown);
  pad(resting);
  SegmentLine result;
  for (int i = 0; i < count; ++i) {
    const double x = i * kCellAdvance;
    result.lit.addPath(glyph(shown[i].character).translated(x, 0));
    result.unlit.addPath(all_.translated(x, 0));
    const QPainterPath point = point_.translated(x + kCellAdvance, 0);
    if (shown[i].point) result.lit.addPath(point);
    if (shown[i].point || (resting[i].point && !longer)) result.unlit.addPath(point);
  }
  const QTransform slant(1, 0, -kSlant, 1, kSlant / 2, 0);
  result.lit = slant.map(result.lit);
  result.unlit = slant.map(result.unlit);
  result.width = count * kCellAdvance;
  return result;
}

}  // namespace tarnvex::desktop
