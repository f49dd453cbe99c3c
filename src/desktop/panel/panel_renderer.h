#pragma once

#include <QColor>
#include <QHash>
#include <QPainter>
#include <QPixmap>
#include <QRect>
#include <QTransform>

#include "desktop/panel/panel_layout.h"
#include "desktop/panel/segment_face.h"

namespace tarnvex::desktop {

/// What a display element shows.
struct ElementState {
  QString text;
  bool lit = false;
};

/// Everything that changes on a front panel, as a value.
struct FrontState {
  QVector<ElementState> elements;  ///< In the order of the layout.
  QVector<int> keysDown;           ///< Key indices drawn as pressed.
  int hoverKey = -1;
  int focusKey = -1;  ///< Key with the focus ring, -1 for none.
  int litMark = -1;   ///< Mark of the knob.
  int knobAngle = 0;  ///< The mark to which the dimple points.
  QColor back;
  /// Whether the display is lit. If not, it is dark and its text is faint, whatever its colour.
  bool live = true;
};

/// The colours of the display's back light and of the text on it, as they are drawn.
QColor shownBack(const FrontState& state);
QColor shownInk(const FrontState& state);

/// Draws a front at a given size. Everything that doesn't change is kept in a picture. Painting
/// copies from it and draws the elements that the clip touches.
class PanelRenderer {
 public:
  explicit PanelRenderer(const PanelLayout& layout);

  /// Sets the size in widget coordinates and the number of device pixels per widget pixel.
  void setGeometry(const QSize& size, double devicePixelRatio);

  /// Converts units to widget coordinates.
  [[nodiscard]] const QTransform& transform() const { return transform_; }
  /// The widget pixels that a rectangle in units touches, after it has grown by `margin` units.
  [[nodiscard]] QRect widgetRect(const QRectF& units, double margin) const;

  void paint(QPainter& painter, const QRegion& clip, const FrontState& state);

 private:
  template <class Paint>
  [[nodiscard]] QPixmap painted(QPixmap picture, Paint paint) const;
  void ensurePictures(const QColor& back);
  [[nodiscard]] QPixmap blankPicture(const QSize& size) const;
  void paintKeys(QPainter& painter, const QRegion& clip, const FrontState& state) const;
  void paintGhosts(QPainter& painter, const QRegion& clip, const FrontState& state);
  void paintGhost(QPainter& painter, const DisplayElement& which, const ElementState& state,
                  const QColor& ink);
  void paintElements(QPainter& painter, const QRegion& clip, const FrontState& state) const;

  PanelLayout layout_;
  SegmentFace face_;
  QSize size_;
  double ratio_ = 1;
  QTransform transform_;
  QPixmap body_;
  QPixmap front_;  ///< Body with the glass in the colour of frontBack_.
  QColor frontBack_;
  /// The unlit cells of the segment lines, by element and pattern. They are slow to draw, and there
  /// are only a few of them.
  QHash<QString, QPixmap> ghosts_;
};

}  // namespace tarnvex::desktop
