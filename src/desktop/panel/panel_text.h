#pragma once

#include <QPainter>
#include <QRectF>
#include <QString>

/// Lettering in the units of a drawing, the same at every scale.
namespace tarnvex::desktop {

struct Lettering {
  double size = 8;  ///< Height of the font in units.
  bool bold = false;
  double spacing = 0;  ///< Extra room between letters, in parts of the size.
  Qt::Alignment align = Qt::AlignCenter;
};

/// Draws one or more lines (separated by line feeds) into `rect` with the painter's pen. A line
/// that is too wide shrinks, to three quarters at most, and is then elided.
void drawLettering(QPainter& painter, const QRectF& rect, const QString& text,
                   const Lettering& lettering);

}  // namespace tarnvex::desktop
