#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "link/radio_model.h"
#include "memory/plan_history.h"
#include "memory/plan_records.h"
#include "platform/controls.h"
#include "platform/dialogs.h"
#include "platform/non_copyable.h"
#include "platform/shared_state.h"
#include "platform/table.h"

namespace tarnvex::memory {

/// The two hit lists of a main window.
enum class HitList { Frequencies, Talkgroups };

/// The parts of the main window that the plan uses. All of them must outlive the `ChannelMemory`.
struct MemoryControls {
  /// 301 rows of 8 columns.
  platform::Table& MSFlexGrid1;
  /// 1001 rows of 4 columns.
  platform::Table& MSFlexGrid2;
  platform::TabStrip& SSTab1;
};

/// The channel plan of a main window: the layout of its two tables, their editing and the moves of
/// their cursors. The tables are the only store of the plan. Other classes read and write their
/// cells.
///
/// Handles the keys, double clicks and cursor changes of both tables while it exists.
class ChannelMemory : private platform::NonCopyable {
 public:
  /// Sends a command to the radio and ignores the reply.
  using SendCommand = std::function<void(const std::string& command)>;

  ChannelMemory(MemoryControls controls, platform::SharedState& state, platform::Dialogs& dialogs,
                const link::RadioModel& model, SendCommand sendCommand);
  ~ChannelMemory();

  /// Writes headings, widths and column 0. Called when a window opens, after the last file has been
  /// read.
  void layOut();

  /// A key (a character code) was typed in a table. Returns whether to beep.
  [[nodiscard]] bool GridKey(platform::Table& table, char key);
  /// The cursor of a table has moved to `row`. Ends the edit of a cell and normalises the
  /// frequencies or IDs around the row.
  void CursorChanged(platform::Table& table, int row);
  /// Sends the radio to a memory channel.
  void TuneToRow(int row);
  /// Moves the cursor to the first row of a bank (0 to 9) and scrolls it to the top; in
  /// `MSFlexGrid2` to the first row of a group (0 to 9) of the bank. The cursor goes to column 1,
  /// or to column 0 while the main windows are being switched.
  void JumpToBank(platform::Table& table, int bank, int group = 0);
  /// Stores a line of a hit list in the current row of the list's table. Asks first if the row is
  /// in use. Deliberate: the plan isn't marked as changed, so closing the program doesn't offer to
  /// save the hit.
  void StoreHit(HitList list, std::string_view line);

  /// Where a hit list stores its hits.
  struct HitPlace {
    platform::Table& table;
    /// The word for the hit in the message.
    const char* what;
    bool occupied;
    /// The last row up to which the cursor advances after a hit.
    int lastRow;
  };
  /// Brings a table to the front and puts the cursor on a cell. Nothing is normalised.
  void showCell(platform::Table& table, int row, int col);
  /// Empties the plan. Column 0 and the cursors stay as they are.
  void clear();

  [[nodiscard]] platform::Table& MSFlexGrid1() { return grid1_; }
  [[nodiscard]] platform::Table& MSFlexGrid2() { return grid2_; }
  [[nodiscard]] platform::SharedState& state() { return state_; }
  [[nodiscard]] PlanHistory& history() { return history_; }
  [[nodiscard]] platform::Dialogs& dialogs() { return dialogs_; }
  [[nodiscard]] const link::RadioModel& model() const { return model_; }

 private:
  HitPlace placeOf(HitList list);
  void storeFrequency(int row, std::string_view line);
  [[nodiscard]] bool isFlag(const platform::Table& table) const;
  bool channelKey(char key);
  bool talkgroupKey(char key);
  void enterKey(platform::Table& table, int lastColumn, int lastRow);
  bool numberKey(platform::Table& table, char key, std::string_view accepted);
  bool tagKey(platform::Table& table, char key);
  void flagKey(char key);
  void priorityKey(char key);
  void inheritFromRowAbove();
  void makePriority();
  void normaliseFrequency(int row);
  void normaliseId(int row);

  platform::Table& grid1_;
  platform::Table& grid2_;
  platform::TabStrip& tabs_;
  platform::SharedState& state_;
  platform::Dialogs& dialogs_;
  const link::RadioModel& model_;
  SendCommand sendCommand_;
  PlanHistory history_;
};

}  // namespace tarnvex::memory
