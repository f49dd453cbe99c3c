#include "platform/table.h"

namespace tarnvex::platform {

Table::Table(std::string name, int rows, int columns)
    : Control(std::move(name)),
      rows_(rows),
      columns_(columns),
      cells_(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns)),
      widths_(static_cast<std::size_t>(columns), kDesignWidth) {}

bool Table::setRow(int row) {
  return moveTo(row, col_);
}

bool Table::setCol(int col) {
  return moveTo(row_, col);
}

void Table::placeCursor(int row, int col) {
  row_ = row;
  col_ = col;
  cursorMoved.notify();
}

bool Table::moveTo(int row, int col) {
  if (!holds(row, col)) {
    return false;
  }
  if (row != row_ || col != col_) {
    row_ = row;
    col_ = col;
    run(onCursorChanged);
    cursorMoved.notify();
  }
  return true;
}

const std::string& Table::textMatrix(int row, int col) const {
  static const std::string kNothing;
  return holds(row, col) ? cells_[place(row, col)] : kNothing;
}

bool Table::setTextMatrix(int row, int col, std::string text) {
  if (!holds(row, col)) {
    return false;
  }
  std::string& cell = cells_[place(row, col)];
  if (cell != text) {
    cell = std::move(text);
    cellChanged.notify(row, col);
  }
  return true;
}

void Table::append(char character) {
  cells_[place(row_, col_)] += character;
  cellChanged.notify(row_, col_);
}

int Table::colWidth(int col) const {
  return holds(0, col) ? widths_[static_cast<std::size_t>(col)] : 0;
}

void Table::setColWidth(int col, int twips) {
  if (holds(0, col)) {
    changed.change(widths_[static_cast<std::size_t>(col)], twips);
  }
}

void Table::userMoveTo(int row, int col) {
  if (holds(row, col)) {
    moveTo(row, col);
  }
}

void Table::userKey(char key) {
  if (operable() && onKey) {
    onKey(key);
  }
}

void Table::userDoubleClick() {
  if (operable() && onDoubleClick) {
    onDoubleClick();
  }
}

}  // namespace tarnvex::platform
