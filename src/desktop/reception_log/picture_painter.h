#pragma once

#include <QPainter>
#include <QPalette>

#include "desktop/reception_log/picture_data.h"

namespace tarnvex::desktop {

/// Draws the picture of the log, in the colours of a palette.
class PicturePainter {
 public:
  PicturePainter(QPainter& painter, const QPalette& palette, const PictureGeometry& geometry);

  /// `hoverRow` and `hoverHour` are -1 for none.
  void paint(const PictureData& data, const QVector<QVector<AirtimeBar>>& bars, int hoverRow,
             int hoverHour);

 private:
  void drawAxis();
  void drawRow(const BusySource& busy, const QVector<AirtimeBar>& bars, int row, bool hover);
  void drawName(const BusySource& busy, int row);
  void drawBars(const QVector<AirtimeBar>& bars, int row);
  void drawHour(int hour, double share, bool hover);
  void drawHours(const std::array<double, 24>& hours, int hover);
  void heading(const QRectF& place, const QString& text, Qt::Alignment alignment);
  [[nodiscard]] QColor shade(int bars) const;

  QPainter& painter_;
  const PictureGeometry& geometry_;
  QColor back_;
  QColor text_;
  QColor faint_;
  QColor rule_;
  QColor accent_;
};

}  // namespace tarnvex::desktop
