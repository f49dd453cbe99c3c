#include "desktop/panel/panel_text.h"

#include <QFont>
#include <QFontMetricsF>
#include <QStringList>
#include <algorithm>

namespace tarnvex::desktop {
namespace {

// Font sizes are whole pixels, with hinting for each. Letters are therefore laid out at one large
// size and scaled down, so that a caption keeps its exact place at any size of the panel.
constexpr int kLayoutPixels = 64;
constexpr double kLeastTextScale = 0.75;
constexpr double kLineStep = 1.08;

QFont layoutFont(const Lettering& lettering) {
  QFont font;
  font.setFamilies({QStringLiteral("Inter"), QStringLiteral("Nimbus Sans"),
                    QStringLiteral("Liberation Sans"), QStringLiteral("Noto Sans"),
                    QStringLiteral("DejaVu Sans")});
  font.setStyleHint(QFont::SansSerif);
  font.setPixelSize(kLayoutPixels);
  font.setWeight(lettering.bold ? QFont::Bold : QFont::Medium);
  font.setHintingPreference(QFont::PreferNoHinting);
  font.setLetterSpacing(QFont::AbsoluteSpacing, lettering.spacing * kLayoutPixels);
  return font;
}

double alignedX(const QRectF& rect, double width, Qt::Alignment align) {
  return align.testFlag(Qt::AlignRight)     ? rect.right() - width
         : align.testFlag(Qt::AlignHCenter) ? rect.center().x() - width / 2
                                            : rect.left();
}

void drawLine(QPainter& painter, const QRectF& rect, double baseline, const QString& line,
              const Lettering& lettering) {
  const QFont font = layoutFont(lettering);
  const QFontMetricsF metrics(font);
  double scale = lettering.size / kLayoutPixels;
  const double trailing = lettering.spacing * kLayoutPixels;
  QString shown = line;
  double width = metrics.horizontalAdvance(shown) - trailing;
  if (width * scale > rect.width()) {
    scale *= std::max(kLeastTextScale, rect.width() / (width * scale));
    shown = metrics.elidedText(line, Qt::ElideRight, rect.width() / scale + 0.5);
    width = metrics.horizontalAdvance(shown) - trailing;
  }
  painter.save();
  painter.translate(alignedX(rect, width * scale, lettering.align), baseline);
  painter.scale(scale, scale);
  painter.setFont(font);
  painter.drawText(QPointF(0, 0), shown);
  painter.restore();
}

}  // namespace

void drawLettering(QPainter& painter, const QRectF& rect, const QString& text,
                   const Lettering& lettering) {
  const QStringList lines = text.split(QLatin1Char('\n'));
  const QFontMetricsF metrics(layoutFont(lettering));
  // Capitals are centred by their own height; descenders hang below, as on printed keys.
  const double capital = metrics.capHeight() * lettering.size / kLayoutPixels;
  const double step = lettering.size * kLineStep;
  const double block = capital + step * static_cast<double>(lines.size() - 1);
  double baseline = rect.center().y() - block / 2 + capital;
  for (const QString& line : lines) {
    drawLine(painter, rect, baseline, line, lettering);
    baseline += step;
  }
}

}  // namespace tarnvex::desktop
