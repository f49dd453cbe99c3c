#include "desktop/windows/accessible_roles.h"

#include <QAccessibleWidget>
#include <QLabel>
#include <QRadioButton>

#include "desktop/windows/brief_notice.h"
#include "desktop/windows/help_window.h"
#include "desktop/windows/quick_view_window.h"

namespace tarnvex::desktop {
namespace {

/// Qt reports a radio button as a check box unless Qt itself manages its group.
class RadioAccessible : public QAccessibleWidget {
 public:
  explicit RadioAccessible(QRadioButton* button)
      : QAccessibleWidget(button, QAccessible::RadioButton), button_(button) {}

  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.checkable = true;
    state.checked = button_->isChecked();
    return state;
  }
  /// Qt would name it after the frame that it is in.
  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Name && button_->accessibleName().isEmpty()
               ? button_->text().remove(QLatin1Char('&'))
               : QAccessibleWidget::text(kind);
  }
  QStringList actionNames() const override {
    return QStringList{pressAction()} + QAccessibleWidget::actionNames();
  }
  void doAction(const QString& name) override {
    if (name == pressAction()) {
      button_->click();
    } else {
      QAccessibleWidget::doAction(name);
    }
  }

 private:
  QRadioButton* button_;
};

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object) {
  if (auto* button = qobject_cast<QRadioButton*>(object)) {
    return new RadioAccessible(button);
  }
  if (isBriefNotice(object)) {
    return new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::Notification,
                                 static_cast<QLabel*>(object)->text());
  }
  const bool isWindow = dynamic_cast<QuickViewWindow*>(object) != nullptr ||
                        dynamic_cast<HelpWindow*>(object) != nullptr;
  return isWindow ? new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::Window)
                  : nullptr;
}

}  // namespace

void installAccessibleRoles() {
  QAccessible::installFactory(makeInterface);
}

}  // namespace tarnvex::desktop
