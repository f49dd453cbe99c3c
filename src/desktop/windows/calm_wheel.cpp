#include "desktop/windows/calm_wheel.h"

#include <QEvent>
#include <QWidget>

namespace tarnvex::desktop {
namespace {

class CalmWheel : public QObject {
 public:
  explicit CalmWheel(QWidget* widget) : QObject(widget) {
    widget->setFocusPolicy(Qt::StrongFocus);
    widget->installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Wheel && !static_cast<QWidget*>(watched)->hasFocus()) {
      event->ignore();
      return true;
    }
    return QObject::eventFilter(watched, event);
  }
};

}  // namespace

void calmWheel(QWidget* box) {
  new CalmWheel(box);
}

}  // namespace tarnvex::desktop
