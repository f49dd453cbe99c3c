#include "memory/channel_memory.h"

#include <algorithm>
#include <array>
#include <utility>

#include "link/scanner_commands.h"
#include "platform/convert.h"

namespace tarnvex::memory {

using platform::Answer;
using platform::Table;

namespace {

static_assert(ChannelRecord::kColumns ==
              std::tuple_size_v<decltype(link::RadioModel::channelHeadings)>);
static_assert(TalkgroupRecord::kColumns ==
              std::tuple_size_v<decltype(link::RadioModel::talkgroupHeadings)>);

constexpr char kFirstBank = 'A';

/// Whether the current row may be overwritten. Asks the user if the row is in use.
bool mayStore(const ChannelMemory::HitPlace& place, platform::Dialogs& dialogs) {
  if (place.table.row() < 1) {
    dialogs.messageBox(
        std::string("You must select an open cell to store this ") + place.what + ".",
        "Invalid Cell", platform::kWarning);
    return false;
  }
  return !place.occupied ||
         dialogs.askToDestroy(
             place.table.textMatrix(place.table.row(), 1) + " will be overwritten! Continue?",
             "Confirm Overwrite", platform::kYesNoQuestion) == Answer::Yes;
}

template <class Headings, class Widths>
void layOutColumns(Table& table, const Headings& headings, const Widths& widths) {
  for (int col = 0; col < table.cols(); ++col) {
    const auto at = static_cast<std::size_t>(col);
    table.setTextMatrix(0, col, std::string(headings.at(at)));
    table.setColWidth(col, widths.at(at));
  }
}

/// "Bank A: C4", counted from 0.
std::string slotName(int slot) {
  const auto bank = static_cast<char>(kFirstBank + slot / 100);
  const auto group = static_cast<char>(kFirstBank + slot / 10 % 10);
  return std::string("Bank ") + bank + ": " + group + std::to_string(slot % 10 + 1);
}

}  // namespace

ChannelMemory::ChannelMemory(MemoryControls controls, platform::SharedState& state,
                             platform::Dialogs& dialogs, const link::RadioModel& model,
                             SendCommand sendCommand)
    : grid1_(controls.MSFlexGrid1),
      grid2_(controls.MSFlexGrid2),
      tabs_(controls.SSTab1),
      state_(state),
      dialogs_(dialogs),
      model_(model),
      sendCommand_(std::move(sendCommand)),
      history_(grid1_, grid2_, state) {
  for (Table* table : {&grid1_, &grid2_}) {
    table->onKey = [this, table](char key) {
      if (GridKey(*table, key)) {
        dialogs_.beep();
      }
    };
    table->onCursorChanged = [this, table] { CursorChanged(*table, table->row()); };
  }
  grid1_.onDoubleClick = [this] { TuneToRow(grid1_.row()); };
}

ChannelMemory::~ChannelMemory() {
  for (Table* table : {&grid1_, &grid2_}) {
    table->onKey = nullptr;
    table->onCursorChanged = nullptr;
    table->onDoubleClick = nullptr;
  }
}

void ChannelMemory::layOut() {
  constexpr std::array<int, TalkgroupRecord::kColumns> kTalkgroupWidths = {1500, 1500, 3000, 500};
  layOutColumns(grid1_, model_.channelHeadings, model_.channelWidths);
  layOutColumns(grid2_, model_.talkgroupHeadings, kTalkgroupWidths);
  for (int row = 1; row <= TalkgroupRecord::kRows; ++row) {
    grid2_.setTextMatrix(row, TalkgroupRecord::Slot, slotName(row - 1));
  }
  for (int row = 1; row <= ChannelRecord::kRows; ++row) {
    grid1_.setTextMatrix(row, ChannelRecord::Number, std::to_string(row));
  }
}

void ChannelMemory::CursorChanged(Table& table, int row) {
  // Deliberate: both tables have this limit, so in rows 300 to 1000 of the talkgroups the row below
  // isn't normalised.
  constexpr int kLastRowWithNext = 300;
  state_.CellEditActive = false;
  history_.leaveCell();
  const auto normalise =
      &table == &grid1_ ? &ChannelMemory::normaliseFrequency : &ChannelMemory::normaliseId;
  // The cursor has already moved, so the edited cell is in a neighbouring row.
  (this->*normalise)(row);
  if (row > 0) {
    (this->*normalise)(row - 1);
  }
  if (row < kLastRowWithNext) {
    (this->*normalise)(row + 1);
  }
}

void ChannelMemory::normaliseFrequency(int row) {
  const std::string& text = grid1_.textMatrix(row, ChannelRecord::Frequency);
  grid1_.setTextMatrix(row, ChannelRecord::Frequency,
                       platform::format(text.empty() ? "0" : text, "##0.0000"));
}

void ChannelMemory::normaliseId(int row) {
  const std::string& text = grid2_.textMatrix(row, TalkgroupRecord::Id);
  if (text.empty()) {
    grid2_.setTextMatrix(row, TalkgroupRecord::Id, "-----");
  } else if (text.find('-') == std::string::npos) {
    grid2_.setTextMatrix(row, TalkgroupRecord::Id, platform::format(text, "000000"));
  }
}

void ChannelMemory::TuneToRow(int row) {
  sendCommand_(link::command::selectChannel(row));
}

void ChannelMemory::JumpToBank(Table& table, int bank, int group) {
  const int target = &table == &grid1_ ? bankRow(bank) : groupRow(bank, group);
  // Goes to the last row first, which normalises the cells there too.
  table.setRow(table.rows() - 1);
  table.setCol(0);
  table.setRow(target);
  table.setCol(0);
  table.setFocus();
  if (!state_.SwitchingScanners) {
    table.setCol(1);
  }
  table.scrollToTop(target);
}

void ChannelMemory::storeFrequency(int row, std::string_view line) {
  grid1_.setTextMatrix(row, ChannelRecord::Frequency, platform::mid(line, 1, 8));
  for (int col = ChannelRecord::Trunk; col <= ChannelRecord::Line; ++col) {
    grid1_.setTextMatrix(row, col, " ");
  }
  grid1_.setTextMatrix(row, ChannelRecord::Ctcss, "");
  grid1_.setTextMatrix(row, ChannelRecord::AlphaTag, "");
}

ChannelMemory::HitPlace ChannelMemory::placeOf(HitList list) {
  const bool frequency = list == HitList::Frequencies;
  Table& table = frequency ? grid1_ : grid2_;
  const std::string& cell = table.textMatrix(table.row(), 1);
  const bool blank = frequency ? cell == "0.0000" : meansNoId(cell);
  // Deliberate: the cursor doesn't advance in the lower half of the talkgroup table, on either
  // radio.
  return {table, frequency ? "Frequency" : "Talkgroup", !cell.empty() && !blank,
          frequency ? ChannelRecord::kRows : 500};
}

void ChannelMemory::StoreHit(HitList list, std::string_view line) {
  const bool frequency = list == HitList::Frequencies;
  tabs_.setTab(frequency ? 0 : 1);
  const HitPlace place = placeOf(list);
  Table& table = place.table;
  if (!mayStore(place, dialogs_)) {
    return;
  }
  const auto step = history_.step("Stored Hit");
  const int row = table.row();
  if (frequency) {
    storeFrequency(row, line);
  } else {
    table.setTextMatrix(row, TalkgroupRecord::Id, platform::mid(line, model_.hitIdStart, 6));
    table.setTextMatrix(row, TalkgroupRecord::AlphaTag, "");
  }
  if (row < place.lastRow) {
    table.setRow(row + 1);
  }
  table.setFocus();
}

void ChannelMemory::showCell(Table& table, int row, int col) {
  tabs_.setTab(&table == &grid1_ ? 0 : 1);
  // Never into a column that the window doesn't show.
  table.placeCursor(row, table.colWidth(col) == 0 ? 1 : std::max(col, 1));
  table.setFocus();
}

void ChannelMemory::clear() {
  // An empty channel is locked out. Column 0 isn't written.
  constexpr std::array<const char*, ChannelRecord::kColumns> kCleared = {"",  "0.0000", " ", " ",
                                                                         "X", " ",      "",  ""};
  for (int row = 1; row < grid1_.rows(); ++row) {
    for (int col = 1; col < grid1_.cols(); ++col) {
      grid1_.setTextMatrix(row, col, kCleared[static_cast<std::size_t>(col)]);
    }
  }
  for (int row = 1; row < grid2_.rows(); ++row) {
    for (int col = 1; col < grid2_.cols(); ++col) {
      grid2_.setTextMatrix(row, col, "");
    }
  }
}

}  // namespace tarnvex::memory
