#include "desktop/panel/panel_renderer.h"

#include <algorithm>
#include <cmath>

#include "desktop/panel/body_painter.h"
#include "desktop/panel/colour_math.h"
#include "desktop/panel/display_painter.h"
#include "desktop/panel/key_painter.h"
#include "desktop/panel/knob_painter.h"
#include "desktop/panel/panel_style.h"

namespace tarnvex::desktop {

namespace {

/// How much is left of the glass's colour while it isn't lit, and of the contrast of the text on
/// it.
constexpr double kUnlitColour = 0.12;
constexpr double kUnlitInk = 0.66;

}  // namespace

QColor shownBack(const FrontState& state) {
  return state.live ? state.back : mixed(style::kBodyBottom, state.back, kUnlitColour);
}

QColor shownInk(const FrontState& state) {
  const QColor back = shownBack(state);
  return state.live ? inkOn(back) : mixed(back, inkOn(back), kUnlitInk);
}

PanelRenderer::PanelRenderer(const PanelLayout& layout) : layout_(layout) {}

void PanelRenderer::setGeometry(const QSize& size, double devicePixelRatio) {
  if (size == size_ && devicePixelRatio == ratio_) {
    return;
  }
  size_ = size;
  ratio_ = devicePixelRatio;
  const double scale =
      std::min(size.width() / layout_.size.width(), size.height() / layout_.size.height());
  // The origin is at whole device pixels, which keeps straight edges as sharp as the scale allows.
  const auto centred = [this, scale](double room, double used) {
    return std::floor((room - used * scale) / 2 * ratio_) / ratio_;
  };
  transform_ = QTransform::fromTranslate(centred(size.width(), layout_.size.width()),
                                         centred(size.height(), layout_.size.height()));
  transform_.scale(scale, scale);
  body_ = QPixmap();
  front_ = QPixmap();
}

QRect PanelRenderer::widgetRect(const QRectF& units, double margin) const {
  return transform_.mapRect(units.adjusted(-margin, -margin, margin, margin)).toAlignedRect();
}

QPixmap PanelRenderer::blankPicture(const QSize& size) const {
  QPixmap picture((QSizeF(size) * ratio_).toSize());
  picture.setDevicePixelRatio(ratio_);
  picture.fill(Qt::transparent);
  return picture;
}

/// Paints on a picture in the layout's units.
template <class Paint>
QPixmap PanelRenderer::painted(QPixmap picture, Paint paint) const {
  QPainter painter(&picture);
  painter.setTransform(transform_, true);
  paint(painter);
  painter.end();
  return picture;
}

void PanelRenderer::ensurePictures(const QColor& back) {
  if (body_.isNull()) {
    body_ =
        painted(blankPicture(size_), [this](QPainter& painter) { paintBody(painter, layout_); });
    front_ = QPixmap();
  }
  if (front_.isNull() || frontBack_ != back) {
    front_ = painted(body_, [&](QPainter& painter) { paintGlass(painter, layout_, back); });
    frontBack_ = back;
    ghosts_.clear();
  }
}

void PanelRenderer::paint(QPainter& painter, const QRegion& clip, const FrontState& state) {
  if (size_.isEmpty()) {
    return;
  }
  ensurePictures(shownBack(state));
  painter.drawPixmap(0, 0, front_);
  paintGhosts(painter, clip, state);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setTransform(transform_, true);
  paintElements(painter, clip, state);
  if (layout_.knob && clip.intersects(widgetRect(layout_.knob->area(), 0))) {
    paintKnobPosition(painter, *layout_.knob, state.knobAngle, state.litMark);
  }
  paintKeys(painter, clip, state);
  painter.restore();
}

void PanelRenderer::paintElements(QPainter& painter, const QRegion& clip,
                                  const FrontState& state) const {
  const QColor ink = shownInk(state);
  for (int i = 0; i < layout_.elements.size(); ++i) {
    const DisplayElement& element = layout_.elements[i];
    if (!clip.intersects(widgetRect(element.rect, kElementMargin))) {
      continue;
    }
    paintElement(painter, face_, element, state.elements[i].text, state.elements[i].lit, ink);
  }
}

void PanelRenderer::paintGhosts(QPainter& painter, const QRegion& clip, const FrontState& state) {
  for (int i = 0; i < layout_.elements.size(); ++i) {
    const DisplayElement& element = layout_.elements[i];
    const bool segments =
        element.kind == ElementKind::MainText || element.kind == ElementKind::SegmentText;
    if (segments && clip.intersects(widgetRect(element.rect, kElementMargin))) {
      paintGhost(painter, element, state.elements[i], shownInk(state));
    }
  }
}

void PanelRenderer::paintGhost(QPainter& painter, const DisplayElement& which,
                               const ElementState& state, const QColor& ink) {
  const SegmentLine line = segmentLine(face_, which, state.lit ? state.text : QString());
  const QString key = which.name + QLatin1Char(' ') + line.pattern;
  const QRect area = widgetRect(which.rect, kElementMargin);
  QPixmap& ghost = ghosts_[key];
  if (ghost.isNull()) {
    ghost = blankPicture(area.size());
    QPainter inner(&ghost);
    inner.setRenderHint(QPainter::Antialiasing);
    inner.translate(-area.topLeft());
    inner.setTransform(transform_, true);
    paintSegmentGhost(inner, which, line, ink);
  }
  painter.drawPixmap(area.topLeft(), ghost);
}

void PanelRenderer::paintKeys(QPainter& painter, const QRegion& clip,
                              const FrontState& state) const {
  for (int i = 0; i < layout_.keys.size(); ++i) {
    const KeyLook look{state.hoverKey == i, state.keysDown.contains(i), state.focusKey == i};
    const PanelKey& key = layout_.keys[i];
    if (look.atRest() || !clip.intersects(widgetRect(key.rect, kKeyMargin))) {
      continue;
    }
    paintKey(painter, layout_, key, look);
  }
}

}  // namespace tarnvex::desktop
