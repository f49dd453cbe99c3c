#include "desktop/reception_log/picture_geometry.h"

#include <algorithm>
#include <cmath>

namespace tarnvex::desktop {
namespace {

constexpr qint64 kMinute = 60'000;
constexpr qint64 kHour = 60 * kMinute;
constexpr qint64 kDay = 24 * kHour;

// Measures in lines of text.
constexpr double kMargin = 1.2;
constexpr double kNames = 15;
constexpr double kFigures = 5;
constexpr double kAxis = 1.8;
constexpr double kHours = 8;
constexpr double kLowestRow = 1.15;
constexpr double kHighestRow = 2.1;
constexpr double kMarkRoom = 6.5;

constexpr double kThinnestBar = 1.5;

/// The possible steps between two marks of the axis.
constexpr std::array kSteps = {kMinute,   5 * kMinute, 15 * kMinute, 30 * kMinute, kHour,
                               3 * kHour, 6 * kHour,   12 * kHour,   kDay,         2 * kDay,
                               7 * kDay,  14 * kDay,   30 * kDay,    91 * kDay,    365 * kDay};

/// The beginning of the local day.
QDateTime dayOf(qint64 time) {
  return QDateTime::fromMSecsSinceEpoch(time).date().startOfDay();
}

QString markText(qint64 time, qint64 step) {
  const QDateTime local = QDateTime::fromMSecsSinceEpoch(time);
  const bool midnight = local.time().hour() == 0 && local.time().minute() == 0;
  return local.toString(step >= kDay || midnight ? u"d MMM" : u"HH:mm");
}

}  // namespace

TimeSpan TimeSpan::zoomed(double factor, qint64 fixed, const TimeSpan& whole) const {
  const double wanted = std::max(double(length()) * factor, double(kMinute));
  if (wanted >= double(whole.length())) {
    return whole;
  }
  const double before = double(fixed - from) / double(std::max<qint64>(length(), 1));
  const auto start = static_cast<qint64>(double(fixed) - before * wanted);
  return TimeSpan{start, start + static_cast<qint64>(wanted)}.moved(0, whole);
}

TimeSpan TimeSpan::moved(qint64 by, const TimeSpan& whole) const {
  const qint64 start = std::max(std::min(from + by, whole.to - length()), whole.from);
  return {start, start + length()};
}

double PictureGeometry::leastHeight(double line, int rows) {
  return (3 * kMargin + kAxis + kHours + rows * kLowestRow) * line;
}

PictureGeometry::PictureGeometry(QSizeF size, double line, int rows, TimeSpan span)
    : line_(line), rows_(rows), span_(span), width_(size.width()) {
  const double margin = kMargin * line;
  const double top = margin + kAxis * line;
  const double room = size.height() - leastHeight(line, 0);
  rowHeight_ = std::clamp(room / std::max(rows, 1), kLowestRow * line, kHighestRow * line);
  const double left = margin + std::min(kNames * line, size.width() * 0.28);
  const double right = size.width() - margin - 2 * kFigures * line;
  plot_ = QRectF(left, top, std::max(right - left, line), rowHeight_ * rows);
  const double hoursTop = plot_.bottom() + margin + 1.6 * line;
  hours_ = QRectF(left, hoursTop, plot_.width(), (kHours - 3) * line);
}

QRectF PictureGeometry::row(int row) const {
  const double margin = kMargin * line_;
  return {margin / 2, plot_.top() + row * rowHeight_, width_ - margin, rowHeight_};
}

QRectF PictureGeometry::name(int row) const {
  const double margin = kMargin * line_;
  return {margin, plot_.top() + row * rowHeight_, plot_.left() - margin - line_, rowHeight_};
}

QRectF PictureGeometry::airtime(int row) const {
  return {plot_.right(), plot_.top() + row * rowHeight_, kFigures * line_, rowHeight_};
}

QRectF PictureGeometry::count(int row) const {
  return airtime(row).translated(kFigures * line_, 0);
}

int PictureGeometry::rowAt(double y) const {
  const auto row = static_cast<int>(std::floor((y - plot_.top()) / rowHeight_));
  return row >= 0 && row < rows_ ? row : -1;
}

double PictureGeometry::x(qint64 time) const {
  return plot_.left() +
         double(time - span_.from) / double(std::max<qint64>(span_.length(), 1)) * plot_.width();
}

qint64 PictureGeometry::time(double x) const {
  return span_.from +
         static_cast<qint64>((x - plot_.left()) / plot_.width() * double(span_.length()));
}

QRectF PictureGeometry::bar(int row, qint64 from, qint64 to) const {
  const double left = std::max(x(from), plot_.left());
  const double right = std::min(std::max(x(to), x(from) + kThinnestBar), plot_.right());
  if (right <= left) {
    return {};
  }
  const double height = rowHeight_ * 0.56;
  return {left, plot_.top() + row * rowHeight_ + (rowHeight_ - height) / 2, right - left, height};
}

qint64 PictureGeometry::slice() const {
  return std::max<qint64>(static_cast<qint64>(double(span_.length()) / plot_.width()), 1);
}

/// The shortest round time that leaves the marks enough room.
qint64 PictureGeometry::timeBetweenMarks() const {
  const double most = plot_.width() / (kMarkRoom * line_);
  const auto* step = std::ranges::find_if(
      kSteps, [&](qint64 length) { return double(span_.length()) / double(length) <= most; });
  return step == kSteps.end() ? kSteps.back() : *step;
}

QVector<AxisMark> PictureGeometry::marks() const {
  const qint64 between = timeBetweenMarks();
  QVector<AxisMark> marks;
  // Goes day by day, so that every mark is a round local time even if the clocks are changed.
  const int days = static_cast<int>(std::max<qint64>(between / kDay, 1));
  QDateTime day = dayOf(span_.from);
  day = day.addDays(-((day.date().toJulianDay()) % days));
  for (; day.toMSecsSinceEpoch() < span_.to; day = day.date().addDays(days).startOfDay()) {
    const qint64 next = day.date().addDays(days).startOfDay().toMSecsSinceEpoch();
    for (qint64 at = day.toMSecsSinceEpoch(); at < std::min(next, span_.to); at += between) {
      if (at >= span_.from) {
        marks.push_back({at, markText(at, between)});
      }
    }
  }
  return marks;
}

QRectF PictureGeometry::hour(int hour, double share) const {
  const double width = hours_.width() / 24;
  const double height = share <= 0 ? 0 : std::max(share * hours_.height(), 1.0);
  return {hours_.left() + hour * width + width * 0.14, hours_.bottom() - height, width * 0.72,
          height};
}

int PictureGeometry::hourAt(QPointF point) const {
  return hours_.contains(point)
             ? std::min(static_cast<int>((point.x() - hours_.left()) / hours_.width() * 24), 23)
             : -1;
}

}  // namespace tarnvex::desktop
