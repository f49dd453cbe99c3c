#include "desktop/panel/part_accessible.h"

#include "desktop/panel/radio_panel.h"

namespace tarnvex::desktop {

PartAccessible::PartAccessible(RadioPanel* panel) : panel_(panel) {}

bool PartAccessible::isValid() const {
  return !panel_.isNull();
}

QWindow* PartAccessible::window() const {
  return isValid() ? panel_->window()->windowHandle() : nullptr;
}

QAccessibleInterface* PartAccessible::parent() const {
  return isValid() ? QAccessible::queryAccessibleInterface(panel_) : nullptr;
}

QRect PartAccessible::rect() const {
  return isValid() ? QRect(panel_->mapToGlobal(place().topLeft()), place().size()) : QRect();
}

QAccessible::State PartAccessible::state() const {
  QAccessible::State state;
  state.invalid = !isValid();
  state.invisible = !isValid() || !panel_->isVisible();
  return state;
}

void* PartAccessible::interface_cast(QAccessible::InterfaceType type) {
  return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                              : nullptr;
}

namespace {

class KeyAccessible : public PartAccessible {
 public:
  KeyAccessible(RadioPanel* panel, int index) : PartAccessible(panel), index_(index) {}

  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    if (!isValid()) {
      return {};
    }
    const PanelKey& key = panel().layoutData().keys[index_];
    if (kind == QAccessible::Description) {
      return key.tip;
    }
    return kind == QAccessible::Name ? key.spoken : QString();
  }
  [[nodiscard]] QAccessible::Role role() const override { return QAccessible::Button; }
  [[nodiscard]] QAccessible::State state() const override {
    QAccessible::State state = PartAccessible::state();
    state.focusable = isValid();
    state.focused = isValid() && panel().hasFocus() && panel().focusKey() == index_;
    return state;
  }

  [[nodiscard]] QStringList actionNames() const override {
    return {pressAction(), holdAction(), setFocusAction()};
  }
  [[nodiscard]] QString localizedActionName(const QString& name) const override {
    return name == holdAction() ? QObject::tr("Hold")
                                : QAccessibleActionInterface::localizedActionName(name);
  }
  void doAction(const QString& name) override {
    if (!isValid()) {
      return;
    }
    if (name == setFocusAction()) {
      panel().setFocus(Qt::OtherFocusReason);
      panel().setFocusKey(index_);
    } else if (name == pressAction()) {
      panel().clickKey(index_);
    } else if (name == holdAction()) {
      panel().clickKey(index_, Qt::RightButton);
    }
  }

 protected:
  [[nodiscard]] QRect place() const override { return panel().keyRect(index_); }

 private:
  static QString holdAction() { return QStringLiteral("Hold"); }

  int index_;
};

class KnobAccessible : public PartAccessible, public QAccessibleValueInterface {
 public:
  using PartAccessible::PartAccessible;

  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    switch (isValid() ? kind : QAccessible::UserText) {
      case QAccessible::Name:
        return QObject::tr("Knob");
      case QAccessible::Description:
        return panel().layoutData().knob->tip;
      case QAccessible::Value:
        return currentValue().toString();
      default:
        return {};
    }
  }
  [[nodiscard]] QAccessible::Role role() const override { return QAccessible::Slider; }
  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface*>(this)
                                               : PartAccessible::interface_cast(type);
  }

  [[nodiscard]] QStringList actionNames() const override {
    return {increaseAction(), decreaseAction()};
  }
  void doAction(const QString& name) override {
    if (isValid() && actionNames().contains(name)) {
      panel().turnKnob(name == increaseAction() ? Qt::RightButton : Qt::LeftButton);
    }
  }

  [[nodiscard]] QVariant currentValue() const override {
    return isValid() ? panel().knobMark() : 0;
  }
  void setCurrentValue(const QVariant& value) override {
    if (value.toDouble() != currentValue().toDouble()) {
      doAction(value.toDouble() > currentValue().toDouble() ? increaseAction() : decreaseAction());
    }
  }
  [[nodiscard]] QVariant maximumValue() const override {
    return isValid() ? panel().layoutData().knob->marks - 1 : 0;
  }
  [[nodiscard]] QVariant minimumValue() const override { return 0; }
  [[nodiscard]] QVariant minimumStepSize() const override { return 1; }

 protected:
  [[nodiscard]] QRect place() const override { return panel().knobRect(); }
};

class NoticeAccessible : public PartAccessible {
 public:
  using PartAccessible::PartAccessible;

  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    return isValid() && kind == QAccessible::Name ? panel().announcement() : QString();
  }
  [[nodiscard]] QAccessible::Role role() const override { return QAccessible::Notification; }
  [[nodiscard]] QAccessible::State state() const override {
    QAccessible::State state = PartAccessible::state();
    state.invisible = state.invisible || panel().announcement().isEmpty();
    return state;
  }
  void* interface_cast(QAccessible::InterfaceType /*type*/) override { return nullptr; }

  [[nodiscard]] QStringList actionNames() const override { return {}; }
  void doAction(const QString& /*name*/) override {}

 protected:
  [[nodiscard]] QRect place() const override { return {}; }
};

}  // namespace

QAccessibleInterface* makeNoticeAccessible(RadioPanel* panel) {
  return new NoticeAccessible(panel);
}

QAccessibleInterface* makeKeyAccessible(RadioPanel* panel, int keyIndex) {
  return new KeyAccessible(panel, keyIndex);
}

QAccessibleInterface* makeKnobAccessible(RadioPanel* panel) {
  return new KnobAccessible(panel);
}

}  // namespace tarnvex::desktop
