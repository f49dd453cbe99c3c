#pragma once

#include <QAbstractButton>
#include <QVector>

namespace tarnvex::desktop {

/// Makes a row of boxes one stop of the Tab key: the left and right arrow keys move within it, Home
/// and End go to its ends, and Tab returns to the box that had the focus last.
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
