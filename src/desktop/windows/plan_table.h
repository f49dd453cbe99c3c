#pragma once

#include <QAbstractTableModel>
#include <QTableView>

#include "platform/event_gate.h"
#include "platform/table.h"

namespace tarnvex::desktop {

/// Shows a core table to a view. Row 0 of the table gives the headings; the view's rows are the
/// table's rows from 1 on.
class PlanModel : public QAbstractTableModel {
 public:
  PlanModel(platform::Table& table, QObject* parent);

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;
  [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  void cellChanged(int row, int column);

  platform::Table& table_;
  platform::Connection changed_;
};

/// One of the plan's two tables on the screen. Typed keys go to the core at once, past the gate:
/// they only edit the plan. Tab leaves the table.
class PlanTable : public QTableView {
 public:
  /// `stretched` is the column that takes the room left over.
  PlanTable(platform::Table& table, platform::EventGate& gate, int stretched, QWidget* parent);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void changeEvent(QEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  void showCursor();
  void showColumns();
  bool typeText(const QString& text);
  void addEditActions();
  /// Puts the selected cells on the clipboard, tabs between the columns, a line for each row.
  void copySelection() const;
  /// Types the clipboard's characters from the cursor on. A tab goes one cell to the right, a line
  /// end to the next row, below where the pasting began. What lies beyond the table is dropped.
  void pasteClipboard();
  bool pasteIntoNextColumn();

  platform::Table& table_;
  platform::EventGate& gate_;
  int stretched_;
  platform::Connection cursor_;
  platform::Connection columns_;
  platform::Connection scroll_;
  platform::Connection focus_;
};

}  // namespace tarnvex::desktop
