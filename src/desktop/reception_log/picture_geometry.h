#pragma once

#include <QDateTime>
#include <QRectF>
#include <QSizeF>
#include <QVector>
#include <array>

namespace tarnvex::desktop {

/// A stretch of time in milliseconds UTC: from the first to before the last.
struct TimeSpan {
  qint64 from = 0;
  qint64 to = 0;

  [[nodiscard]] qint64 length() const { return to - from; }
  /// `factor` times as long, with what is at `fixed` where it is; no shorter than a minute, and
  /// within `whole`.
  [[nodiscard]] TimeSpan zoomed(double factor, qint64 fixed, const TimeSpan& whole) const;
  /// Moved by that many milliseconds, as far as `whole` goes.
  [[nodiscard]] TimeSpan moved(qint64 by, const TimeSpan& whole) const;

  bool operator==(const TimeSpan&) const = default;
};

/// A mark on the time axis.
struct AxisMark {
  qint64 time;
  QString text;
};

/// Where everything of the picture is. Values only: no painting, no fonts but the height of a line.
class PictureGeometry {
 public:
  static constexpr int kMostRows = 20;

  /// `line` is the height of a line of text; all else follows from it.
  PictureGeometry(QSizeF size, double line, int rows, TimeSpan span);

  /// The axis with the rows' bars beneath it.
  [[nodiscard]] QRectF plot() const { return plot_; }
  [[nodiscard]] QRectF row(int row) const;
  [[nodiscard]] QRectF name(int row) const;
  [[nodiscard]] QRectF airtime(int row) const;
  [[nodiscard]] QRectF count(int row) const;
  /// The row at a height, or -1.
  [[nodiscard]] int rowAt(double y) const;

  [[nodiscard]] double x(qint64 time) const;
  [[nodiscard]] qint64 time(double x) const;
  /// A reception's bar: never thinner than can be seen, and cut off at the plot's edges. Empty if
  /// it lies outside.
  [[nodiscard]] QRectF bar(int row, qint64 from, qint64 to) const;
  /// Milliseconds that one point of the plot stands for.
  [[nodiscard]] qint64 slice() const;
  /// Marks at round local times, with room for their texts.
  [[nodiscard]] QVector<AxisMark> marks() const;

  /// The columns of the hours, with room for a heading above and their numbers below.
  [[nodiscard]] QRectF hours() const { return hours_; }
  /// The column of an hour; `share` of the busiest one's height.
  [[nodiscard]] QRectF hour(int hour, double share) const;
  /// The hour at a point, or -1.
  [[nodiscard]] int hourAt(QPointF point) const;

  [[nodiscard]] double line() const { return line_; }

 private:
  double line_;
  double rowHeight_;
  int rows_;
  TimeSpan span_;
  QRectF plot_;
  QRectF hours_;
  double width_;
};

/// Airtime by the hour of the day, local time, of slices of time.
std::array<double, 24> hoursOfDay(const QVector<QPair<qint64, double>>& slices, qint64 slice);

}  // namespace tarnvex::desktop
