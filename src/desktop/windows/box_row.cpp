#include "desktop/windows/box_row.h"

#include <QKeyEvent>
#include <algorithm>
#include <optional>

namespace tarnvex::desktop {
namespace {

std::optional<qsizetype> targetOf(int key, qsizetype from, qsizetype count) {
  switch (key) {
    case Qt::Key_Left:
      return std::max<qsizetype>(from - 1, 0);
    case Qt::Key_Right:
      return std::min(from + 1, count - 1);
    case Qt::Key_Home:
      return 0;
    case Qt::Key_End:
      return count - 1;
    default:
      return std::nullopt;
  }
}

}  // namespace

BoxRow::BoxRow(QVector<QAbstractButton*> boxes, QObject* parent)
    : QObject(parent), boxes_(std::move(boxes)) {
  for (QAbstractButton* box : boxes_) {
    box->installEventFilter(this);
  }
  setStop(0);
}

void BoxRow::setStop(qsizetype index) {
  for (qsizetype i = 0; i < boxes_.size(); ++i) {
    boxes_[i]->setFocusPolicy(i == index ? Qt::StrongFocus : Qt::ClickFocus);
  }
}

bool BoxRow::eventFilter(QObject* watched, QEvent* event) {
  const auto from = std::ranges::find(boxes_, watched) - boxes_.begin();
  if (event->type() == QEvent::FocusIn) {
    setStop(from);
  } else if (event->type() == QEvent::KeyPress) {
    const auto target = targetOf(static_cast<QKeyEvent*>(event)->key(), from, boxes_.size());
    if (target) {
      boxes_[*target]->setFocus(Qt::TabFocusReason);
      return true;
    }
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace tarnvex::desktop
