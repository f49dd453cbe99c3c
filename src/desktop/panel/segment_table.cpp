#include <QPolygonF>
#include <array>

#include "desktop/panel/segment_face.h"

namespace tarnvex::desktop {
namespace {

// The segments and their bits: clockwise from the top, then the inner ones.
//    --a--
//   f\h i j/b
//    -g1-g2-
//   e/m l k\c
//    --d--
enum Segment : int {
  A = 1 << 0,
  B = 1 << 1,
  C = 1 << 2,
  D = 1 << 3,
  E = 1 << 4,
  F = 1 << 5,
  G1 = 1 << 6,
  G2 = 1 << 7,
  H = 1 << 8,
  I = 1 << 9,
  J = 1 << 10,
  K = 1 << 11,
  L = 1 << 12,
  M = 1 << 13,
};
constexpr int kSegments = 14;
constexpr int G = G1 | G2;

struct Entry {
  char character;
  int segments;
};

constexpr std::array kTable{
    Entry{' ', 0},
    Entry{'0', A | B | C | D | E | F},
    Entry{'1', B | C},
    Entry{'2', A | B | G | E | D},
    Entry{'3', A | B | C | D | G2},
    Entry{'4', F | G | B | C},
    Entry{'5', A | F | G | C | D},
    Entry{'6', A | F | E | D | C | G},
    Entry{'7', A | B | C | F},
    Entry{'8', A | B | C | D | E | F | G},
    Entry{'9', A | B | C | D | F | G},
    Entry{'A', A | B | C | E | F | G},
    Entry{'B', A | B | C | D | I | L | G2},
    Entry{'C', A | D | E | F},
    Entry{'D', A | B | C | D | I | L},
    Entry{'E', A | D | E | F | G},
    Entry{'F', A | E | F | G},
    Entry{'G', A | C | D | E | F | G2},
    Entry{'H', B | C | E | F | G},
    Entry{'I', A | D | I | L},
    Entry{'J', B | C | D | E},
    Entry{'K', E | F | G1 | J | K},
    Entry{'L', D | E | F},
    Entry{'M', B | C | E | F | H | J},
    Entry{'N', B | C | E | F | H | K},
    Entry{'O', A | B | C | D | E | F},
    Entry{'P', A | B | E | F | G},
    Entry{'Q', A | B | C | D | E | F | K},
    Entry{'R', A | B | E | F | G | K},
    Entry{'S', A | H | G2 | C | D},
    Entry{'T', A | I | L},
    Entry{'U', B | C | D | E | F},
    Entry{'V', E | F | J | M},
    Entry{'W', B | C | E | F | K | M},
    Entry{'X', H | J | K | M},
    Entry{'Y', H | J | L},
    Entry{'Z', A | D | J | M},
    Entry{'-', G},
    Entry{'+', G | I | L},
    Entry{'*', G | H | I | J | K | L | M},
    Entry{'/', J | M},
    Entry{'\\', H | K},
    Entry{'_', D},
    Entry{'=', G | D},
    Entry{'(', J | K},
    Entry{')', H | M},
    Entry{'\'', I},
    Entry{',', M},
    Entry{'|', I | L},
};

// The centre lines of the segments in a cell.
constexpr double kLeft = 0.146;
constexpr double kRight = 0.671;
constexpr double kTop = 0.047;
constexpr double kBottom = 0.953;
constexpr double kMiddle = 0.5;
constexpr double kCentre = (kLeft + kRight) / 2;
constexpr double kGap = 0.012;

/// A bar from one centre point to another, with pointed ends just short of both.
QPolygonF bar(QPointF from, QPointF to, double half) {
  const QPointF along = to - from;
  const double length = std::hypot(along.x(), along.y());
  const QPointF unit = along / length;
  const QPointF side = QPointF(-unit.y(), unit.x()) * half;
  const QPointF start = from + unit * kGap;
  const QPointF end = to - unit * kGap;
  return {{start, start + unit * half + side, end - unit * half + side, end,
           end - unit * half - side, start + unit * half - side}};
}

/// A slanting bar within one quarter of the cell. Its ends are vertical.
QPolygonF slash(double outerX, double outerY, double innerY, double half) {
  const double toCentre = outerX < kCentre ? 1 : -1;
  const double down = outerY < innerY ? 1 : -1;
  const double x0 = outerX + toCentre * (half + 0.03);
  const double x1 = kCentre - toCentre * (half + 0.03);
  const double y0 = outerY + down * (half + 0.02);
  const double y1 = innerY - down * (half + 0.02);
  const double reach = down * 2.4 * half;
  return {{QPointF(x0, y0), QPointF(x0, y0 + reach), QPointF(x1, y1), QPointF(x1, y1 - reach)}};
}

std::array<QPolygonF, kSegments> segmentShapes(double half) {
  const QPointF topLeft(kLeft, kTop);
  const QPointF topRight(kRight, kTop);
  const QPointF left(kLeft, kMiddle);
  const QPointF right(kRight, kMiddle);
  const QPointF bottomLeft(kLeft, kBottom);
  const QPointF bottomRight(kRight, kBottom);
  const QPointF centre(kCentre, kMiddle);
  return {bar(topLeft, topRight, half),
          bar(topRight, right, half),
          bar(right, bottomRight, half),
          bar(bottomLeft, bottomRight, half),
          bar(left, bottomLeft, half),
          bar(topLeft, left, half),
          bar(left, centre, half),
          bar(centre, right, half),
          slash(kLeft, kTop, kMiddle, half),
          bar(QPointF(kCentre, kTop + half), centre, half),
          slash(kRight, kTop, kMiddle, half),
          slash(kRight, kBottom, kMiddle, half),
          bar(centre, QPointF(kCentre, kBottom - half), half),
          slash(kLeft, kBottom, kMiddle, half)};
}

}  // namespace

SegmentShapes drawSegments(double thickness) {
  const auto shapes = segmentShapes(thickness / 2);
  const auto path = [&shapes](int segments) {
    QPainterPath result;
    for (int bit = 0; bit < kSegments; ++bit) {
      if ((segments & (1 << bit)) == 0) {
        continue;
      }
      result.addPolygon(shapes[static_cast<std::size_t>(bit)]);
      result.closeSubpath();
    }
    result.setFillRule(Qt::WindingFill);
    return result;
  };
  SegmentShapes drawn;
  for (const Entry& entry : kTable) {
    drawn.glyphs.insert(QLatin1Char(entry.character), path(entry.segments));
  }
  drawn.all = path((1 << kSegments) - 1);
  drawn.point.addEllipse(QPointF(0, 1 - 0.062), 0.062, 0.062);
  return drawn;
}

}  // namespace tarnvex::desktop
