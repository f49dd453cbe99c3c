#include "memory/plan_editor.h"

#include <algorithm>
#include <set>

#include "memory/cell_rules.h"

namespace tarnvex::memory {

using platform::Table;

namespace {

constexpr int kGroup = 10;
/// The most lines of a message. More wouldn't fit on a screen.
constexpr std::size_t kMostTold = 12;
constexpr std::size_t kLongestTold = 40;

std::vector<int> shownColumns(const Table& table, int left, int right) {
  std::vector<int> columns;
  for (int col = std::max(left, 1); col <= right; ++col) {
    if (table.colWidth(col) != 0) {
      columns.push_back(col);
    }
  }
  return columns;
}

std::vector<int> shownRows(const CellRange& cells, int bottom) {
  std::vector<int> rows;
  for (int row = cells.top; row <= bottom; ++row) {
    if (!cells.hides || !cells.hides(row)) {
      rows.push_back(row);
    }
  }
  return rows;
}

/// The field in a form that fits into a line of a message.
std::string quoted(std::string_view field) {
  std::string shown(field.substr(0, kLongestTold));
  std::ranges::replace_if(
      shown, [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
  return "\"" + shown + (field.size() > kLongestTold ? "...\"" : "\"");
}

std::string counted(std::size_t count, const char* what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

}  // namespace

/// A paste under way.
struct PlanEditor::Pasting {
  Table& table;
  PlanKind kind;
  /// A line for each field that was left out.
  std::vector<std::string> told;
  std::size_t leftOut = 0;
  /// The rows of `MSFlexGrid2` that the text marks as priority, and the groups that get a new mark.
  std::vector<int> marked;
  std::set<int> newlyMarked;
  bool changed = false;

  void leaveOut(const std::string& line) {
    ++leftOut;
    if (told.size() < kMostTold) {
      told.push_back(line);
    }
  }
  [[nodiscard]] std::optional<std::string> message() const {
    if (leftOut == 0) {
      return std::nullopt;
    }
    std::string text = "Not everything could be pasted. Left out:\n";
    for (const std::string& line : told) {
      text += "\n" + line;
    }
    return leftOut > told.size() ? text + "\nand " + std::to_string(leftOut - told.size()) + " more"
                                 : text;
  }
};

PlanKind PlanEditor::kindOf(const Table& table) const {
  return &table == &memory_.MSFlexGrid1() ? PlanKind::Channels : PlanKind::Talkgroups;
}

std::string PlanEditor::copy(const Table& table, const CellRange& cells) const {
  const auto columns = shownColumns(table, cells.left, cells.right);
  std::string text;
  for (const int row : shownRows(cells, cells.bottom)) {
    for (const int col : columns) {
      if (col != columns.front()) {
        text += '\t';
      }
      appendField(text, table.textMatrix(row, col));
    }
    text += '\n';
  }
  return text;
}

void PlanEditor::clear(Table& table, const CellRange& cells, std::string_view name) {
  const auto step = memory_.history().step(name);
  bool changed = false;
  for (const int row : shownRows(cells, cells.bottom)) {
    for (const int col : shownColumns(table, cells.left, cells.right)) {
      std::string cleared = clearedCell(kindOf(table), col);
      changed = changed || table.textMatrix(row, col) != cleared;
      table.setTextMatrix(row, col, std::move(cleared));
    }
  }
  if (changed) {
    edited();
  }
}

std::optional<std::string> PlanEditor::paste(Table& table, const CellRange& cells,
                                             std::string_view text) {
  const PlanBlock block = parseBlock(text, shownRows(cells, table.rows() - 1).size());
  const auto step = memory_.history().step("Paste");
  Pasting pasting{table, kindOf(table), {}, 0, {}, {}, false};
  if (block.rows.size() == 1 && block.rows.front().fields.size() == 1 && block.further == 0) {
    fill(pasting, cells, block.rows.front().fields.front());
  } else {
    pasteRows(pasting, cells, block);
  }
  keepOnePriority(pasting);
  if (pasting.changed) {
    edited();
  }
  return pasting.message();
}

void PlanEditor::fill(Pasting& pasting, const CellRange& cells, const std::string& field) {
  for (const int row : shownRows(cells, cells.bottom)) {
    for (const int col : shownColumns(pasting.table, cells.left, cells.right)) {
      pasteField(pasting, row, col, field);
    }
  }
}

void PlanEditor::pasteRows(Pasting& pasting, const CellRange& cells, const PlanBlock& block) {
  const Table& table = pasting.table;
  const auto columns = shownColumns(table, cells.left, table.cols() - 1);
  if (block.further > 0) {
    pasting.leaveOut(counted(block.further, "row") + " beyond row " +
                     std::to_string(table.rows() - 1));
  }
  const auto rows = shownRows(cells, table.rows() - 1);
  auto place = rows.begin();
  for (const auto& [fields, further] : block.rows) {
    const int row = *place++;
    for (std::size_t i = 0; i < std::min(fields.size(), columns.size()); ++i) {
      pasteField(pasting, row, columns[i], fields[i]);
    }
    if (const std::size_t all = fields.size() + further; all > columns.size()) {
      pasting.leaveOut("Row " + std::to_string(row) + ": " +
                       counted(all - columns.size(), "field") + " beyond the last column");
    }
  }
}

/// A field that equals the cell's text changes nothing, even if the column wouldn't accept it.
void PlanEditor::pasteField(Pasting& pasting, int row, int col, const std::string& field) {
  Table& table = pasting.table;
  const std::string& cell = table.textMatrix(row, col);
  const bool priority = pasting.kind == PlanKind::Talkgroups && col == TalkgroupRecord::Priority;
  if (field != cell) {
    auto text = cellText(pasting.kind, col, field, memory_.model().tagLimit);
    if (!text) {
      const std::string label =
          pasting.kind == PlanKind::Channels ? "" : " (" + table.textMatrix(row, 0) + ")";
      pasting.leaveOut("Row " + std::to_string(row) + label + ", " + table.textMatrix(0, col) +
                       ": " + quoted(field));
      return;
    }
    if (*text != cell) {
      pasting.changed = true;
      if (priority && *text == "X") {
        pasting.newlyMarked.insert((row - 1) / kGroup);
      }
      table.setTextMatrix(row, col, std::move(*text));
    }
  }
  if (priority && cell == "X") {
    pasting.marked.push_back(row);
  }
}

/// Keeps only the last mark of each group. A group without new marks keeps all that it has.
void PlanEditor::keepOnePriority(Pasting& pasting) {
  Table& table = pasting.table;
  for (auto row = pasting.marked.rbegin(); row != pasting.marked.rend(); ++row) {
    const int group = (*row - 1) / kGroup;
    if (pasting.newlyMarked.erase(group) == 0) {
      continue;
    }
    for (int other = group * kGroup + 1; other <= (group + 1) * kGroup; ++other) {
      if (other != *row && table.textMatrix(other, TalkgroupRecord::Priority) == "X") {
        table.setTextMatrix(other, TalkgroupRecord::Priority, "");
      }
    }
  }
}

void PlanEditor::edited() {
  memory_.state().MemoryModified = true;
  memory_.state().CellEditActive = false;
}

bool PlanEditor::show(const std::optional<PlanHistory::Place>& place) {
  if (!place) {
    return false;
  }
  memory_.state().CellEditActive = false;
  memory_.showCell(*place->table, place->row, place->col);
  return true;
}

}  // namespace tarnvex::memory
