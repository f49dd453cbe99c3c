#include "desktop/windows/readable_selection.h"

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

void makeReadable() {
  const QPalette before = QApplication::palette();
  QPalette palette = before;
  for (const auto group : {QPalette::Active, QPalette::Inactive}) {
    palette.setColor(group, QPalette::HighlightedText,
                     readableOn(before.color(group, QPalette::Highlight),
                                before.color(group, QPalette::HighlightedText)));
  }
  if (palette != before) {
    QApplication::setPalette(palette);
  }
}

}  // namespace

ReadableSelection::ReadableSelection() {
  qApp->installEventFilter(this);
  makeReadable();
}

bool ReadableSelection::eventFilter(QObject* /*watched*/, QEvent* event) {
  if (event->type() == QEvent::ApplicationPaletteChange) {
    makeReadable();
  }
  return false;
}

}  // namespace tarnvex::desktop
