#pragma once

#include <QHash>
#include <QPainterPath>
#include <QString>
#include <QVector>

namespace tarnvex::desktop {

/// A line of segment cells, in units of the cell height, with the top left corner at the origin.
/// The shapes are separate because filling many small shapes is far quicker than filling one large
/// one.
struct SegmentLine {
  QVector<QPainterPath> lit;
  QVector<QPainterPath> unlit;  ///< Every segment of every cell, for the ghost behind.
  double width = 0;
  QString pattern;  ///< A letter for each cell and point. Lines with equal `unlit` have the same.
};

/// The shapes of one weight: those of the characters, the point (to the left of the next cell), and
/// all segments of a cell.
struct SegmentShapes {
  QHash<QChar, QPainterPath> glyphs;
  QPainterPath point;
  QPainterPath all;
};

/// Draws the shapes from a table. `thickness` is that of the segments, in cell heights.
SegmentShapes drawSegments(double thickness);

/// The distance from one cell to the next, in cell heights.
inline constexpr double kCellAdvance = 0.816;

/// The fourteen-segment face of the displays: the installed font if there is one, otherwise cells
/// drawn from a table. Small letters are shown as capitals; a point shares the cell before it.
///
/// A line with only upright and level strokes, such as a frequency, is bold. If a letter has
/// slanting strokes, the whole line is lighter, since bold strokes would run together.
class SegmentFace {
 public:
  /// Where the shapes come from: the installed font or the table.
  enum class Source { Installed, Drawn };

  /// `Installed` falls back to `Drawn` if the font is missing.
  explicit SegmentFace(Source wanted = Source::Installed);

  [[nodiscard]] Source source() const { return source_; }

  /// Whether segments can show all characters of the text.
  [[nodiscard]] bool canShow(const QString& text) const;

  /// Lays `text` out in at least as many cells as `rest` ("888.8888") has. A shorter text is
  /// aligned at the right if `toRight`, otherwise at the left. The cell of a character that can't
  /// be shown stays dark.
  [[nodiscard]] SegmentLine line(const QString& text, const QString& rest, bool toRight) const;

 private:
  struct Cell {
    QChar character;
    bool point = false;
  };
  static QVector<Cell> cells(const QString& text);
  /// Makes a line so many cells long.
  static void pad(QVector<Cell>& line, qsizetype count, bool toRight);
  static void add(SegmentLine& line, const SegmentShapes& shapes, const Cell& cell,
                  bool pointRests);

  Source source_;
  SegmentShapes bold_;
  SegmentShapes regular_;
};

}  // namespace tarnvex::desktop
