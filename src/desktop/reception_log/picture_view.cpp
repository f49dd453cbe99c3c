#include "desktop/reception_log/picture_view.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QToolTip>
#include <QWheelEvent>
#include <cmath>

#include "desktop/reception_log/picture_painter.h"
#include "desktop/reception_log/reception_texts.h"

namespace tarnvex::desktop {
namespace {

/// A quarter of an hour, since some time zones differ by that.
constexpr qint64 kSlice = 15LL * 60'000;
constexpr double kZoomStep = 0.8;
constexpr double kNotch = 120;

}  // namespace

PictureView::PictureView(QueryThread& thread, const ReceptionModel& model, QWidget* parent)
    : QWidget(parent), thread_(thread), model_(model) {
  setObjectName(QStringLiteral("picture"));
  setAccessibleName(tr("Who was busy when"));
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
}

QSize PictureView::sizeHint() const {
  return QSize(66, 42) * fontMetrics().height();
}

QSize PictureView::minimumSizeHint() const {
  const int line = fontMetrics().height();
  const int rows = static_cast<int>(data_.rows.size());
  return {40 * line, static_cast<int>(std::ceil(PictureGeometry::leastHeight(line, rows)))};
}

PictureGeometry PictureView::geometryNow() const {
  return {QSizeF(size()), double(fontMetrics().height()), static_cast<int>(data_.rows.size()),
          span_};
}

void PictureView::reload() {
  if (loading_) {
    reloadAgain_ = true;
    return;
  }
  loading_ = true;
  thread_.ask([this](ReceptionReader& reader) -> QueryThread::Answer {
    const auto slices = reader.airtimeBySlice(kSlice);
    return [this, slices, airtimes = reader.airtimes()] {
      PictureData data;
      data.whole = periodOf(slices);
      data.rows = busiest(airtimes, model_.sources());
      data.hours = hoursOfDay(slices, kSlice);
      take(std::move(data));
    };
  });
}

/// Takes new data. If the user has zoomed in, the view keeps its period; otherwise it goes on
/// showing the whole.
void PictureView::take(PictureData data) {
  const bool whole =
      span_ == data_.whole || data.whole.from > span_.to || data.whole.to < span_.from;
  data_ = std::move(data);
  bars_ = QVector<QVector<AirtimeBar>>(data_.rows.size());
  loading_ = false;
  loaded_ = true;
  updateGeometry();
  setAccessibleDescription(inWords(data_));
  show(whole ? data_.whole : span_);
  if (std::exchange(reloadAgain_, false)) {
    reload();
  }
}

void PictureView::show(const TimeSpan& span) {
  span_ = span;
  askBars();
  update();
}

/// Asks one question at a time. While the user drags, intermediate periods are skipped.
void PictureView::askBars() {
  barsWanted_ = askingBars_;
  if (askingBars_ || span_.length() <= 0) {
    return;
  }
  askingBars_ = true;
  QVector<qint64> ids;
  for (const BusySource& row : data_.rows) {
    ids += row.ids;
  }
  thread_.ask([this, ids, span = span_,
               slice = geometryNow().slice()](ReceptionReader& reader) -> QueryThread::Answer {
    return [this, bars = reader.bars(ids, span.from, span.to, slice)] { takeBars(bars); };
  });
}

QHash<qint64, int> PictureView::rowsOfSources() const {
  QHash<qint64, int> rowOf;
  for (int row = 0; row < data_.rows.size(); ++row) {
    for (const qint64 id : data_.rows[row].ids) {
      rowOf.insert(id, row);
    }
  }
  return rowOf;
}

void PictureView::takeBars(const QVector<AirtimeBar>& bars) {
  askingBars_ = false;
  const QHash<qint64, int> rowOf = rowsOfSources();
  bars_ = QVector<QVector<AirtimeBar>>(data_.rows.size());
  for (const AirtimeBar& bar : bars) {
    if (const auto row = rowOf.constFind(bar.source); row != rowOf.constEnd()) {
      bars_[*row].push_back(bar);
    }
  }
  update();
  if (barsWanted_) {
    askBars();
  }
}

void PictureView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), palette().base());
  if (data_.rows.isEmpty()) {
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(rect(), Qt::AlignCenter,
                     loaded_ ? tr("Nothing was heard in this period.") : tr("One moment..."));
    return;
  }
  const PictureGeometry geometry = geometryNow();
  PicturePainter(painter, palette(), geometry).paint(data_, bars_, hoverRow_, hoverHour_);
}

void PictureView::wheelEvent(QWheelEvent* event) {
  const double notches = event->angleDelta().y() / kNotch;
  show(span_.zoomed(std::pow(kZoomStep, notches), geometryNow().time(event->position().x()),
                    data_.whole));
  event->accept();
}

void PictureView::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) {
    drag_ = Drag{event->position(), span_};
  }
}

void PictureView::dragTo(double x) {
  const double by = drag_->from.x() - x;
  drag_->moved = drag_->moved || std::abs(by) >= QApplication::startDragDistance();
  if (drag_->moved) {
    const double perPoint = double(span_.length()) / geometryNow().plot().width();
    show(drag_->span.moved(static_cast<qint64>(by * perPoint), data_.whole));
  }
}

void PictureView::mouseMoveEvent(QMouseEvent* event) {
  const QPointF point = event->position();
  if (drag_) {
    dragTo(point.x());
    return;
  }
  const PictureGeometry geometry = geometryNow();
  hoverRow_ = geometry.rowAt(point.y());
  hoverHour_ = geometry.hourAt(point);
  setCursor(hoverRow_ >= 0 ? Qt::PointingHandCursor : Qt::ArrowCursor);
  QToolTip::showText(event->globalPosition().toPoint(), textAt(point), this);
  update();
}

void PictureView::mouseReleaseEvent(QMouseEvent* event) {
  const bool click = drag_ && !drag_->moved;
  drag_.reset();
  const int row = geometryNow().rowAt(event->position().y());
  if (click && row >= 0 && onRowClicked) {
    onRowClicked(data_.rows[row], span_);
  }
}

void PictureView::keyPressEvent(QKeyEvent* event) {
  const qint64 middle = span_.from + span_.length() / 2;
  switch (event->key()) {
    case Qt::Key_Plus:
      return show(span_.zoomed(kZoomStep, middle, data_.whole));
    case Qt::Key_Minus:
      return show(span_.zoomed(1 / kZoomStep, middle, data_.whole));
    case Qt::Key_Left:
      return show(span_.moved(-span_.length() / 10, data_.whole));
    case Qt::Key_Right:
      return show(span_.moved(span_.length() / 10, data_.whole));
    case Qt::Key_Home:
      return show(data_.whole);
    default:
      QWidget::keyPressEvent(event);
  }
}

void PictureView::resizeEvent(QResizeEvent* /*event*/) {
  askBars();
}

void PictureView::leaveEvent(QEvent* /*event*/) {
  hoverRow_ = -1;
  hoverHour_ = -1;
  update();
}

QString PictureView::textOfRow(int row, qint64 time) const {
  const BusySource& busy = data_.rows[row];
  const qint64 near = geometryNow().slice() * 3;
  QStringList lines{busy.tag.isEmpty() ? busy.source
                                       : busy.tag + QStringLiteral(" · ") + busy.source};
  for (const AirtimeBar& bar : bars_.value(row)) {
    if (time >= bar.from - near && time <= bar.to + near) {
      lines << (bar.count == 1 ? tr("%1, %2").arg(timeText(bar.from),
                                                  lengthText(double(bar.to - bar.from) / 1000))
                               : tr("%1: %2 receptions").arg(timeText(bar.from)).arg(bar.count));
      break;
    }
  }
  return lines.join(QLatin1Char('\n'));
}

QString PictureView::textAt(QPointF point) const {
  if (hoverHour_ >= 0) {
    return tr("%1:00 to %2:00: %3 on the air")
        .arg(hoverHour_)
        .arg(hoverHour_ + 1)
        .arg(lengthText(data_.hours.at(static_cast<std::size_t>(hoverHour_))));
  }
  return hoverRow_ < 0 ? QString() : textOfRow(hoverRow_, geometryNow().time(point.x()));
}

}  // namespace tarnvex::desktop
