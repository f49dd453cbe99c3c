#include "desktop/windows/readable_palette.h"

#include <QApplication>
#include <QEvent>

#include "desktop/panel/colour_math.h"

namespace tarnvex::desktop {
namespace {

constexpr double kReadable = 4.5;

QColor readableOn(const QColor& ground, const QColor& ink) {
  if (contrast(ground, ink) >= kReadable) {
    return ink;
  }
  return contrast(ground, Qt::black) > contrast(ground, Qt::white) ? Qt::black : Qt::white;
}

/// The first readable colour on the way from the palette's placeholders, which may be transparent,
/// to its text. They stay fainter than what is typed.
QColor placeholderOf(const QPalette& palette, QPalette::ColorGroup group) {
  const QColor ground = palette.color(group, QPalette::Base);
  const QColor text = palette.color(group, QPalette::Text);
  const QColor own = palette.color(group, QPalette::PlaceholderText);
  const QColor shown = mixed(ground, own, own.alphaF());
  for (double share = 0; share < 1; share += 0.05) {
    const QColor colour = mixed(shown, text, share);
    if (contrast(ground, colour) >= kReadable) {
      return colour;
    }
  }
  return readableOn(ground, text);
}

void makeReadable() {
  const QPalette before = QApplication::palette();
  QPalette palette = before;
  for (const auto group : {QPalette::Active, QPalette::Inactive}) {
    palette.setColor(group, QPalette::HighlightedText,
                     readableOn(before.color(group, QPalette::Highlight),
                                before.color(group, QPalette::HighlightedText)));
    palette.setColor(group, QPalette::PlaceholderText, placeholderOf(before, group));
  }
  if (palette != before) {
    QApplication::setPalette(palette);
  }
}

}  // namespace

ReadablePalette::ReadablePalette() {
  qApp->installEventFilter(this);
  makeReadable();
}

bool ReadablePalette::eventFilter(QObject* /*watched*/, QEvent* event) {
  if (event->type() == QEvent::ApplicationPaletteChange) {
    makeReadable();
  }
  return false;
}

}  // namespace tarnvex::desktop
