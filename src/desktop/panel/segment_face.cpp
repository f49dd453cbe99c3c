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

SegmentLine SegmentFace::line(const QString& text, const QString& rest, bool toRight) const {
  QVector<Cell> shown = cells(text);
  QVector<Cell> resting = cells(rest);
  const int count = static_cast<int>(std::max(shown.size(), resting.size()));
  const auto pad = [count, toRight](QVector<Cell>& line) {
    while (line.size() < count) {
      line.insert(toRight ? 0 : line.size(), Cell{QLatin1Char(' '), false});
    }
  };
  const bool longer = shown.size() > resting.size();
  pad(shown);
  pad(resting);
  const bool light = hasSlantingStrokes(text);
  const SegmentShapes& shapes = light ? regular_ : bold_;
  SegmentLine result;
  result.pattern = light ? QStringLiteral("r") : QStringLiteral("b");
  for (int i = 0; i < count; ++i) {
    const double x = i * kCellAdvance;
    const QPainterPath shape = shapes.glyphs.value(shown[i].character.toUpper());
    if (!shape.isEmpty()) {
      result.lit.append(shape.translated(x, 0));
    }
    result.unlit.append(shapes.all.translated(x, 0));
    result.pattern.append(QLatin1Char('c'));
    const QPainterPath point = shapes.point.translated(x + kCellAdvance, 0);
    if (shown[i].point) {
      result.lit.append(point);
    }
    if (!shown[i].point && (longer || !resting[i].point)) {
      continue;
    }
    result.unlit.append(point);
    result.pattern.append(QLatin1Char('p'));
  }
  result.width = count * kCellAdvance;
  return result;
}

}  // namespace tarnvex::desktop
