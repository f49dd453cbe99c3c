#pragma once

#include <QHash>
#include <QPainterPath>
#include <QString>
#include <QVector>

namespace tarnvex::desktop {

/// One line of segment cells, in units of the cell height, top left at the origin. The parts are
/// kept apart because filling many small shapes is far quicker than filling one large one.
struct SegmentLine {
  QVector<QPainterPath> lit;
  QVector<QPainterPath> unlit;  ///< Every segment of every cell, for the ghost behind.
  double width = 0;
  QString pattern;  ///< Equal for lines whose `unlit` is equal: a letter for each cell and point.
};

/// Shapes of one weight: by character, the point (left of the cell that follows), all segments at
/// once.
struct SegmentShapes {
  QHash<QChar, QPainterPath> glyphs;
  QPainterPath point;
  QPainterPath all;
};

/// The cells drawn from a table, with segments of that thickness in cell heights.
SegmentShapes drawSegments(double thickness);

/// Room from one cell to the next, in cell heights.
inline constexpr double kCellAdvance = 0.816;

/// The fourteen-segment face of the displays: the installed font if there is one, else cells drawn
/// from a table. Small letters show as capitals; a point shares the cell before it.
///
/// A line of upright strokes, as every frequency is, is set in bold. Where a letter has slanting
/// strokes the whole line is set lighter, or they would run together.
class SegmentFace {
 public:
  enum class Source { Installed, Drawn };

  /// `Installed` falls back to `Drawn` where the font is missing.
  explicit SegmentFace(Source wanted = Source::Installed);

  [[nodiscard]] Source source() const { return source_; }

  /// Whether segments can show each of the characters.
  [[nodiscard]] bool canShow(const QString& text) const;

  /// Lays `text` out in at least as many cells as `rest` ("888.8888") has. A shorter text is
  /// aligned at the right if `toRight`, else at the left. What can't be shown leaves its cell dark.
  [[nodiscard]] SegmentLine line(const QString& text, const QString& rest, bool toRight) const;

 private:
  struct Cell {
    QChar character;
    bool point = false;
  };
  static QVector<Cell> cells(const QString& text);

  Source source_;
  SegmentShapes bold_;
  SegmentShapes regular_;
};

}  // namespace tarnvex::desktop
