#include "platform/table.h"

namespace tarnvex::platform {

Table::Table(std::string name, int rows, int columns)
    : Control(std::move(name)),
      rows_(rows),
      columns_(columns),
      cells_(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns)),
      widths_(static_cast<std::size_t>(columns), kDesignWidth) {}

bool Table::setRow(int row) {
  if (!holds(row, col_)) {
    return false;
  }
  moveTo(row, col_);
  return true;
}

bool Table::setCol(int col) {
  if (!holds(row_, col)) {
    return false;
  }
  moveTo(row_, col);
  return true;
}

void Table::placeCursor(int row, int col) {
  row_ = row;
  col_ = col;
  cursorMoved.notify();
}

void Table::moveTo(int row, int col) {
  if (row == row_ && col == col_) {
    return;
  }
  row_ = row;
  col_ = col;
  if (onCursorChanged) {
    onCursorChanged();
  }
  cursorMoved.notify();
}

const std::string& Table::textMatrix(int row, int col) const {
  static const std::string kNothing;
  return holds(row, col) ? cells_[static_cast<std::size_t>(row * columns_ + col)] : kNothing;
}

bool Table::setTextMatrix(int row, int col, std::string text) {
  if (!holds(row, col)) {
    return false;
  }
  std::string& cell = cells_[static_cast<std::size_t>(row * columns_ + col)];
  if (cell != text) {
    cell = std::move(text);
    cellChanged.notify(row, col);
  }
  return true;
}

void Table::append(char character) {
  cells_[static_cast<std::size_t>(row_ * columns_ + col_)] += character;
  cellChanged.notify(row_, col_);
}

int Table::colWidth(int col) const {
  return holds(0, col) ? widths_[static_cast<std::size_t>(col)] : 0;
}

void Table::setColWidth(int col, int twips) {
  if (holds(0, col) && colWidth(col) != twips) {
    widths_[static_cast<std::size_t>(col)] = twips;
    changed.notify();
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
