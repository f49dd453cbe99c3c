#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "link/radio_model.h"
#include "memory/plan_records.h"
#include "platform/controls.h"
#include "platform/dialogs.h"
#include "platform/non_copyable.h"
#include "platform/shared_state.h"
#include "platform/table.h"

namespace tarnvex::memory {

/// The two hit lists of a main window.
enum class HitList { Frequencies, Talkgroups };

/// What the plan needs of its main window. All of it must outlive the `ChannelMemory`.
struct MemoryControls {
  /// 301 rows of 8 columns.
  platform::Table& MSFlexGrid1;
  /// 1001 rows of 4 columns.
  platform::Table& MSFlexGrid2;
  platform::TabStrip& SSTab1;
};

/// The channel plan of a main window: the rules by which its two tables are laid out, edited,
/// jumped in and written to. The tables are the only store of the plan; all others read and write
/// their cells.
///
/// While it lives, it handles the two tables' keys, double clicks and cursor changes.
class ChannelMemory : private platform::NonCopyable {
 public:
  using SendCommand = std::function<void(const std::string& command)>;

  ChannelMemory(MemoryControls controls, platform::SharedState& state, platform::Dialogs& dialogs,
                const link::RadioModel& model, SendCommand sendCommand);
  ~ChannelMemory();

  /// Writes headings, widths and column 0. Run when a window opens, after the last file was read.
  void layOut();

  /// A key (character code) typed in a table, at its cursor. Returns whether to beep.
  [[nodiscard]] bool GridKey(platform::Table& table, char key);
  /// The cursor of a table has come to `row`: ends the edit of a cell and brings the frequencies or
  /// IDs around the row into their normal form.
  void CursorChanged(platform::Table& table, int row);
  /// Sends the radio to a memory channel.
  void TuneToRow(int row);
  /// Brings the first row of a bank (0 to 9) to the top of the view, with the cursor on it; in
  /// `MSFlexGrid2` the first row of a group (0 to 9) of the bank. The cursor stands in column 1, or
  /// in column 0 while the main windows are being exchanged.
  void JumpToBank(platform::Table& table, int bank, int group = 0);
  /// Stores a line of a hit list in the row under the cursor of its table, after a question if the
  /// row is in use. Doesn't mark the plan as changed.
  void StoreHit(HitList list, std::string_view line);
  /// Empties the plan. Column 0 and the cursors stay.
  void clear();

  [[nodiscard]] platform::Table& MSFlexGrid1() { return grid1_; }
  [[nodiscard]] platform::Table& MSFlexGrid2() { return grid2_; }
  [[nodiscard]] platform::SharedState& state() { return state_; }
  [[nodiscard]] const link::RadioModel& model() const { return model_; }

 private:
  bool channelKey(char key);
  bool talkgroupKey(char key);
  void enterKey(platform::Table& table, int lastColumn, int lastRow);
  bool numberKey(platform::Table& table, char key, std::string_view accepted);
  bool tagKey(platform::Table& table, char key);
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
};

}  // namespace tarnvex::memory
