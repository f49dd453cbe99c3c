#pragma once

#include <QAbstractTableModel>
#include <QAction>
#include <QTableView>

#include "memory/plan_editor.h"
#include "platform/event_gate.h"
#include "platform/table.h"

namespace tarnvex::desktop {

/// Presents a core table to a view. Row 0 of the table has the headings; the view's rows are the
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
  /// Tints a row of the core's table. 0 for none.
  void markRow(int row);

 private:
  void cellChanged(int row, int column);

  platform::Table& table_;
  int marked_ = 0;
  platform::Connection changed_;
};

/// One of the plan's two tables on the screen. Typed keys, clipboard and undo bypass the event
/// gate, since they only edit the plan. Tab leaves the table. The context menu shows the table's
/// actions; others may add to them.
class PlanTable : public QTableView {
 public:
  /// `stretched` is the column that takes the remaining width.
  PlanTable(platform::Table& table, memory::PlanEditor& editor, platform::EventGate& gate,
            int stretched, QWidget* parent);

  /// Widths of the columns in pixels, for windows that remember them. A list of another length is
  /// ignored. The stretched column and hidden columns keep their widths.
  [[nodiscard]] std::vector<int> columnWidths() const;
  void setColumnWidths(const std::vector<int>& widths);
  /// Marks the row of the current reception. 0 for none.
  void markRow(int row) { static_cast<PlanModel*>(model())->markRow(row); }

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void changeEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  void showCursor();
  [[nodiscard]] int designWidth(int column) const;
  void showColumns();
  bool typeText(const QString& text);
  template <class Act>
  QAction* addEdit(const char* name, const QString& caption, const QList<QKeySequence>& keys,
                   Act act);
  void addEditActions();
  /// The selected cells, or the one under the cursor.
  [[nodiscard]] memory::CellRange selectedCells() const;
  void copySelection() const;
  void cutSelection();
  void pasteClipboard();
  static void beepUnless(bool done);
  /// Moves a cursor that the core has left on a heading or a label into the row's cells.
  void settleCursor();

  platform::Table& table_;
  memory::PlanEditor& editor_;
  platform::EventGate& gate_;
  int stretched_;
  /// Of the last press: the view's row, and when (milliseconds).
  int pressedRow_ = -1;
  quint64 pressedAt_ = 0;
  QAction* undo_ = nullptr;
  QAction* redo_ = nullptr;
  platform::Connection cursor_;
  platform::Connection columns_;
  platform::Connection scroll_;
  platform::Connection focus_;
};

}  // namespace tarnvex::desktop
