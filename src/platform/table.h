#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/controls.h"

namespace tarnvex::platform {

/// A table of text cells with a cursor. Row 0 and column 0 are fixed: they hold headings and row
/// labels, and the window layer never edits them, but the core may put the cursor there.
class Table : public Control {
 public:
  /// What `columnWidth` says of a column that keeps the width the window gives it.
  static constexpr int kDesignWidth = -1;

  Table(std::string name, int rows, int columns);

  [[nodiscard]] int rows() const { return rows_; }
  [[nodiscard]] int cols() const { return columns_; }
  [[nodiscard]] int row() const { return row_; }
  [[nodiscard]] int col() const { return col_; }
  /// Move the cursor. A row or column outside the table is refused: false, the cursor stays.
  bool setRow(int row);
  bool setCol(int col);
  /// The cell under the cursor.
  [[nodiscard]] const std::string& text() const { return textMatrix(row_, col_); }
  void setText(std::string text) { setTextMatrix(row_, col_, std::move(text)); }
  /// Adds a character to it, however long it is.
  void append(char character);
  /// A cell; the empty text outside the table.
  [[nodiscard]] const std::string& textMatrix(int row, int col) const;
  /// Writes a cell. Outside the table: false, nothing changes.
  bool setTextMatrix(int row, int col, std::string text);
  /// Width in twips (1440 an inch at 100 %), 0 hides the column, `kDesignWidth` leaves it to the
  /// window.
  [[nodiscard]] int colWidth(int col) const;
  void setColWidth(int col, int twips);

  /// Brings a row to the top of the view.
  void scrollToTop(int row) { scrollRequested.notify(row); }

  /// The user put the cursor on a cell.
  void userMoveTo(int row, int col);
  /// A key typed with the table in focus, as a character code.
  void userKey(char key);
  void userDoubleClick();

  std::function<void(char key)> onKey;
  std::function<void()> onDoubleClick;
  /// The cursor has moved, by the user or by code; the notification of the core.
  std::function<void()> onCursorChanged;
  Notifier<int, int> cellChanged;
  Notifier<> cursorMoved;
  Notifier<int> scrollRequested;

 private:
  [[nodiscard]] bool holds(int row, int col) const {
    return row >= 0 && row < rows_ && col >= 0 && col < columns_;
  }
  void moveTo(int row, int col);

  int rows_;
  int columns_;
  int row_ = 1;
  int col_ = 1;
  std::vector<std::string> cells_;
  std::vector<int> widths_;
};

}  // namespace tarnvex::platform
