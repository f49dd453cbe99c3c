#include "desktop/panel/panel_accessible.h"

#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QAccessibleWidget>
#include <QPointer>
#include <QVector>

#include "desktop/panel/radio_panel.h"

namespace tarnvex::desktop {
namespace {

/// One key of the panel, as a button.
class KeyAccessible : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  KeyAccessible(RadioPanel* panel, int index) : panel_(panel), index_(index) {}

  [[nodiscard]] bool isValid() const override { return !panel_.isNull(); }
  [[nodiscard]] QObject* object() const override { return nullptr; }
  [[nodiscard]] QWindow* window() const override {
    return isValid() ? panel_->window()->windowHandle() : nullptr;
  }
  [[nodiscard]] QAccessibleInterface* parent() const override {
    return isValid() ? QAccessible::queryAccessibleInterface(panel_) : nullptr;
  }
  [[nodiscard]] QAccessibleInterface* child(int) const override { return nullptr; }
  [[nodiscard]] QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  [[nodiscard]] int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }

  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    if (!isValid()) {
      return {};
    }
    const PanelKey& key = panel_->layoutData().keys[index_];
    if (kind == QAccessible::Description) {
      return key.tip;
    }
    return kind == QAccessible::Name ? key.spoken : QString();
  }
  void setText(QAccessible::Text, const QString&) override {}
  [[nodiscard]] QRect rect() const override {
    if (!isValid()) {
      return {};
    }
    const QRect key = panel_->keyRect(index_);
    return {panel_->mapToGlobal(key.topLeft()), key.size()};
  }
  [[nodiscard]] QAccessible::Role role() const override { return QAccessible::Button; }
  [[nodiscard]] QAccessible::State state() const override {
    QAccessible::State state;
    if (!isValid()) {
      state.invalid = true;
      return state;
    }
    state.focusable = true;
    state.focused = panel_->hasFocus() && panel_->focusKey() == index_;
    state.invisible = !panel_->isVisible();
    return state;
  }
  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type != QAccessible::ActionInterface) {
      return nullptr;
    }
    return static_cast<QAccessibleActionInterface*>(this);
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
      panel_->setFocus(Qt::OtherFocusReason);
      panel_->setFocusKey(index_);
    } else if (name == pressAction()) {
      panel_->clickKey(index_);
    } else if (name == holdAction()) {
      panel_->clickKey(index_, Qt::RightButton);
    }
  }
  [[nodiscard]] QStringList keyBindingsForAction(const QString&) const override { return {}; }

 private:
  /// What the right mouse button does.
  static QString holdAction() { return QStringLiteral("Hold"); }

  QPointer<RadioPanel> panel_;
  int index_;
};

/// The panel: its description reads the display, its children are the keys.
class PanelAccessible : public QAccessibleWidget {
 public:
  explicit PanelAccessible(RadioPanel* panel)
      : QAccessibleWidget(panel, QAccessible::Grouping), panel_(panel) {
    for (int i = 0; i < panel->layoutData().keys.size(); ++i) {
      keys_.append(QAccessible::registerAccessibleInterface(new KeyAccessible(panel, i)));
    }
  }
  PanelAccessible(const PanelAccessible&) = delete;
  PanelAccessible& operator=(const PanelAccessible&) = delete;
  PanelAccessible(PanelAccessible&&) = delete;
  PanelAccessible& operator=(PanelAccessible&&) = delete;

  [[nodiscard]] int childCount() const override { return static_cast<int>(keys_.size()); }
  [[nodiscard]] QAccessibleInterface* child(int index) const override {
    return index >= 0 && index < keys_.size() ? QAccessible::accessibleInterface(keys_[index])
                                              : nullptr;
  }
  int indexOfChild(const QAccessibleInterface* wanted) const override {
    for (int i = 0; i < keys_.size(); ++i) {
      if (QAccessible::accessibleInterface(keys_[i]) == wanted) {
        return i;
      }
    }
    return -1;
  }
  [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override {
    for (int i = 0; i < keys_.size(); ++i) {
      if (child(i)->rect().contains(x, y)) {
        return child(i);
      }
    }
    return nullptr;
  }
  [[nodiscard]] QAccessibleInterface* focusChild() const override {
    return panel_->hasFocus() ? child(panel_->focusKey()) : nullptr;
  }
  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Description ? panel_->displayText() : QAccessibleWidget::text(kind);
  }

 protected:
  ~PanelAccessible() override {
    for (const QAccessible::Id id : keys_) {
      QAccessible::deleteAccessibleInterface(id);
    }
  }

 private:
  RadioPanel* panel_;
  QVector<QAccessible::Id> keys_;
};

QAccessibleInterface* makeInterface(const QString&, QObject* object) {
  auto* panel = qobject_cast<RadioPanel*>(object);
  return panel == nullptr ? nullptr : new PanelAccessible(panel);
}

}  // namespace

void installPanelAccessibility() {
  QAccessible::installFactory(makeInterface);
}

void announceKeyFocus(RadioPanel* panel, int keyIndex) {
  if (!QAccessible::isActive() || keyIndex < 0) {
    return;
  }
  QAccessibleEvent event(panel, QAccessible::Focus);
  event.setChild(keyIndex);
  QAccessible::updateAccessibility(&event);
}

}  // namespace tarnvex::desktop
