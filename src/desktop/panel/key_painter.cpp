#include "desktop/panel/key_painter.h"

#include <QHash>
#include <QLinearGradient>
#include <cmath>

#include "desktop/panel/panel_style.h"
#include "desktop/panel/panel_text.h"

namespace tarnvex::desktop {
namespace {

constexpr double kCorner = 5;
constexpr double kTravel = 1.2;

struct Face {
  QColor top;
  QColor bottom;
};

Face faceOf(KeyTone tone) {
  switch (tone) {
    case KeyTone::Digit:
      return {style::kDigitTop, style::kDigitBottom};
    case KeyTone::Quiet:
      return {style::kQuietTop, style::kQuietBottom};
    case KeyTone::Function:
    case KeyTone::Bank:
      break;
  }
  return {style::kKeyTop, style::kKeyBottom};
}

/// The light from above catches the upper edge and fades down the sides.
void paintRim(QPainter& painter, const QRectF& rect) {
  const QGradientStops fading = {{0, style::withAlpha(style::kLight, 70)},
                                 {0.35, style::withAlpha(style::kLight, 10)},
                                 {1, style::withAlpha(style::kLight, 0)}};
  painter.setPen(QPen(style::downwards(rect, fading), 1));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(rect.adjusted(0.5, 0.5, -0.5, -0.5), kCorner - 0.5, kCorner - 0.5);
}

void paintFace(QPainter& painter, const QRectF& rect, const PanelKey& key, const KeyLook& look) {
  Face face = faceOf(key.tone);
  if (look.hover) {
    face = {face.top.lighter(116), face.bottom.lighter(116)};
  }
  if (look.down) {
    face = {face.bottom.darker(118), face.bottom.darker(104)};
  }
  painter.setPen(Qt::NoPen);
  painter.setBrush(style::downwards(rect, {{0, face.top}, {1, face.bottom}}));
  painter.drawRoundedRect(rect, kCorner, kCorner);
  if (!look.down) {
    paintRim(painter, rect);
  }
}

void paintLamp(QPainter& painter, const QPointF& centre, double size) {
  painter.setPen(QPen(style::kPrint, size * 0.09, Qt::SolidLine, Qt::RoundCap));
  painter.setBrush(Qt::NoBrush);
  painter.drawEllipse(centre, size * 0.2, size * 0.2);
  for (int i = 0; i < 8; ++i) {
    const double angle = i * M_PI / 4;
    const QPointF ray(std::cos(angle), std::sin(angle));
    painter.drawLine(centre + ray * size * 0.34, centre + ray * size * 0.48);
  }
}

double letterScale(const PanelKey& key) {
  static const QHash<KeyTone, double> kScales = {
      {KeyTone::Digit, 1.7}, {KeyTone::Bank, 1.2}, {KeyTone::Quiet, 0.9}};
  return kScales.value(key.tone, 1) * (key.label.contains(QLatin1Char('\n')) ? 0.85 : 1);
}

void paintLabel(QPainter& painter, const QRectF& rect, const PanelLayout& layout,
                const PanelKey& key) {
  if (key.icon == KeyIcon::Light) {
    paintLamp(painter, rect.center(), layout.keyLetters * 1.7);
    return;
  }
  Lettering lettering;
  lettering.bold = true;
  lettering.size = layout.keyLetters * letterScale(key);
  painter.setPen(key.tone == KeyTone::Quiet ? style::kPrint : style::kKeyPrint);
  drawLettering(painter, rect.adjusted(3, 0, -3, 0), key.label, lettering);
}

void paintFocus(QPainter& painter, const QRectF& around) {
  painter.setPen(QPen(style::kAccent, 2));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(around, kCorner + 2, kCorner + 2);
}

}  // namespace

void paintKey(QPainter& painter, const PanelLayout& layout, const PanelKey& key,
              const KeyLook& look) {
  // The seat covers the key's previous look, so that a pressed key can be drawn lower.
  painter.setPen(Qt::NoPen);
  painter.setBrush(style::kSeat);
  painter.drawRoundedRect(key.rect.adjusted(-1.5, -1.5, 1.5, 2.2), kCorner + 1.5, kCorner + 1.5);
  const QRectF rect = look.down ? key.rect.translated(0, kTravel) : key.rect;
  paintFace(painter, rect, key, look);
  paintLabel(painter, rect, layout, key);
  if (look.focus) {
    paintFocus(painter, key.rect.adjusted(-2, -2, 2, 2));
  }
}

}  // namespace tarnvex::desktop
