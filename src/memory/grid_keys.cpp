#include "memory/channel_memory.h"
#include "platform/convert.h"

namespace tarnvex::memory {

using platform::Table;

namespace {

constexpr char kBackspace = 8;
constexpr char kEnter = 13;
constexpr char kQuoteKey = '"';

void deleteLast(Table& table) {
  if (const std::string& text = table.text(); !text.empty()) {
    table.setText(text.substr(0, text.size() - 1));
  }
}

}  // namespace

bool ChannelMemory::GridKey(Table& table, char key) {
  if (key == kQuoteKey) {
    return true;  // the frequency file can't hold it
  }
  const auto act = [&] { return &table == &grid1_ ? channelKey(key) : talkgroupKey(key); };
  if (key == kEnter) {
    return act();
  }
  const auto step = isFlag(table) ? history_.step("Mark") : history_.typing(table);
  return act();
}

bool ChannelMemory::isFlag(const Table& table) const {
  return &table == &grid1_
             ? table.col() >= ChannelRecord::Trunk && table.col() <= ChannelRecord::Line
             : table.col() == TalkgroupRecord::Priority;
}

bool ChannelMemory::channelKey(char key) {
  // Deliberate: checked before the key is handled, so the first key in a cell doesn't mark the plan
  // as changed.
  state_.MemoryModified = state_.MemoryModified || state_.CellEditActive;
  if (key == kEnter) {
    enterKey(grid1_, ChannelRecord::AlphaTag, ChannelRecord::kRows);
    return false;
  }
  if (grid1_.col() == ChannelRecord::AlphaTag) {
    return tagKey(grid1_, key);
  }
  if (isFlag(grid1_)) {
    flagKey(key);
  } else if (grid1_.col() == ChannelRecord::Ctcss) {
    numberKey(grid1_, key, "0123456789.");
  } else if (grid1_.col() == ChannelRecord::Frequency && numberKey(grid1_, key, "0123456789.")) {
    inheritFromRowAbove();
  }
  return false;
}

/// Deliberate: setting a flag isn't an edit and doesn't mark the plan as changed.
void ChannelMemory::flagKey(char key) {
  if (key == 'X' || key == 'x' || key == ' ') {
    grid1_.setText(key == ' ' ? " " : "X");
  }
}

bool ChannelMemory::talkgroupKey(char key) {
  const bool marks = model_.talkgroupDirtyRule == link::DirtyRule::EveryKey ? key != kEnter
                                                                            : state_.CellEditActive;
  state_.MemoryModified = state_.MemoryModified || marks;
  if (key == kEnter) {
    enterKey(grid2_,
             model_.enterVisitsPriority ? TalkgroupRecord::Priority : TalkgroupRecord::AlphaTag,
             model_.enterLastRow);
    return false;
  }
  if (grid2_.col() == TalkgroupRecord::AlphaTag) {
    return tagKey(grid2_, key);
  }
  if (grid2_.col() == TalkgroupRecord::Id) {
    numberKey(grid2_, key, "0123456789-");
  } else if (isFlag(grid2_)) {
    priorityKey(key);
  }
  return false;
}

void ChannelMemory::enterKey(Table& table, int lastColumn, int lastRow) {
  if (table.col() < lastColumn) {
    table.setCol(table.col() + 1);
  } else {
    table.setCol(1);
    if (table.row() < lastRow) {
      table.setRow(table.row() + 1);
    }
  }
  state_.CellEditActive = false;
}

/// Appends the key to the number or starts a new one. True if the key is among the accepted
/// characters.
bool ChannelMemory::numberKey(Table& table, char key, std::string_view accepted) {
  if (key == kBackspace) {
    deleteLast(table);
    return false;
  }
  if (accepted.find(key) == std::string_view::npos) {
    return false;
  }
  table.setText((state_.CellEditActive ? table.text() : std::string()) + key);
  state_.CellEditActive = true;
  return true;
}

/// Deliberate: every key typed in a frequency copies the flags and the tone of the row above. The
/// tag is copied only into a blank cell.
void ChannelMemory::inheritFromRowAbove() {
  const int row = grid1_.row();
  if (row < 2) {
    return;
  }
  for (int col = ChannelRecord::Trunk; col <= ChannelRecord::Ctcss; ++col) {
    grid1_.setTextMatrix(row, col, grid1_.textMatrix(row - 1, col));
  }
  if (grid1_.textMatrix(row, ChannelRecord::AlphaTag).empty()) {
    grid1_.setTextMatrix(row, ChannelRecord::AlphaTag,
                         grid1_.textMatrix(row - 1, ChannelRecord::AlphaTag));
  }
}

bool ChannelMemory::tagKey(Table& table, char key) {
  if (key == kBackspace) {
    deleteLast(table);
  } else if (table.text().size() < model_.tagLimit) {
    table.append(key);
  } else {
    return true;
  }
  state_.CellEditActive = true;
  return false;
}

void ChannelMemory::priorityKey(char key) {
  if (key != 'X' && key != 'x' && key != ' ') {
    return;
  }
  grid2_.setText(key == ' ' ? " " : "X");
  state_.CellEditActive = true;
  if (key != ' ') {
    makePriority();
  }
}

/// Deliberate: moves the cursor through the group, with all effects of such a move: IDs are
/// normalised and the edit of the cell ends. At the edge of the table the cursor stays, and the
/// current cell is written.
void ChannelMemory::makePriority() {
  constexpr std::size_t kSlotNumberStart = 10;
  const int home = grid2_.row();
  int slot = 0;
  platform::assign(slot, platform::toInteger(platform::mid(
                             grid2_.textMatrix(home, TalkgroupRecord::Slot), kSlotNumberStart)));
  for (int step = 0; step < slot; ++step) {
    grid2_.setRow(grid2_.row() - 1);
  }
  grid2_.setCol(TalkgroupRecord::Priority);
  for (int i = 1; i <= 10; ++i) {
    grid2_.setRow(grid2_.row() + 1);
    grid2_.setText(i == slot ? "X" : "");
  }
  grid2_.setRow(home);
}

}  // namespace tarnvex::memory
