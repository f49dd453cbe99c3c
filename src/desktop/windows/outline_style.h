#pragma once

#include <QMap>
#include <QProxyStyle>
#include <QSet>

namespace tarnvex::desktop {

/// Qt's own style with outlines that everybody can see: each control's edge, with the focus and
/// without, has a contrast of 3 to 1 or better against what is around it, in any palette. Where a
/// desktop brings its own style, that one is left as it is.
class OutlineStyle : public QProxyStyle {
 public:
  OutlineStyle();

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override;

 private:
  class Lent;

  [[nodiscard]] QPalette strong(const QPalette& palette, bool indicator) const;

  /// Strengthened palettes by the cache key of their source, and the keys of those made here.
  mutable QMap<std::pair<qint64, bool>, QPalette> strong_;
  mutable QSet<qint64> own_;
};

/// Installs the style. Call once, before the first window.
void installOutlines();

}  // namespace tarnvex::desktop
