// Presses of the panel's keys and its knob by mouse and keyboard.
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QTimer>
#include <algorithm>

#include "desktop/panel/panel_accessible.h"
#include "desktop/panel/panel_geometry.h"
#include "desktop/panel/radio_panel_state.h"

namespace tarnvex::desktop {
namespace {

/// The poll looks at the knob once per tick, and a tick may take a quarter of a second.
constexpr int kKnobMilliseconds = 300;

bool isPressKey(int key) {
  return key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter;
}

bool isPageKey(int key) {
  return key == Qt::Key_PageUp || key == Qt::Key_PageDown;
}

bool isArrow(int key) {
  return key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Up || key == Qt::Key_Down;
}

}  // namespace

QPointF RadioPanel::toUnits(const QPointF& where) const {
  return renderer_->transform().inverted().map(where);
}

bool RadioPanel::press(const QPointF& where, Qt::MouseButton button) {
  const QPointF point = toUnits(where);
  const int key = keyAt(state_->layout, point);
  const int target = key == kNone && isOnKnob(state_->layout, point) ? kKnobTarget : key;
  if (target == kNone) {
    return false;
  }
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
  const auto found = std::ranges::find_if(held, [button, byKeyboard](const Held& one) {
    return one.button == button && one.byKeyboard == byKeyboard;
  });
  if (found == held.end()) {
    return;
  }
  const int target = found->target;
  held.erase(found);
  if (target == kKnobTarget) {
    emit knobReleased(button);
  } else {
    releaseKey(target, button, over == target);
  }
}

/// `click` if the button was let go over the key that it had pressed.
void RadioPanel::releaseKey(int target, Qt::MouseButton button, bool click) {
  if (std::ranges::find(state_->held, target, &Held::target) == state_->held.end()) {
    setKeyDown(target, false);
  }
  // The key's handler may close the window and destroy the panel.
  const QPointer<RadioPanel> alive(this);
  emit keyReleased(target, button);
  if (alive && click) {
    emit keyClicked(target, button);
  }
}

void RadioPanel::releaseAll() {
  const QPointer<RadioPanel> alive(this);
  while (alive && !state_->held.isEmpty()) {
    const Held first = state_->held.first();
    release(first.button, first.byKeyboard, kNone);
  }
}

void RadioPanel::clickKey(int keyIndex, Qt::MouseButton button) {
  if (keyIndex < 0 || keyIndex >= state_->layout.keys.size()) {
    return;
  }
  const QPointer<RadioPanel> alive(this);
  hold(keyIndex, button, true);
  if (alive) {
    release(button, true, keyIndex);
  }
}

/// The wheel and the page keys have no release, so a timer releases the knob.
void RadioPanel::turnKnob(Qt::MouseButton button) {
  const bool turning = std::any_of(state_->held.begin(), state_->held.end(),
                                   [](const Held& one) { return one.target == kKnobTarget; });
  if (!state_->layout.knob || turning) {
    return;
  }
  hold(kKnobTarget, button, true);
  QTimer::singleShot(kKnobMilliseconds, this, [this, button] { release(button, true, kNone); });
}

void RadioPanel::wheelEvent(QWheelEvent* event) {
  const int turn = event->angleDelta().y();
  event->setAccepted(turn != 0 && isOnKnob(state_->layout, toUnits(event->position())));
  if (event->isAccepted()) {
    turnKnob(turn > 0 ? Qt::RightButton : Qt::LeftButton);
  }
}

void RadioPanel::mousePressEvent(QMouseEvent* event) {
  event->setAccepted(press(event->position(), event->button()));
}

void RadioPanel::mouseReleaseEvent(QMouseEvent* event) {
  release(event->button(), false, keyAt(state_->layout, toUnits(event->position())));
}

void RadioPanel::mouseDoubleClickEvent(QMouseEvent* event) {
  // The second press of a double click on a key counts as a press.
  if (press(event->position(), event->button())) {
    return;
  }
  const bool onGlass = state_->layout.glass.contains(toUnits(event->position()));
  event->setAccepted(onGlass);
  if (onGlass && event->button() == Qt::LeftButton) {
    emit displayDoubleClicked();
  }
}

void RadioPanel::mouseMoveEvent(QMouseEvent* event) {
  setHoverKey(event->buttons() == Qt::NoButton ? keyAt(state_->layout, toUnits(event->position()))
                                               : kNone);
  event->setAccepted(!state_->held.isEmpty());
}

void RadioPanel::leaveEvent(QEvent*) {
  setHoverKey(kNone);
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
  } else if (plain && isPageKey(event->key()) && state_->layout.knob) {
    turnKnob(event->key() == Qt::Key_PageUp ? Qt::RightButton : Qt::LeftButton);
  } else if (plain && isPressKey(event->key()) && state_->focusKey >= 0) {
    if (event->isAutoRepeat() || keyboardTarget() != kNone) {
      return;
    }
    hold(state_->focusKey, Qt::LeftButton, true);
  } else {
    event->ignore();
  }
}

void RadioPanel::keyReleaseEvent(QKeyEvent* event) {
  const int target = keyboardTarget();
  if (!isPressKey(event->key()) || target == kNone) {
    return event->ignore();
  }
  if (!event->isAutoRepeat()) {
    release(Qt::LeftButton, true, target);
  }
}

// Doesn't call the base class, which would repaint the whole panel.
void RadioPanel::focusInEvent(QFocusEvent*) {
  setFocusRing(true);
  announceKeyFocus(this, state_->focusKey);
}

void RadioPanel::focusOutEvent(QFocusEvent*) {
  setFocusRing(false);
  if (keyboardTarget() != kNone) {
    releaseAll();
  }
}

void RadioPanel::hideEvent(QHideEvent* event) {
  releaseAll();
  QWidget::hideEvent(event);
}

}  // namespace tarnvex::desktop
