#include "desktop/panel/panel_accessible.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QVector>
#include <algorithm>

#include "desktop/panel/part_accessible.h"
#include "desktop/panel/radio_panel.h"

namespace tarnvex::desktop {
namespace {

/// The panel. Its description is the display in words; its children are the keys, the knob and what
/// is announced.
class PanelAccessible : public QAccessibleWidget {
 public:
  explicit PanelAccessible(RadioPanel* panel)
      : QAccessibleWidget(panel, QAccessible::Grouping), panel_(panel) {
    for (int i = 0; i < panel->layoutData().keys.size(); ++i) {
      parts_.append(QAccessible::registerAccessibleInterface(makeKeyAccessible(panel, i)));
    }
    if (panel->layoutData().knob) {
      parts_.append(QAccessible::registerAccessibleInterface(makeKnobAccessible(panel)));
    }
    parts_.append(QAccessible::registerAccessibleInterface(makeNoticeAccessible(panel)));
  }
  Q_DISABLE_COPY_MOVE(PanelAccessible)

  [[nodiscard]] int childCount() const override { return static_cast<int>(parts_.size()); }
  [[nodiscard]] QAccessibleInterface* child(int index) const override {
    return index >= 0 && index < parts_.size() ? QAccessible::accessibleInterface(parts_[index])
                                               : nullptr;
  }
  int indexOfChild(const QAccessibleInterface* wanted) const override {
    const auto found = std::ranges::find(parts_, wanted, &QAccessible::accessibleInterface);
    return found == parts_.end() ? -1 : static_cast<int>(found - parts_.begin());
  }
  [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override {
    for (int i = 0; i < parts_.size(); ++i) {
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
    for (const QAccessible::Id id : parts_) {
      QAccessible::deleteAccessibleInterface(id);
    }
  }

 private:
  RadioPanel* panel_;
  QVector<QAccessible::Id> parts_;
};

QAccessibleInterface* makeInterface(const QString&, QObject* object) {
  auto* panel = qobject_cast<RadioPanel*>(object);
  return panel == nullptr ? nullptr : new PanelAccessible(panel);
}

void tell(QAccessibleInterface* of, QAccessible::Event what) {
  QAccessibleEvent event(of, what);
  QAccessible::updateAccessibility(&event);
}

}  // namespace

void installPanelAccessibility() {
  QAccessible::installFactory(makeInterface);
}

void announceKnob(RadioPanel* panel) {
  if (!QAccessible::isActive()) {
    return;
  }
  QAccessibleInterface* face = QAccessible::queryAccessibleInterface(panel);
  QAccessibleValueChangeEvent event(face->child(static_cast<int>(panel->layoutData().keys.size())),
                                    panel->knobMark());
  QAccessible::updateAccessibility(&event);
}

/// A screen reader speaks a notification when it is shown. The other events make it forget the
/// texts that it has kept.
void announceReception(RadioPanel* panel) {
  if (!QAccessible::isActive()) {
    return;
  }
  QAccessibleInterface* face = QAccessible::queryAccessibleInterface(panel);
  QAccessibleInterface* notice = face->child(face->childCount() - 1);
  tell(face, QAccessible::DescriptionChanged);
  tell(notice, QAccessible::ObjectHide);
  tell(notice, QAccessible::NameChanged);
  if (!panel->announcement().isEmpty()) {
    tell(notice, QAccessible::ObjectShow);
  }
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
