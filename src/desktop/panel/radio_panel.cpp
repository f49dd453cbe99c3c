#include "desktop/panel/radio_panel.h"

#include <QAccessible>
#include <QFocusEvent>
#include <QHash>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <algorithm>

#include "desktop/panel/display_painter.h"
#include "desktop/panel/display_reader.h"
#include "desktop/panel/key_painter.h"
#include "desktop/panel/panel_accessible.h"
#include "desktop/panel/panel_geometry.h"
#include "desktop/panel/panel_renderer.h"

namespace tarnvex::desktop {
namespace {

constexpr int kNone = -1;
constexpr int kKnobTarget = -2;
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
  bool byKeyboard;
};

struct RadioPanel::State {
  PanelLayout layout;
  QHash<QString, int> elementByName;
  QHash<QString, int> markByName;
  FrontState front;
  QVector<Held> held;
  int focusKey = kNone;
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
  // First of the two: setting the name may already ask for the interface, and it is kept.
  installPanelAccessibility();
  setAccessibleName(layout.model);
}

RadioPanel::~RadioPanel() = default;

void RadioPanel::setElement(const QString& name, const QString& text, bool visible) {
  const auto mark = state_->markByName.constFind(name);
  if (mark != state_->markByName.constEnd()) return setMark(*mark, visible);
  const auto found = state_->elementByName.constFind(name);
  if (found == state_->elementByName.constEnd()) return;
  const DisplayElement& what = state_->layout.elements[*found];
  ElementState& element = state_->front.elements[*found];
  const ElementState wanted{hasOwnShape(what.kind) ? QString() : text, visible};
  const bool sameLook = element.lit == visible && (!visible || element.text == wanted.text);
  element = wanted;
  if (sameLook) return;
  update(renderer_->widgetRect(what.rect, kElementMargin));
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

void RadioPanel::setLive(bool live) {
  if (state_->front.live == live) return;
  state_->front.live = live;
  update(renderer_->widgetRect(state_->layout.glass, kElementMargin));
  announce();
}

QColor RadioPanel::displayColour() const {
  return state_->front.back;
}

void RadioPanel::setKeyDown(int keyIndex, bool down) {
  if (keyIndex < 0 || keyIndex >= state_->layout.keys.size()) return;
  QVector<int>& keysDown = state_->front.keysDown;
  if (keysDown.contains(keyIndex) == down) return;
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
  return state_->layout.size.toSize();
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

QPointF RadioPanel::toUnits(const QPointF& where) const {
  return renderer_->transform().inverted().map(where);
}

bool RadioPanel::press(const QPointF& where, Qt::MouseButton button) {
  const QPointF point = toUnits(where);
  const int key = keyAt(state_->layout, point);
  const int target = key == kNone && isOnKnob(state_->layout, point) ? kKnobTarget : key;
  if (target == kNone) return false;
  hold(target, button, false);
  return true;
}

void RadioPanel::hold(int target, Qt::MouseButton button, bool byKeyboard) {
  state_->held.append({target, button, byKeyboard});
  if (target == kKnobTarget) {
    emit knobPressed(button);
  } else {
    setKeyDown(target, true);
    emit keyPressed(target, button);
  }
}

void RadioPanel::release(Qt::MouseButton button, bool byKeyboard, int over) {
  QVector<Held>& held = state_->held;
  const auto found = std::find_if(held.begin(), held.end(), [button, byKeyboard](const Held& one) {
    return one.button == button && one.byKeyboard == byKeyboard;
  });
  if (found == held.end()) return;
  const int target = found->target;
  held.erase(found);
  if (target == kKnobTarget) {
    emit knobReleased(button);
    return;
  }
  const bool stillDown = std::any_of(held.begin(), held.end(),
                                     [target](const Held& one) { return one.target == target; });
  if (!stillDown) setKeyDown(target, false);
  // What a key does may close the window and the panel with it.
  const QPointer<RadioPanel> alive(this);
  emit keyReleased(target, button);
  if (alive && over == target) emit keyClicked(target, button);
}

void RadioPanel::releaseAll() {
  const QPointer<RadioPanel> alive(this);
  while (alive && !state_->held.isEmpty()) {
    const Held first = state_->held.first();
    release(first.button, first.byKeyboard, kNone);
  }
}

void RadioPanel::clickKey(int keyIndex) {
  if (keyIndex < 0 || keyIndex >= state_->layout.keys.size()) return;
  const QPointer<RadioPanel> alive(this);
  hold(keyIndex, Qt::LeftButton, true);
  if (alive) release(Qt::LeftButton, true, keyIndex);
}

void RadioPanel::mousePressEvent(QMouseEvent* event) {
  event->setAccepted(press(event->position(), event->button()));
}

void RadioPanel::mouseReleaseEvent(QMouseEvent* event) {
  release(event->button(), false, keyAt(state_->layout, toUnits(event->position())));
}

void RadioPanel::mouseDoubleClickEvent(QMouseEvent* event) {
  // The second press of a quick pair is as good a press as the first.
  if (press(event->position(), event->button())) return;
  const bool onGlass = state_->layout.glass.contains(toUnits(event->position()));
  event->setAccepted(onGlass);
  if (onGlass && event->button() == Qt::LeftButton) emit displayDoubleClicked();
}

void RadioPanel::mouseMoveEvent(QMouseEvent* event) {
  setHoverKey(event->buttons() == Qt::NoButton ? keyAt(state_->layout, toUnits(event->position()))
                                               : kNone);
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

int RadioPanel::keyboardTarget() const {
  const auto own = std::find_if(state_->held.begin(), state_->held.end(),
                                [](const Held& one) { return one.byKeyboard; });
  return own == state_->held.end() ? kNone : own->target;
}

void RadioPanel::keyPressEvent(QKeyEvent* event) {
  const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
  if (plain && isArrow(event->key()) && state_->focusKey >= 0) {
    const auto arrow = static_cast<Qt::Key>(event->key());
    setFocusKey(neighbourKey(state_->layout, state_->focusKey, arrow));
  } else if (plain && isPressKey(event->key()) && state_->focusKey >= 0) {
    if (event->isAutoRepeat() || keyboardTarget() != kNone) return;
    hold(state_->focusKey, Qt::LeftButton, true);
  } else {
    event->ignore();
  }
}

void RadioPanel::keyReleaseEvent(QKeyEvent* event) {
  const int target = keyboardTarget();
  if (!isPressKey(event->key()) || target == kNone) return event->ignore();
  if (!event->isAutoRepeat()) release(Qt::LeftButton, true, target);
}

void RadioPanel::setFocusRing(bool shown) {
  updateKey(state_->front.focusKey);
  state_->front.focusKey = shown ? state_->focusKey : kNone;
  updateKey(state_->front.focusKey);
}

// The base class would paint the whole panel again at each change of focus.
void RadioPanel::focusInEvent(QFocusEvent*) {
  setFocusRing(true);
  announceKeyFocus(this, state_->focusKey);
}

void RadioPanel::focusOutEvent(QFocusEvent*) {
  setFocusRing(false);
  if (keyboardTarget() != kNone) releaseAll();
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
