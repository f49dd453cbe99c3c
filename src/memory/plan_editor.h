#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "memory/cell_rules.h"
#include "memory/channel_memory.h"
#include "memory/plan_block.h"

namespace tarnvex::memory {

/// A rectangle of a table's cells, borders included.
struct CellRange {
  int top;
  int left;
  int bottom;
  int right;
  /// Whether the window hides a row at the moment. Without it all rows are shown.
  std::function<bool(int row)> hides = {};
};

/// The commands on many cells of the plan: copy, cut, paste, delete, undo and redo. For the window
/// layer. Each takes effect at once and asks nothing, so it may be called while an exchange with
/// the radio waits. Rows and columns that the window doesn't show are skipped.
///
/// Values are written as they are: nothing is copied from the row above. Of the rules for typing
/// only one applies: a group of talkgroups has at most one priority ID.
class PlanEditor {
 public:
  explicit PlanEditor(ChannelMemory& memory) : memory_(memory) {}

  /// The cells as a text for the clipboard.
  [[nodiscard]] std::string copy(const platform::Table& table, const CellRange& cells) const;
  /// Clears the cells. `name` is the name of the undo step, "Delete" or "Cut".
  void clear(platform::Table& table, const CellRange& cells, std::string_view name);
  /// Writes a text of cells from the top left cell on; a single value fills all of `cells`. What
  /// doesn't fit its column or the table is left out. Returns the message that says so, if anything
  /// was left out. A zero byte in the text stands for a character that the plan can't hold.
  [[nodiscard]] std::optional<std::string> paste(platform::Table& table, const CellRange& cells,
                                                 std::string_view text);
  /// Shows that message. Unlike everything else here, it must be called through the event gate.
  void tell(const std::string& message) {
    memory_.dialogs().messageBox(message, "Paste", platform::kWarning);
  }

  [[nodiscard]] std::string undoName() const { return memory_.history().undoName(); }
  [[nodiscard]] std::string redoName() const { return memory_.history().redoName(); }
  /// Undo or redo a step, bring its table to the front and put the cursor on the step's cell. False
  /// if there is no such step.
  bool undo() { return show(memory_.history().undo()); }
  bool redo() { return show(memory_.history().redo()); }

 private:
  struct Pasting;

  [[nodiscard]] PlanKind kindOf(const platform::Table& table) const;
  void fill(Pasting& pasting, const CellRange& cells, const std::string& field);
  void pasteRows(Pasting& pasting, const CellRange& cells, const PlanBlock& block);
  void pasteField(Pasting& pasting, int row, int col, const std::string& field);
  static void keepOnePriority(Pasting& pasting);
  void edited();
  bool show(const std::optional<PlanHistory::Place>& place);

  ChannelMemory& memory_;
};

}  // namespace tarnvex::memory
