#pragma once

#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QPointer>

namespace tarnvex::desktop {

class RadioPanel;

/// What the parts of a RadioPanel have in common for assistive technology: none of them is a
/// widget. The panel's interface creates them and owns them through
/// Qt's registry. They do no harm once the panel is gone.
class PartAccessible : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  explicit PartAccessible(RadioPanel* panel);

  [[nodiscard]] bool isValid() const override;
  [[nodiscard]] QObject* object() const override { return nullptr; }
  [[nodiscard]] QWindow* window() const override;
  [[nodiscard]] QAccessibleInterface* parent() const override;
  [[nodiscard]] QAccessibleInterface* child(int) const override { return nullptr; }
  [[nodiscard]] QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  [[nodiscard]] int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  void setText(QAccessible::Text, const QString&) override {}
  [[nodiscard]] QRect rect() const override;
  [[nodiscard]] QAccessible::State state() const override;
  void* interface_cast(QAccessible::InterfaceType type) override;
  [[nodiscard]] QStringList keyBindingsForAction(const QString&) const override { return {}; }

 protected:
  /// The part's place on the panel.
  [[nodiscard]] virtual QRect place() const = 0;
  /// Only valid while `isValid`.
  [[nodiscard]] RadioPanel& panel() const { return *panel_; }

 private:
  QPointer<RadioPanel> panel_;
};

/// A key: a button with a second action, "Hold", which does the same as the right mouse button.
QAccessibleInterface* makeKeyAccessible(RadioPanel* panel, int keyIndex);

/// The knob: a slider whose value is its mark. Raising the value, by whatever amount, turns the
/// knob up by one step; lowering it turns the knob down.
QAccessibleInterface* makeKnobAccessible(RadioPanel* panel);

/// What the panel announces: a notification whose name is the announcement.
QAccessibleInterface* makeNoticeAccessible(RadioPanel* panel);

}  // namespace tarnvex::desktop
