#include "desktop/panel/body_painter.h"

#include <QLinearGradient>
#include <QPainterPath>
#include <QRadialGradient>

#include "desktop/panel/key_painter.h"
#include "desktop/panel/knob_painter.h"
#include "desktop/panel/panel_style.h"
#include "desktop/panel/panel_text.h"

namespace tarnvex::desktop {
namespace {

void paintCase(QPainter& painter, const QRectF& body, double radius) {
  painter.setPen(QPen(style::kEdge, 1.5));
  painter.setBrush(style::downwards(
      body, {{0, style::kBodyTop}, {0.35, style::kBodyMiddle}, {1, style::kBodyBottom}}));
  painter.drawRoundedRect(body, radius, radius);
  // The light from above: a wide soft glow on the upper half, and a bright upper edge.
  QRadialGradient glow(QPointF(body.center().x(), body.top()), body.width() * 0.55);
  glow.setColorAt(0, style::withAlpha(style::kLight, 16));
  glow.setColorAt(1, style::withAlpha(style::kLight, 0));
  painter.setPen(Qt::NoPen);
  painter.setBrush(glow);
  painter.drawRoundedRect(body, radius, radius);
  const QGradientStops rim = {{0, style::withAlpha(style::kLight, 96)},
                              {0.12, style::withAlpha(style::kLight, 26)},
                              {1, style::withAlpha(style::kLight, 8)}};
  painter.setPen(QPen(style::downwards(body, rim), 1.2));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(body.adjusted(1.4, 1.4, -1.4, -1.4), radius - 1.4, radius - 1.4);
}

constexpr double kBezelRadius = 9;

void paintBezel(QPainter& painter, const QRectF& bezel, double radius) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(style::withAlpha(style::kLight, 30));
  painter.drawRoundedRect(bezel.translated(0, 1.2), radius, radius);
  QLinearGradient shade(bezel.topLeft(), bezel.bottomLeft());
  shade.setColorAt(0, style::kBezel.darker(140));
  shade.setColorAt(1, style::kBezel.lighter(125));
  painter.setBrush(shade);
  painter.drawRoundedRect(bezel, radius, radius);
}

/// A round part seen from the side, brightest in the middle.
void paintFitting(QPainter& painter, const PanelFitting& fitting) {
  QLinearGradient round(fitting.rect.topLeft(), fitting.rect.topRight());
  round.setColorAt(0, style::kBodyBottom.darker(130));
  round.setColorAt(0.4, style::kBodyTop.lighter(112));
  round.setColorAt(1, style::kBodyBottom.darker(150));
  painter.setPen(QPen(style::kEdge, 1.2));
  painter.setBrush(round);
  painter.drawRoundedRect(fitting.rect, fitting.radius, fitting.radius);
}

void paintCaption(QPainter& painter, const PanelCaption& caption) {
  Lettering lettering;
  lettering.size = caption.size;
  lettering.bold = true;
  lettering.spacing = 0.14;
  lettering.align = caption.align;
  painter.setPen(caption.strong ? style::kPrint : style::kPrintQuiet);
  drawLettering(painter, caption.rect, caption.text, lettering);
}

}  // namespace

void paintBody(QPainter& painter, const PanelLayout& layout) {
  painter.setRenderHint(QPainter::Antialiasing);
  for (const PanelFitting& fitting : layout.fittings) {
    paintFitting(painter, fitting);
  }
  if (!layout.body.isEmpty()) {
    paintCase(painter, layout.body, layout.bodyRadius);
  }
  // A display without a body fills its window to the corners.
  paintBezel(painter, layout.bezel, layout.body.isEmpty() ? 0 : kBezelRadius);
  for (const PanelCaption& caption : layout.captions) {
    paintCaption(painter, caption);
  }
  if (layout.knob) {
    paintKnob(painter, *layout.knob);
  }
  for (const PanelKey& key : layout.keys) {
    paintKey(painter, layout, key, KeyLook{});
  }
}

}  // namespace tarnvex::desktop
