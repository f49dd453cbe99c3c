#pragma once

#include <QAbstractButton>
#include <QVector>

namespace tarnvex::desktop {

/// Makes a row of boxes one stop of the Tab key: the left and right arrow keys move inside it, Home
/// and End go to its ends, and Tab comes back to the box that was left.
class BoxRow : public QObject {
 public:
  BoxRow(QVector<QAbstractButton*> boxes, QObject* parent);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void setStop(qsizetype index);

  QVector<QAbstractButton*> boxes_;
};

}  // namespace tarnvex::desktop
