#include "desktop/reception_log/picture_painter.h"

#include <algorithm>

#include "desktop/panel/colour_math.h"
#include "desktop/reception_log/reception_texts.h"

namespace tarnvex::desktop {

PicturePainter::PicturePainter(QPainter& painter, const QPalette& palette,
                               const PictureGeometry& geometry)
    : painter_(painter),
      geometry_(geometry),
      back_(palette.color(QPalette::Base)),
      text_(palette.color(QPalette::Text)),
      faint_(mixed(back_, text_, 0.58)),
      rule_(mixed(back_, text_, 0.1)),
      accent_(palette.color(QPalette::Highlight)) {
  painter_.setRenderHint(QPainter::Antialiasing);
}

void PicturePainter::paint(const PictureData& data, const QVector<QVector<AirtimeBar>>& bars,
                           int hoverRow, int hoverHour) {
  drawAxis();
  for (int row = 0; row < data.rows.size(); ++row) {
    drawRow(data.rows[row], bars.value(row), row, row == hoverRow);
  }
  drawHours(data.hours, hoverHour);
}

void PicturePainter::heading(const QRectF& place, const QString& text, Qt::Alignment alignment) {
  painter_.setPen(faint_);
  painter_.drawText(place, int(alignment | Qt::AlignVCenter | Qt::TextSingleLine), text);
}

void PicturePainter::drawAxis() {
  const QRectF plot = geometry_.plot();
  const double line = geometry_.line();
  const double top = plot.top() - line * 1.5;
  for (const AxisMark& mark : geometry_.marks()) {
    const double x = geometry_.x(mark.time);
    painter_.setPen(QPen(rule_, 1));
    painter_.drawLine(QPointF(x, plot.top() - line * 0.25), QPointF(x, plot.bottom()));
    heading({x - line * 3, top, line * 6, line * 1.2}, mark.text, Qt::AlignHCenter);
  }
  heading(geometry_.airtime(0).translated(0, top - plot.top()), QObject::tr("Airtime"),
          Qt::AlignRight);
  heading(geometry_.count(0).translated(0, top - plot.top()), QObject::tr("Count"), Qt::AlignRight);
}

/// The colour for a signal strength. An unknown one has a medium shade.
QColor PicturePainter::shade(int bars) const {
  static constexpr std::array kShares = {0.62, 0.38, 0.56, 0.78, 1.0};
  return mixed(back_, accent_, kShares.at(static_cast<std::size_t>(std::clamp(bars, 0, 4))));
}

void PicturePainter::drawName(const BusySource& busy, int row) {
  const QRectF place = geometry_.name(row);
  const QFontMetricsF metrics(painter_.font());
  const double source = metrics.horizontalAdvance(QStringLiteral("000.0000"));
  const QRectF first =
      busy.tag.isEmpty() ? place : place.adjusted(0, 0, -source - geometry_.line(), 0);
  painter_.setPen(text_);
  const QString name = busy.tag.isEmpty() ? busy.source : busy.tag;
  painter_.drawText(first, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                    metrics.elidedText(name, Qt::ElideRight, first.width()));
  if (!busy.tag.isEmpty()) {
    heading(place, busy.source, Qt::AlignRight);
  }
}

void PicturePainter::drawRow(const BusySource& busy, const QVector<AirtimeBar>& bars, int row,
                             bool hover) {
  if (hover) {
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(mixed(back_, accent_, 0.1));
    painter_.drawRoundedRect(geometry_.row(row), 4, 4);
  }
  drawName(busy, row);
  drawBars(bars, row);
  painter_.setPen(text_);
  const int figures = Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine;
  painter_.drawText(geometry_.airtime(row), figures, lengthText(busy.seconds));
  painter_.drawText(geometry_.count(row), figures, QLocale().toString(busy.count));
}

void PicturePainter::drawBars(const QVector<AirtimeBar>& bars, int row) {
  const QRectF plot = geometry_.plot();
  const double middle = geometry_.row(row).center().y();
  painter_.setPen(QPen(rule_, 1));
  painter_.drawLine(QPointF(plot.left(), middle), QPointF(plot.right(), middle));
  painter_.setPen(Qt::NoPen);
  for (const AirtimeBar& bar : bars) {
    const QRectF place = geometry_.bar(row, bar.from, bar.to);
    if (!place.isEmpty()) {
      painter_.setBrush(shade(bar.bars));
      const double round = std::min(place.width() / 2, 2.5);
      painter_.drawRoundedRect(place, round, round);
    }
  }
}

void PicturePainter::drawHour(int hour, double share, bool hover) {
  const QRectF column = geometry_.hour(hour, share);
  painter_.setPen(Qt::NoPen);
  painter_.setBrush(hover ? accent_ : mixed(back_, accent_, 0.56));
  painter_.drawRoundedRect(column, 2, 2);
  if (hour % 3 == 0) {
    const double line = geometry_.line();
    heading({column.center().x() - line * 2, geometry_.hours().bottom() + line * 0.2, line * 4,
             line * 1.2},
            QString::number(hour), Qt::AlignHCenter);
  }
}

void PicturePainter::drawHours(const std::array<double, 24>& hours, int hover) {
  const QRectF place = geometry_.hours();
  const double line = geometry_.line();
  heading({place.left(), place.top() - line * 1.8, place.width(), line * 1.2},
          QObject::tr("Airtime by hour of the day"), Qt::AlignLeft);
  const double most = *std::ranges::max_element(hours);
  for (int hour = 0; hour < 24; ++hour) {
    const double airtime = hours.at(static_cast<std::size_t>(hour));
    drawHour(hour, most > 0 ? airtime / most : 0, hour == hover);
  }
  painter_.setPen(QPen(mixed(back_, text_, 0.25), 1));
  painter_.drawLine(place.bottomLeft(), place.bottomRight());
}

}  // namespace tarnvex::desktop
