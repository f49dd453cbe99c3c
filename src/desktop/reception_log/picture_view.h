#pragma once

#include <QTimer>
#include <QWidget>
#include <functional>
#include <optional>

#include "desktop/reception_log/picture_data.h"
#include "desktop/reception_log/query_thread.h"
#include "desktop/reception_log/reception_model.h"

namespace tarnvex::desktop {

/// The picture of who was busy when: the busiest frequencies and talkgroups of the table's rows,
/// their receptions as bars over time, and the hours of the day below. The wheel, plus and minus
/// zoom, dragging and the arrow keys pan, and Home shows the whole period again.
class PictureView : public QWidget {
 public:
  PictureView(QueryThread& thread, const ReceptionModel& model, QWidget* parent = nullptr);

  /// The table's rows have changed.
  void reload();

  [[nodiscard]] const PictureData& data() const { return data_; }
  [[nodiscard]] const TimeSpan& span() const { return span_; }
  [[nodiscard]] PictureGeometry geometryNow() const;
  [[nodiscard]] bool loaded() const { return loaded_; }
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

  /// Called after a click on a row, with the visible period.
  std::function<void(const BusySource&, const TimeSpan&)> onRowClicked;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  struct Drag {
    QPointF from;
    TimeSpan span;
    bool moved = false;
  };

  void take(PictureData data);
  void show(const TimeSpan& span);
  void askBars();
  void takeBars(const QVector<AirtimeBar>& bars);
  [[nodiscard]] QHash<qint64, int> rowsOfSources() const;
  void dragTo(double x);
  [[nodiscard]] QString textAt(QPointF point) const;
  [[nodiscard]] QString textOfRow(int row, qint64 time) const;

  QueryThread& thread_;
  const ReceptionModel& model_;
  PictureData data_;
  TimeSpan span_;
  /// By row.
  QVector<QVector<AirtimeBar>> bars_;
  bool loaded_ = false;
  bool loading_ = false;
  bool reloadAgain_ = false;
  bool askingBars_ = false;
  bool barsWanted_ = false;
  std::optional<Drag> drag_;
  int hoverRow_ = -1;
  int hoverHour_ = -1;
};

}  // namespace tarnvex::desktop
