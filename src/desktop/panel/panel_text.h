#pragma once

#include <QPainter>
#include <QRectF>
#include <QString>

/// Draws text in units, so that it looks the same at every scale.
namespace tarnvex::desktop {

/// The style of a text.
struct Lettering {
  double size = 8;  ///< Height of the font in units.
  bool bold = false;
  double spacing = 0;  ///< Extra space between letters, as a fraction of the size.
  Qt::Alignment align = Qt::AlignCenter;
};

/// Draws one or more lines (separated by line feeds) into `rect` with the painter's pen. A line
/// that is too wide shrinks to three quarters at least, and is elided if that isn't enough.
void drawLettering(QPainter& painter, const QRectF& rect, const QString& text,
                   const Lettering& lettering);

}  // namespace tarnvex::desktop
