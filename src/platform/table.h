#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/controls.h"

namespace tarnvex::platform {

/// A table of text cells with a cursor. Row 0 and column 0 are fixed: they hold headings and row
/// labels. The window layer never edits them, but the core may move the cursor there.
class Table : public Control {
 public:
  /// Value of `colWidth` for a column with the window's own width.
  static constexpr int kDesignWidth = -1;

  Table(std::string name, int rows, int columns);

  [[nodiscard]] int rows() const { return rows_; }
  [[nodiscard]] int cols() const { return columns_; }
  [[nodiscard]] int row() const { return row_; }
  [[nodiscard]] int col() const { return col_; }
  /// Moves the cursor. Returns false, and the cursor stays, if the cell is outside the table.
  bool setRow(int row);
  bool setCol(int col);
  /// Puts the cursor on a cell of the table without running `onCursorChanged`, which would
  /// normalise the cells around it.
  void placeCursor(int row, int col);
  /// The cell under the cursor.
  [[nodiscard]] const std::string& text() const { return textMatrix(row_, col_); }
  void setText(std::string text) { setTextMatrix(row_, col_, std::move(text)); }
  /// Appends a character to the cell under the cursor, however long its text is.
  void append(char character);
  /// The text of a cell. Empty outside the table.
  [[nodiscard]] const std::string& textMatrix(int row, int col) const;
  /// Writes a cell. Outside the table it returns false and changes nothing.
  bool setTextMatrix(int row, int col, std::string text);
  /// Width in twips (1440 per inch at 100 %). 0 hides the column, `kDesignWidth` leaves the width
  /// to the window.
  [[nodiscard]] int colWidth(int col) const;
  void setColWidth(int col, int twips);

  /// Scrolls so that the row is at the top of the view.
  void scrollToTop(int row) { scrollRequested.notify(row); }

  /// The user moved the cursor to a cell.
  void userMoveTo(int row, int col);
  /// The user typed a key in the table, given as a character code.
  void userKey(char key);
  void userDoubleClick();

  std::function<void(char key)> onKey;
  std::function<void()> onDoubleClick;
  /// Runs after each move of the cursor, by the user or by the program. For the core only; windows
  /// use `cursorMoved`.
  std::function<void()> onCursorChanged;
  Notifier<int, int> cellChanged;
  Notifier<> cursorMoved;
  Notifier<int> scrollRequested;

 private:
  [[nodiscard]] bool holds(int row, int col) const {
    return row >= 0 && row < rows_ && col >= 0 && col < columns_;
  }
  [[nodiscard]] std::size_t place(int row, int col) const {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) +
           static_cast<std::size_t>(col);
  }
  /// False if there is no such cell.
  bool moveTo(int row, int col);

  int rows_;
  int columns_;
  int row_ = 1;
  int col_ = 1;
  std::vector<std::string> cells_;
  std::vector<int> widths_;
};

}  // namespace tarnvex::platform
