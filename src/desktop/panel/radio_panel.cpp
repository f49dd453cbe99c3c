#include "desktop/panel/radio_panel.h"

#include <QAccessible>
#include <QFocusEvent>
#include <QHash>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "desktop/panel/display_painter.h"
#include "desktop/panel/display_reader.h"
#include "desktop/panel/key_navigation.h"
#include "desktop/panel/key_painter.h"
#include "desktop/panel/panel_accessible.h"
#include "desktop/panel/panel_renderer.h"

namespace tarnvex::desktop {
namespace {

constexpr int kNone = -1;
constexpr int kKnobTarget = -2;
constexpr double kNaturalScale = 1.0;
constexpr double kLeastScale = 0.62;

bool isPressKey(int key) {
  return key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter;
}

bool isArrow(int key) {
  return key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Up || key == Qt::Key_Down;
}

}  // namespace

/// A button that went down on a key or on the knob and has not come up yet.
struct RadioPanel::Held {
  int target;
  Qt::MouseButton button;
};

struct RadioPanel::State {
  PanelLayout layout;
  QHash<QString, int> elementByName;
  QHash<QString, int> markByName;
  FrontState front;
  QVector<Held> held;
  int focusKey = kNone;
  bool keyboardHolds = false;
  bool announcing = false;
};

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
  setAccessibleName(layout.model);
  installPanelAccessibility();
}

RadioPanel::~RadioPanel() = default;

void RadioPanel::setElement(const QString& name, const QString& text, bool visible) {
  const auto mark = state_->markByName.constFind(name);
  if (mark != state_->markByName.constEnd()) return setMark(*mark, visible);
  const auto found = state_->elementByName.constFind(name);
  if (found == state_->elementByName.constEnd()) return;
  ElementState& element = state_->front.elements[*found];
  if (element.lit == visible && element.text == text) return;
  const bool wasDark = !element.lit;
  element = {text, visible};
  if (wasDark && !visible) return;
  update(renderer_->widgetRect(state_->layout.elements[*found].rect, kElementMargin));
  announce();
}

void RadioPanel::setMark(int mark, bool lit) {
  FrontState& front = state_->front;
  const int wanted = lit ? mark : (front.litMark == mark ? kNone : front.litMark);
  if (wanted == front.litMark) return;
  front.litMark = wanted;
  if (lit) front.knobAngle = mark;
  update(knobRect());
}

void RadioPanel::setDisplayColour(QColor back) {
  if (state_->front.back == back) return;
  state_->front.back = back;
  update(renderer_->widgetRect(state_->layout.glass, kElementMargin));
}

QColor RadioPanel::displayColour() const {
  return state_->front.back;
}

void RadioPanel::setKeyDown(int keyIndex, bool down) {
  if (keyIndex < 0 || keyIndex >= state_->layout.keys.size()) return;
  showKeyDown(keyIndex, down);
}

void RadioPanel::showKeyDown(int keyIndex, bool down) {
  QVector<int>& keysDown = state_->front.keysDown;
  if (keysDown.contains(keyIndex) == down) return;
  if (down) {
    keysDown.append(keyIndex);
  } else {
    keysDown.removeAll(keyIndex);
  }
  updateKey(keyIndex);
}

void RadioPanel::clickKey(int keyIndex) {
  if (keyIndex < 0 || keyIndex >= state_->layout.keys.size()) return;
  hold(keyIndex, Qt::LeftButton);
  const QPointF inside = keyRect(keyIndex).center();
  release(Qt::LeftButton, &inside);
}

const PanelLayout& RadioPanel::layoutData() const {
  return state_->layout;
}

QString RadioPanel::displayText() const {
  return readDisplay(state_->layout, state_->front);
}

QRect RadioPanel::keyRect(int keyIndex) const {
  if (keyIndex < 0 || keyIndex >= state_->layout.keys.size()) return {};
  return renderer_->widgetRect(state_->layout.keys[keyIndex].rect, 0);
}

QRect RadioPanel::elementRect(const QString& name) const {
  const int index = state_->elementByName.value(name, kNone);
  return index < 0 ? QRect() : renderer_->widgetRect(state_->layout.elements[index].rect, 0);
}

QRect RadioPanel::knobRect() const {
  return state_->layout.knob ? renderer_->widgetRect(state_->layout.knob->area(), 0) : QRect();
}

int RadioPanel::focusKey() const {
  return state_->focusKey;
}

void RadioPanel::setFocusKey(int keyIndex) {
  if (keyIndex < 0 || keyIndex >= state_->layout.keys.size()) return;
  const bool ring = state_->front.focusKey != kNone;
  setFocusRing(false);
  state_->focusKey = keyIndex;
  setFocusRing(ring || hasFocus());
  if (hasFocus()) announceKeyFocus(this, keyIndex);
}

QSize RadioPanel::sizeHint() const {
  return (state_->layout.size * kNaturalScale).toSize();
}

QSize RadioPanel::minimumSizeHint() const {
  return (state_->layout.size * kLeastScale).toSize();
}

int RadioPanel::heightForWidth(int width) const {
  return qRound(width * state_->layout.size.height() / state_->layout.size.width());
}

bool RadioPanel::event(QEvent* event) {
  // A dialog that opens during a press swallows the release.
  if (event->type() == QEvent::WindowDeactivate) releaseAll();
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

int RadioPanel::keyAt(const QPointF& where) const {
  const QPointF units = renderer_->transform().inverted().map(where);
  const auto& keys = state_->layout.keys;
  const auto found = std::find_if(
      keys.begin(), keys.end(), [&units](const PanelKey& key) { return key.rect.contains(units); });
  return found == keys.end() ? kNone : static_cast<int>(found - keys.begin());
}

bool RadioPanel::press(const QPointF& where, Qt::MouseButton button) {
  const int key = keyAt(where);
  if (key != kNone) {
    hold(key, button);
    return true;
  }
  if (!state_->layout.knob) return false;
  const PanelKnob& knob = *state_->layout.knob;
  const QPointF way = renderer_->transform().inverted().map(where) - knob.centre;
  if (QPointF::dotProduct(way, way) > knob.ringRadius * knob.ringRadius) return false;
  hold(kKnobTarget, button);
  return true;
}

void RadioPanel::hold(int target, Qt::MouseButton button) {
  state_->held.append({target, button});
  if (target == kKnobTarget) {
    emit knobPressed(button);
  } else {
    showKeyDown(target, true);
    emit keyPressed(target, button);
  }
}

void RadioPanel::release(Qt::MouseButton button, const QPointF* where) {
  QVector<Held>& held = state_->held;
  const auto found = std::find_if(held.begin(), held.end(),
                                  [button](const Held& one) { return one.button == button; });
  if (found == held.end()) return;
  const int target = found->target;
  held.erase(found);
  if (target == kKnobTarget) {
    emit knobReleased(button);
    return;
  }
  const bool stillDown = std::any_of(held.begin(), held.end(),
                                     [target](const Held& one) { return one.target == target; });
  if (!stillDown) showKeyDown(target, false);
  emit keyReleased(target, button);
  if (where != nullptr && keyAt(*where) == target) emit keyClicked(target, button);
}

void RadioPanel::releaseAll() {
  state_->keyboardHolds = false;
  while (!state_->held.isEmpty()) release(state_->held.first().button, nullptr);
}

void RadioPanel::mousePressEvent(QMouseEvent* event) {
  event->setAccepted(press(event->position(), event->button()));
}

void RadioPanel::mouseReleaseEvent(QMouseEvent* event) {
  const QPointF where = event->position();
  release(event->button(), &where);
}

void RadioPanel::mouseDoubleClickEvent(QMouseEvent* event) {
  // The second press of a quick pair is as good a press as the first.
  if (press(event->position(), event->button())) return;
  const QPointF units = renderer_->transform().inverted().map(event->position());
  const bool onGlass = state_->layout.glass.contains(units);
  event->setAccepted(onGlass);
  if (onGlass && event->button() == Qt::LeftButton) emit displayDoubleClicked();
}

void RadioPanel::mouseMoveEvent(QMouseEvent* event) {
  setHoverKey(event->buttons() == Qt::NoButton ? keyAt(event->position()) : kNone);
  event->setAccepted(!state_->held.isEmpty());
}

void RadioPanel::leaveEvent(QEvent*) {
  setHoverKey(kNone);
}

void RadioPanel::setHoverKey(int keyIndex) {
  int& hover = state_->front.hoverKey;
  if (hover == keyIndex) return;
  updateKey(hover);
  hover = keyIndex;
  updateKey(hover);
}

void RadioPanel::updateKey(int keyIndex) {
  if (keyIndex < 0) return;
  update(renderer_->widgetRect(state_->layout.keys[keyIndex].rect, kKeyMargin));
}

void RadioPanel::keyPressEvent(QKeyEvent* event) {
  const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
  if (plain && isArrow(event->key()) && state_->focusKey >= 0) {
    const auto arrow = static_cast<Qt::Key>(event->key());
    setFocusKey(neighbourKey(state_->layout, state_->focusKey, arrow));
  } else if (plain && isPressKey(event->key()) && state_->focusKey >= 0) {
    if (event->isAutoRepeat() || state_->keyboardHolds) return;
    state_->keyboardHolds = true;
    setFocusRing(true);
    hold(state_->focusKey, Qt::LeftButton);
  } else {
    event->ignore();
  }
}

void RadioPanel::keyReleaseEvent(QKeyEvent* event) {
  if (!isPressKey(event->key()) || !state_->keyboardHolds) return event->ignore();
  if (event->isAutoRepeat()) return;
  state_->keyboardHolds = false;
  const auto& held = state_->held;
  const auto own = std::find_if(held.begin(), held.end(), [](const Held& one) {
    return one.button == Qt::LeftButton && one.target >= 0;
  });
  if (own == held.end()) return;
  const QPointF inside = keyRect(own->target).center();
  release(Qt::LeftButton, &inside);
}

void RadioPanel::setFocusRing(bool shown) {
  updateKey(state_->front.focusKey);
  state_->front.focusKey = shown ? state_->focusKey : kNone;
  updateKey(state_->front.focusKey);
}

void RadioPanel::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  setFocusRing(true);
  announceKeyFocus(this, state_->focusKey);
}

void RadioPanel::focusOutEvent(QFocusEvent* event) {
  QWidget::focusOutEvent(event);
  setFocusRing(false);
  if (state_->keyboardHolds) releaseAll();
}

void RadioPanel::hideEvent(QHideEvent* event) {
  releaseAll();
  QWidget::hideEvent(event);
}

void RadioPanel::announce() {
  // Once for all the changes of a poll; nobody to tell, nothing to do.
  if (state_->announcing || !QAccessible::isActive()) return;
  state_->announcing = true;
  QMetaObject::invokeMethod(
      this,
      [this] {
        state_->announcing = false;
        QAccessibleEvent event(this, QAccessible::DescriptionChanged);
        QAccessible::updateAccessibility(&event);
      },
      Qt::QueuedConnection);
}

}  // namespace tarnvex::desktop
