#include "desktop/windows/outline_style.h"

#include <QApplication>
#include <QStyleOption>
#include <algorithm>
#include <array>

#include "desktop/panel/colour_math.h"

namespace tarnvex::desktop {
namespace {

/// The contrast to reach. More than 3, since the style lightens some outlines, and since it draws
/// check boxes and radio buttons with soft edges.
constexpr double kContrast = 3.6;
constexpr double kIndicatorContrast = 4.6;
/// The most palettes to keep. A window has a handful.
constexpr qsizetype kKept = 64;

constexpr std::array kPrimitives = {QStyle::PE_Frame, QStyle::PE_FrameLineEdit,
                                    QStyle::PE_PanelLineEdit, QStyle::PE_PanelButtonCommand,
                                    QStyle::PE_PanelButtonTool};
constexpr std::array kIndicators = {QStyle::PE_IndicatorCheckBox, QStyle::PE_IndicatorRadioButton,
                                    QStyle::PE_IndicatorItemViewItemCheck};

/// What controls lie on: the style draws the pages of a tab widget lighter than the window.
std::array<QColor, 3> groundsOf(const QPalette& palette) {
  const QColor window = palette.color(QPalette::Active, QPalette::Window);
  return {window, window.lighter(135), palette.color(QPalette::Active, QPalette::Base)};
}

/// The first colour on the way from `from` to the text's that is shown with enough contrast.
template <class Shown>
QColor onTheWay(const QColor& from, const QPalette& palette, double wanted, Shown shown) {
  const auto grounds = groundsOf(palette);
  const QColor ink = palette.color(QPalette::Active, QPalette::WindowText);
  for (double share = 0; share < 1; share += 0.05) {
    const QColor colour = mixed(from, ink, share);
    if (std::ranges::all_of(grounds, [&](const QColor& ground) {
          return contrast(shown(colour), ground) >= wanted;
        })) {
      return colour;
    }
  }
  return ink;
}

/// The colours that the style makes of the window's for an outline, and of the highlight's for one
/// with the focus.
QColor outlineOf(const QColor& window) {
  return window.darker(140);
}

QColor focusedOutlineOf(const QColor& highlight) {
  constexpr int kBrightest = 160;
  QColor outline = highlight.darker(125);
  if (outline.value() > kBrightest) {
    outline.setHsl(outline.hue(), outline.saturation(), kBrightest);
  }
  return outline;
}

QPalette makeStrong(const QPalette& palette, double wanted) {
  QPalette strong = palette;
  for (const auto group : {QPalette::Active, QPalette::Inactive}) {
    strong.setColor(group, QPalette::Window,
                    onTheWay(palette.color(group, QPalette::Window), palette, wanted, outlineOf));
    strong.setColor(
        group, QPalette::Highlight,
        onTheWay(palette.color(group, QPalette::Highlight), palette, wanted, focusedOutlineOf));
  }
  return strong;
}

}  // namespace

/// Lends a palette to an option while a control is drawn.
class OutlineStyle::Lent {
 public:
  Lent(const QStyleOption* option, const QPalette& palette)
      : option_(const_cast<QStyleOption*>(option)), before_(option->palette) {
    option_->palette = palette;
    option_->palette.setCurrentColorGroup(before_.currentColorGroup());
  }
  ~Lent() { option_->palette = before_; }
  Q_DISABLE_COPY_MOVE(Lent)

 private:
  QStyleOption* option_;
  QPalette before_;
};

OutlineStyle::OutlineStyle() : QProxyStyle(QStringLiteral("fusion")) {}

QPalette OutlineStyle::strong(const QPalette& palette, bool indicator) const {
  if (own_.contains(palette.cacheKey())) {
    return palette;
  }
  if (own_.size() > kKept) {
    strong_.clear();
    own_.clear();
  }
  QPalette& made = strong_[{palette.cacheKey(), indicator}];
  if (!own_.contains(made.cacheKey())) {
    made = makeStrong(palette, indicator ? kIndicatorContrast : kContrast);
    own_.insert(made.cacheKey());
  }
  return made;
}

void OutlineStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                 QPainter* painter, const QWidget* widget) const {
  const bool indicator = std::ranges::find(kIndicators, element) != kIndicators.end();
  const bool known = std::ranges::find(kPrimitives, element) != kPrimitives.end();
  const Lent lent(option,
                  indicator || known ? strong(option->palette, indicator) : option->palette);
  QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void OutlineStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                      QPainter* painter, const QWidget* widget) const {
  const bool known = control == CC_ComboBox || control == CC_SpinBox;
  const Lent lent(option, known ? strong(option->palette, false) : option->palette);
  QProxyStyle::drawComplexControl(control, option, painter, widget);
}

void installOutlines() {
  if (QApplication::style()->name() == QLatin1String("fusion")) {
    QApplication::setStyle(new OutlineStyle);
  }
}

}  // namespace tarnvex::desktop
