#include "desktop/panel/display_painter.h"

#include <QLinearGradient>
#include <QRadialGradient>
#include <algorithm>

#include "desktop/panel/panel_style.h"
#include "desktop/panel/panel_text.h"

namespace tarnvex::desktop {
namespace {

constexpr int kGhostAlpha = 15;
constexpr double kGlassRadius = 4;
// A long line is first made narrower, then smaller.
constexpr double kNarrowest = 0.74;

Lettering wordLettering(const DisplayElement& element) {
  Lettering lettering;
  lettering.bold = true;
  lettering.align = element.align;
  lettering.size = element.rect.height() * (element.kind == ElementKind::BankLetter ? 0.8 : 0.78);
  if (element.kind == ElementKind::Text) {
    lettering.size = element.rect.height() * 0.86;
  }
  return lettering;
}

/// Draws words, letters, bars and marks, whose shapes don't depend on a text.
void paintFixed(QPainter& painter, const DisplayElement& element, const QColor& ink) {
  if (element.kind == ElementKind::Bar || element.kind == ElementKind::Mark) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    painter.drawRoundedRect(element.rect, 1, 1);
    return;
  }
  painter.setPen(ink);
  drawLettering(painter, element.rect, element.ghost, wordLettering(element));
}

void paintShade(QPainter& painter, const QRectF& glass) {
  // The frame is higher than the glass and casts a narrow shadow on its upper edge.
  QLinearGradient shade(glass.topLeft(), glass.topLeft() + QPointF(0, 9));
  shade.setColorAt(0, QColor(0, 0, 0, 70));
  shade.setColorAt(0.4, QColor(0, 0, 0, 18));
  shade.setColorAt(1, QColor(0, 0, 0, 0));
  painter.setBrush(shade);
  painter.drawRoundedRect(glass, kGlassRadius, kGlassRadius);
}

}  // namespace

QColor inkOn(const QColor& back) {
  const double luminance = 0.2126 * back.redF() + 0.7152 * back.greenF() + 0.0722 * back.blueF();
  return luminance < 0.3 ? style::kInkLight : style::kInkDark;
}

void paintGlass(QPainter& painter, const PanelLayout& layout, const QColor& back) {
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF& glass = layout.glass;
  QRadialGradient light(glass.center(), glass.width() * 0.62);
  light.setColorAt(0, back);
  light.setColorAt(0.55, back.darker(103));
  light.setColorAt(1, back.darker(116));
  painter.setPen(Qt::NoPen);
  painter.setBrush(light);
  painter.drawRoundedRect(glass, kGlassRadius, kGlassRadius);
  paintShade(painter, glass);
  const QColor ghost = style::withAlpha(inkOn(back), kGhostAlpha);
  for (const DisplayElement& element : layout.elements) {
    if (hasOwnShape(element.kind)) {
      paintFixed(painter, element, ghost);
    }
  }
}

void paintElement(QPainter& painter, const SegmentFace& face, const DisplayElement& element,
                  const QString& text, bool lit, const QColor& ink) {
  if (hasOwnShape(element.kind)) {
    if (lit) {
      paintFixed(painter, element, ink);
    }
    return;
  }
  if (!lit || text.isEmpty()) {
    return;
  }
  if (element.kind == ElementKind::Text || !face.canShow(text)) {
    painter.setPen(ink);
    drawLettering(painter, element.rect, text, wordLettering(element));
    return;
  }
  const SegmentLine line = segmentLine(face, element, text);
  painter.save();
  painter.setTransform(segmentPlace(element, line), true);
  for (const QPainterPath& shape : line.lit) {
    painter.fillPath(shape, ink);
  }
  painter.restore();
}

SegmentLine segmentLine(const SegmentFace& face, const DisplayElement& element,
                        const QString& text) {
  const bool toRight = element.align.testFlag(Qt::AlignRight);
  return face.line(face.canShow(text) ? text : QString(), element.ghost, toRight);
}

QTransform segmentPlace(const DisplayElement& element, const SegmentLine& line) {
  const QRectF& rect = element.rect;
  const double fit = std::min(1.0, rect.width() / (line.width * rect.height()));
  const double narrow = std::max(fit, kNarrowest);
  const double height = rect.height() * fit / narrow;
  const double width = line.width * height * narrow;
  const bool toRight = element.align.testFlag(Qt::AlignRight);
  QTransform place = QTransform::fromTranslate(toRight ? rect.right() - width : rect.left(),
                                               rect.center().y() - height / 2);
  return place.scale(height * narrow, height);
}

void paintSegmentGhost(QPainter& painter, const DisplayElement& element, const SegmentLine& line,
                       const QColor& ink) {
  painter.save();
  painter.setTransform(segmentPlace(element, line), true);
  for (const QPainterPath& shape : line.unlit) {
    painter.fillPath(shape, style::withAlpha(ink, kGhostAlpha));
  }
  painter.restore();
}

}  // namespace tarnvex::desktop
