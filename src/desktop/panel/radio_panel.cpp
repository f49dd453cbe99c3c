#include "desktop/panel/radio_panel.h"

#include <QHelpEvent>
#include <QPainter>
#include <QTimer>
#include <QToolTip>

#include "desktop/panel/display_painter.h"
#include "desktop/panel/display_reader.h"
#include "desktop/panel/key_painter.h"
#include "desktop/panel/panel_accessible.h"
#include "desktop/panel/panel_geometry.h"
#include "desktop/panel/panel_renderer.h"
#include "desktop/panel/radio_panel_state.h"

namespace tarnvex::desktop {
namespace {

constexpr double kLeastScale = 0.62;
/// What is received is announced to screen readers after it has stayed the same for this long.
constexpr int kCalmMilliseconds = 700;

}  // namespace

RadioPanel::RadioPanel(const PanelLayout& layout, QWidget* parent)
    : QWidget(parent),
      state_(std::make_unique<State>()),
      renderer_(std::make_unique<PanelRenderer>(layout)) {
  State& state = *state_;
  state.layout = layout;
  state.front.elements.resize(layout.elements.size());
  state.front.back = layout.displayColour;
  state.focusKey = layout.keys.isEmpty() ? kNone : 0;
  for (int i = 0; i < layout.elements.size(); ++i) {
    state.elementByName.insert(layout.elements[i].name, i);
  }
  for (int i = 0; layout.knob && i < layout.knob->marks; ++i) {
    state.markByName.insert(QStringLiteral("Knob(%1)").arg(i), i);
  }
  setMouseTracking(true);
  // A click must not take the keyboard away from the page below; only Tab leads here.
  setFocusPolicy(layout.keys.isEmpty() ? Qt::NoFocus : Qt::TabFocus);
  QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
  addAnnouncements();
  // This comes first: setting the name may already ask for the interface, and Qt keeps that one.
  installPanelAccessibility();
  setAccessibleName(layout.model);
}

RadioPanel::~RadioPanel() = default;

void RadioPanel::setElement(const QString& name, const QString& text, bool visible) {
  const auto mark = state_->markByName.constFind(name);
  if (mark != state_->markByName.constEnd()) {
    return setMark(*mark, visible);
  }
  const auto found = state_->elementByName.constFind(name);
  if (found == state_->elementByName.constEnd()) {
    return;
  }
  const DisplayElement& what = state_->layout.elements[*found];
  ElementState& element = state_->front.elements[*found];
  const ElementState wanted{hasOwnShape(what.kind) ? QString() : text, visible};
  const bool sameLook = element.lit == visible && (!visible || element.text == wanted.text);
  element = wanted;
  if (sameLook) {
    return;
  }
  update(renderer_->widgetRect(what.rect, kElementMargin));
  if (!hasOwnShape(what.kind)) {
    announce();
  }
}

void RadioPanel::setMark(int mark, bool lit) {
  FrontState& front = state_->front;
  const int wanted = lit ? mark : (front.litMark == mark ? kNone : front.litMark);
  if (wanted == front.litMark) {
    return;
  }
  front.litMark = wanted;
  if (lit) {
    front.knobAngle = mark;
  }
  update(knobRect());
  if (lit) {
    announceKnob(this);
  }
}

void RadioPanel::setDisplayColour(QColor back) {
  if (std::exchange(state_->front.back, back) != back) {
    update(renderer_->widgetRect(state_->layout.glass, kElementMargin));
  }
}

void RadioPanel::setLive(bool live) {
  if (std::exchange(state_->front.live, live) != live) {
    update(renderer_->widgetRect(state_->layout.glass, kElementMargin));
    announce();
  }
}

QColor RadioPanel::displayColour() const {
  return state_->front.back;
}

void RadioPanel::setKeyDown(int keyIndex, bool down) {
  if (keyIndex < 0 || keyIndex >= state_->layout.keys.size()) {
    return;
  }
  QVector<int>& keysDown = state_->front.keysDown;
  if (keysDown.contains(keyIndex) == down) {
    return;
  }
  if (down) {
    keysDown.append(keyIndex);
  } else {
    keysDown.removeAll(keyIndex);
  }
  updateKey(keyIndex);
}

const PanelLayout& RadioPanel::layoutData() const {
  return state_->layout;
}

QString RadioPanel::announcement() const {
  return state_->announced;
}

QString RadioPanel::displayText() const {
  return readDisplay(state_->layout, state_->front);
}

QRect RadioPanel::keyRect(int keyIndex) const {
  const bool known = keyIndex >= 0 && keyIndex < state_->layout.keys.size();
  return known ? renderer_->widgetRect(state_->layout.keys[keyIndex].rect, 0) : QRect();
}

QRect RadioPanel::elementRect(const QString& name) const {
  const int index = state_->elementByName.value(name, kNone);
  return index < 0 ? QRect() : renderer_->widgetRect(state_->layout.elements[index].rect, 0);
}

QRect RadioPanel::spareRect() const {
  renderer_->setGeometry(size(), devicePixelRatioF());
  return renderer_->widgetRect(state_->layout.spare, 0);
}

QRect RadioPanel::knobRect() const {
  return state_->layout.knob ? renderer_->widgetRect(state_->layout.knob->area(), 0) : QRect();
}

int RadioPanel::knobMark() const {
  return state_->front.knobAngle;
}

int RadioPanel::focusKey() const {
  return state_->focusKey;
}

void RadioPanel::setFocusKey(int keyIndex) {
  if (keyIndex < 0 || keyIndex >= state_->layout.keys.size()) {
    return;
  }
  const bool ring = state_->front.focusKey != kNone;
  setFocusRing(false);
  state_->focusKey = keyIndex;
  setFocusRing(ring || hasFocus());
  if (hasFocus()) {
    announceKeyFocus(this, keyIndex);
  }
}

QSize RadioPanel::sizeHint() const {
  return state_->layout.size.toSize();
}

QSize RadioPanel::minimumSizeHint() const {
  return (state_->layout.size * kLeastScale).toSize();
}

int RadioPanel::heightForWidth(int width) const {
  return qRound(width * state_->layout.size.height() / state_->layout.size.width());
}

bool RadioPanel::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    const auto* help = static_cast<QHelpEvent*>(event);
    showTip(help->pos(), help->globalPos());
    return true;
  }
  // A dialog that opens during a press swallows the release.
  if (event->type() == QEvent::WindowDeactivate) {
    releaseAll();
  }
  return QWidget::event(event);
}

void RadioPanel::paintEvent(QPaintEvent* event) {
  renderer_->setGeometry(size(), devicePixelRatioF());
  QPainter painter(this);
  renderer_->paint(painter, event->region(), state_->front);
}

void RadioPanel::resizeEvent(QResizeEvent*) {
  renderer_->setGeometry(size(), devicePixelRatioF());
}

void RadioPanel::showTip(const QPoint& where, const QPoint& onScreen) {
  const QPointF point = toUnits(where);
  const int key = keyAt(state_->layout, point);
  if (key >= 0) {
    QToolTip::showText(onScreen, state_->layout.keys[key].tip, this, keyRect(key));
  } else if (isOnKnob(state_->layout, point)) {
    QToolTip::showText(onScreen, state_->layout.knob->tip, this, knobRect());
  } else {
    QToolTip::hideText();
  }
}

void RadioPanel::setHoverKey(int keyIndex) {
  int& hover = state_->front.hoverKey;
  if (hover == keyIndex) {
    return;
  }
  updateKey(hover);
  hover = keyIndex;
  updateKey(hover);
}

void RadioPanel::updateKey(int keyIndex) {
  if (keyIndex >= 0) {
    update(renderer_->widgetRect(state_->layout.keys[keyIndex].rect, kKeyMargin));
  }
}

void RadioPanel::setFocusRing(bool shown) {
  updateKey(state_->front.focusKey);
  state_->front.focusKey = shown ? state_->focusKey : kNone;
  updateKey(state_->front.focusKey);
}

void RadioPanel::addAnnouncements() {
  state_->settling = new QTimer(this);
  state_->settling->setSingleShot(true);
  state_->settling->setInterval(kCalmMilliseconds);
  connect(state_->settling, &QTimer::timeout, this, &RadioPanel::tellReception);
}

/// Announces what is received to screen readers, once it has lasted for a moment. So the
/// frequencies that a search passes aren't announced.
void RadioPanel::announce() {
  const QString received = readReception(state_->layout, state_->front);
  if (std::exchange(state_->received, received) != received) {
    state_->settling->start();
  }
}

/// While the small window is shown, the main window's panel is silent.
void RadioPanel::tellReception() {
  if (isVisible() && std::exchange(state_->announced, state_->received) != state_->received) {
    announceReception(this);
  }
}

}  // namespace tarnvex::desktop
