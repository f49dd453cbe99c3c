#include "desktop/panel/segment_face.h"

#include <QFont>
#include <QFontDatabase>
#include <QTransform>
#include <algorithm>

namespace tarnvex::desktop {
namespace {

const QString kFamily = QStringLiteral("DSEG14 Classic");
constexpr int kFontPixels = 100;
// A slight slant, which is usual for such displays.
constexpr double kSlant = 0.07;
// Thickness of the drawn segments.
constexpr double kBold = 0.118;
constexpr double kRegular = 0.094;

QPainterPath slanted(const QPainterPath& path) {
  return QTransform(1, 0, -kSlant, 1, kSlant / 2, 0).map(path);
}

QPainterPath fontGlyph(const QFont& font, QChar character) {
  QPainterPath path;
  path.addText(0, 0, font, QString(character));
  QTransform toCell;
  toCell.scale(1.0 / kFontPixels, 1.0 / kFontPixels);
  toCell.translate(0, kFontPixels);
  return toCell.map(path);
}

/// The font's zero has a slash. A plain one is easier to read in a frequency, so its O is used.
QChar drawnAs(QChar character) {
  return character == QLatin1Char('0') ? QLatin1Char('O') : character.toUpper();
}

void useFont(SegmentShapes& shapes, bool bold) {
  QFont font(kFamily);
  font.setPixelSize(kFontPixels);
  font.setBold(bold);
  font.setHintingPreference(QFont::PreferNoHinting);
  for (auto it = shapes.glyphs.begin(); it != shapes.glyphs.end(); ++it) {
    if (!it.value().isEmpty()) {
      it.value() = fontGlyph(font, drawnAs(it.key()));
    }
  }
  shapes.point = fontGlyph(font, QLatin1Char('.'));
  shapes.all = fontGlyph(font, QLatin1Char('~'));
}

SegmentShapes shapesOf(SegmentFace::Source source, bool bold) {
  SegmentShapes shapes = drawSegments(bold ? kBold : kRegular);
  if (source == SegmentFace::Source::Installed) {
    useFont(shapes, bold);
  }
  for (QPainterPath& glyph : shapes.glyphs) {
    glyph = slanted(glyph);
  }
  shapes.point = slanted(shapes.point);
  shapes.all = slanted(shapes.all);
  return shapes;
}

bool hasSlantingStrokes(const QString& text) {
  const QString slanting = QStringLiteral("KMNQRSVWXYZ*/\\(),");
  return std::any_of(text.begin(), text.end(),
                     [&slanting](QChar c) { return slanting.contains(c.toUpper()); });
}

}  // namespace

SegmentFace::SegmentFace(Source wanted)
    : source_(QFontDatabase::families().contains(kFamily) ? wanted : Source::Drawn),
      bold_(shapesOf(source_, true)),
      regular_(shapesOf(source_, false)) {}

bool SegmentFace::canShow(const QString& text) const {
  return std::all_of(text.begin(), text.end(), [this](QChar c) {
    return c == QLatin1Char('.') || bold_.glyphs.contains(c.toUpper());
  });
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

void SegmentFace::pad(QVector<Cell>& line, qsizetype count, bool toRight) {
  while (line.size() < count) {
    line.insert(toRight ? 0 : line.size(), Cell{QLatin1Char(' '), false});
  }
}

/// A cell and its point, which rests there if it isn't lit.
void SegmentFace::add(SegmentLine& line, const SegmentShapes& shapes, const Cell& cell,
                      bool pointRests) {
  const QPainterPath shape = shapes.glyphs.value(cell.character.toUpper());
  if (!shape.isEmpty()) {
    line.lit.append(shape.translated(line.width, 0));
  }
  line.unlit.append(shapes.all.translated(line.width, 0));
  line.pattern.append(QLatin1Char('c'));
  line.width += kCellAdvance;
  const QPainterPath point = shapes.point.translated(line.width, 0);
  if (cell.point) {
    line.lit.append(point);
  }
  if (cell.point || pointRests) {
    line.unlit.append(point);
    line.pattern.append(QLatin1Char('p'));
  }
}

SegmentLine SegmentFace::line(const QString& text, const QString& rest, bool toRight) const {
  QVector<Cell> shown = cells(text);
  QVector<Cell> resting = cells(rest);
  const bool longer = shown.size() > resting.size();
  const qsizetype count = std::max(shown.size(), resting.size());
  pad(shown, count, toRight);
  pad(resting, count, toRight);
  const bool light = hasSlantingStrokes(text);
  SegmentLine result;
  result.pattern = light ? QStringLiteral("r") : QStringLiteral("b");
  for (qsizetype i = 0; i < count; ++i) {
    add(result, light ? regular_ : bold_, shown[i], !longer && resting[i].point);
  }
  return result;
}

}  // namespace tarnvex::desktop
