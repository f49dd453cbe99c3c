#include "desktop/panel/knob_painter.h"

#include <QConicalGradient>
#include <QLinearGradient>
#include <QPainterPath>
#include <QRadialGradient>
#include <cmath>

#include "desktop/panel/panel_style.h"

namespace tarnvex::desktop {
namespace {

constexpr double kMarkRadius = 3;
constexpr double kGlow = 6;

QPointF onCircle(const PanelKnob& knob, double radius, double turn) {
  const double angle = turn * 2 * M_PI;
  return knob.centre + QPointF(std::sin(angle), -std::cos(angle)) * radius;
}

QColor grey(int value, int alpha = 255) {
  return {value, value + 1, value + 3, alpha};
}

void paintMarks(QPainter& painter, const PanelKnob& knob) {
  painter.setPen(Qt::NoPen);
  for (int i = 0; i < knob.marks; ++i) {
    const QPointF at = onCircle(knob, knob.ringRadius, double(i) / knob.marks);
    painter.setBrush(style::kSeat);
    painter.drawEllipse(at - QPointF(0, 0.7), kMarkRadius, kMarkRadius);
    painter.setBrush(style::kMarkDark);
    painter.drawEllipse(at, kMarkRadius, kMarkRadius);
  }
}

/// A disc that the light from above shades.
void paintDisc(QPainter& painter, QPointF centre, double radius, const QGradientStops& stops) {
  const QPointF reach(radius, radius);
  painter.setPen(Qt::NoPen);
  painter.setBrush(style::downwards({centre - reach, centre + reach}, stops));
  painter.drawEllipse(centre, radius, radius);
}

/// Draws the grip's ridges. Their number is a multiple of the number of marks, so after a turn by
/// one mark they look the same and needn't be drawn again.
void paintGrip(QPainter& painter, const PanelKnob& knob) {
  paintDisc(painter, knob.centre, knob.radius,
            {{0, grey(0x6a)}, {0.5, grey(0x36)}, {1, grey(0x1c)}});
  const int ridges = knob.marks * 5;
  painter.setPen(QPen(grey(0x10, 150), 1.1));
  for (int i = 0; i < ridges; ++i) {
    const double turn = double(i) / ridges;
    painter.drawLine(onCircle(knob, knob.radius - 5.5, turn),
                     onCircle(knob, knob.radius - 0.6, turn));
  }
}

void paintCap(QPainter& painter, const PanelKnob& knob) {
  const double radius = knob.radius - 6;
  // A bevel around the top.
  paintDisc(painter, knob.centre, radius, {{0, grey(0x8a)}, {0.5, grey(0x44)}, {1, grey(0x22)}});
  paintDisc(painter, knob.centre, radius - 1.6, {{0, grey(0x50)}, {1, grey(0x3a)}});
  // Turned metal: the light stretches into two opposite fans.
  QConicalGradient fans(knob.centre, 90);
  for (int i = 0; i < 4; ++i) {
    fans.setColorAt(i / 4.0, QColor(255, 255, 255, i % 2 == 0 ? 30 : 0));
  }
  fans.setColorAt(1, QColor(255, 255, 255, 30));
  painter.setBrush(fans);
  painter.drawEllipse(knob.centre, radius - 1.6, radius - 1.6);
}

void paintLitMark(QPainter& painter, QPointF at) {
  QRadialGradient glow(at, kGlow);
  glow.setColorAt(0, style::withAlpha(style::kAccent, 120));
  glow.setColorAt(1, style::withAlpha(style::kAccent, 0));
  painter.setPen(Qt::NoPen);
  painter.setBrush(glow);
  painter.drawEllipse(at, kGlow, kGlow);
  painter.setBrush(style::kAccent);
  painter.drawEllipse(at, kMarkRadius, kMarkRadius);
}

}  // namespace

void paintKnob(QPainter& painter, const PanelKnob& knob) {
  paintMarks(painter, knob);
  const double reach = knob.radius + 9;
  QRadialGradient shadow(knob.centre + QPointF(0, 4), reach);
  shadow.setColorAt(0, QColor(0, 0, 0, 190));
  shadow.setColorAt((knob.radius - 4) / reach, QColor(0, 0, 0, 150));
  shadow.setColorAt(1, QColor(0, 0, 0, 0));
  painter.setPen(Qt::NoPen);
  painter.setBrush(shadow);
  painter.drawEllipse(knob.centre + QPointF(0, 4), reach, reach);
  paintGrip(painter, knob);
  paintCap(painter, knob);
}

void paintKnobPosition(QPainter& painter, const PanelKnob& knob, int angleMark, int litMark) {
  const QPointF dimple = onCircle(knob, knob.radius - 22, double(angleMark) / knob.marks);
  const double radius = 10;
  paintDisc(painter, dimple, radius, {{0, grey(0x22)}, {1, grey(0x58)}});
  painter.setBrush(grey(0x36));
  painter.drawEllipse(dimple, radius - 1.4, radius - 1.4);
  if (litMark >= 0) {
    paintLitMark(painter, onCircle(knob, knob.ringRadius, double(litMark) / knob.marks));
  }
}

}  // namespace tarnvex::desktop
