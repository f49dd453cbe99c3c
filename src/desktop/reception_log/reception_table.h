#pragma once

#include <QStyledItemDelegate>
#include <QTableView>
#include <optional>

#include "desktop/reception_log/reception_model.h"

namespace tarnvex::desktop {

/// Draws the signal's bars and the recording's play button.
class ReceptionDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
};

/// The rows of the log on the screen.
class ReceptionTable : public QTableView {
 public:
  ReceptionTable(ReceptionModel& model, QString recordings, QWidget* parent = nullptr);

  /// Called after a double click or from the context menu.
  std::function<void(const ReceptionRow&)> onTune;
  std::function<void(const ReceptionRow&)> onStore;

  [[nodiscard]] bool isAtTop() const;

 protected:
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void sizeColumns();
  void keepCurrent();
  void restoreCurrent();
  void copy() const;
  void withCurrent(const std::function<void(const ReceptionRow&)>& act) const;
  [[nodiscard]] QString fileOf(const ReceptionRow& row) const;
  void play(const ReceptionRow& row) const;
  QMenu* makeMenu(bool recorded);

  ReceptionModel& model_;
  /// The current row before the rows were asked for again.
  std::optional<ReceptionRow> kept_;
  /// A press on a play button that isn't released yet.
  bool plays_ = false;
  /// The folder of the recordings.
  QString recordings_;
};

}  // namespace tarnvex::desktop
