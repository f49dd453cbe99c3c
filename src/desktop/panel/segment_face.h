#pragma once

#include <QHash>
#include <QPainterPath>
#include <QString>
#include <QVector>

namespace tarnvex::desktop {

/// One line of segment cells, ready to fill: in units of the cell height, top left at the origin.
struct SegmentLine {
  QPainterPath lit;
  QPainterPath unlit;  ///< Every segment of every cell, for the ghost behind.
  double width = 0;
};

/// The fourteen-segment face of the displays: the installed font if there is one, else cells drawn
/// from a table. Small letters show as capitals; a point shares the cell before it.
class SegmentFace {
 public:
  enum class Source { Installed, Drawn };

  /// `Installed` falls back to `Drawn` where the font is missing.
  explicit SegmentFace(Source wanted = Source::Installed);

  Source source() const { return source_; }

  /// Whether segments can show each of the characters.
  bool canShow(const QString& text) const;

  /// The shape of one character in its cell; empty for a blank and for what can't be shown.
  QPainterPath glyph(QChar character) const;

  /// Lays `text` out in at least as many cells as `rest` ("888.8888") has. A shorter text stands
  /// at the right if `toRight`, else at the left.
  SegmentLine line(const QString& text, const QString& rest, bool toRight) const;

 private:
  struct Cell {
    QChar character;
    bool point = false;
  };
  static QVector<Cell> cells(const QString& text);

  Source source_;
  QHash<QChar, QPainterPath> glyphs_;
  QPainterPath point_;
  QPainterPath all_;
};

/// The drawn cells: shapes by character, the point, and all segments, in units of the cell height.
struct DrawnSegments {
  QHash<QChar, QPainterPath> glyphs;
  QPainterPath point;
  QPainterPath all;
};
DrawnSegments drawSegments();

/// Room from one cell to the next, in cell heights.
inline constexpr double kCellAdvance = 0.816;

}  // namespace tarnvex::desktop
