#pragma once

#include <QDateTime>
#include <QRectF>
#include <QSizeF>
#include <QVector>

namespace tarnvex::desktop {

/// A period in milliseconds UTC. It includes `from`, but not `to`.
struct TimeSpan {
  qint64 from = 0;
  qint64 to = 0;

  [[nodiscard]] qint64 length() const { return to - from; }
  /// A period `factor` times as long, in which `fixed` keeps its place. At least a minute long, and
  /// within `whole`.
  [[nodiscard]] TimeSpan zoomed(double factor, qint64 fixed, const TimeSpan& whole) const;
  /// The period moved by `by` milliseconds, but not beyond `whole`.
  [[nodiscard]] TimeSpan moved(qint64 by, const TimeSpan& whole) const;

  bool operator==(const TimeSpan&) const = default;
};

/// A mark on the time axis.
struct AxisMark {
  qint64 time;
  QString text;
};

/// Where everything in the picture is. It only calculates; of the font it only needs the height of
/// a line.
class PictureGeometry {
 public:
  static constexpr int kMostRows = 20;

  /// `line` is the height of a line of text, on which all other measures depend.
  PictureGeometry(QSizeF size, double line, int rows, TimeSpan span);

  /// The least height in which everything has room.
  static double leastHeight(double line, int rows);

  /// The area of the axis and of the rows' bars below it.
  [[nodiscard]] QRectF plot() const { return plot_; }
  [[nodiscard]] QRectF row(int row) const;
  [[nodiscard]] QRectF name(int row) const;
  [[nodiscard]] QRectF airtime(int row) const;
  [[nodiscard]] QRectF count(int row) const;
  /// The row at a height, or -1.
  [[nodiscard]] int rowAt(double y) const;

  [[nodiscard]] double x(qint64 time) const;
  [[nodiscard]] qint64 time(double x) const;
  /// A reception's bar: always wide enough to be seen, and cut off at the plot's edges. Empty if it
  /// lies outside.
  [[nodiscard]] QRectF bar(int row, qint64 from, qint64 to) const;
  /// The milliseconds that one pixel of the plot represents.
  [[nodiscard]] qint64 slice() const;
  /// The axis's marks, at round local times and far enough apart for their texts.
  [[nodiscard]] QVector<AxisMark> marks() const;

  /// The area of the hours' columns, with a heading above and numbers below.
  [[nodiscard]] QRectF hours() const { return hours_; }
  /// The column of an hour. Its height is `share` of the busiest hour's.
  [[nodiscard]] QRectF hour(int hour, double share) const;
  /// The hour at a point, or -1.
  [[nodiscard]] int hourAt(QPointF point) const;

  [[nodiscard]] double line() const { return line_; }

 private:
  [[nodiscard]] qint64 timeBetweenMarks() const;

  double line_;
  double rowHeight_;
  int rows_;
  TimeSpan span_;
  QRectF plot_;
  QRectF hours_;
  double width_;
};

}  // namespace tarnvex::desktop
