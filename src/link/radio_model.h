#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "link/scanner_commands.h"

namespace tarnvex::link {

/// Which keys in `MSFlexGrid2` mark the plan as changed.
enum class DirtyRule {
  AfterFirstKey,  ///< every key except the first in a cell, Enter included
  EveryKey,       ///< every key except Enter
};

/// All the differences between the two radios that can be expressed as data. Each main window
/// passes its radio's model to the rooms it uses. Differences in behaviour have code of their own,
/// in files named after the radio.
struct RadioModel {
  /// The radio's section of the settings, and the value of `SharedState::ModelKey`.
  std::string_view key;
  /// Names of the main window, of its boxes for the baud rate and for the bank of the talkgroup
  /// table, and of the small window.
  std::string_view mainWindow;
  std::string_view baudBox;
  std::string_view trunkBankBox;
  std::string_view quickView;
  std::string_view quickViewCaption;
  std::vector<std::string> bankNames;

  // The link.
  std::vector<std::string> baudRates;
  /// After a failed change of the baud rate, the list index to show is rate / step - 1.
  int baudStep;

  // The plan's tables. Widths are as `platform::Table` takes them.
  std::array<std::string_view, 8> channelHeadings;
  std::array<int, 8> channelWidths;
  std::array<std::string_view, 4> talkgroupHeadings;
  /// The most characters of an alpha tag that the keyboard can enter.
  std::size_t tagLimit;
  DirtyRule talkgroupDirtyRule;
  /// Whether Enter also visits the priority column of `MSFlexGrid2`, and the last row up to which
  /// it moves on to the next row.
  bool enterVisitsPriority;
  int enterLastRow;
  /// Position, from 1, of the ID in a line of the talkgroup hit list.
  std::size_t hitIdStart;
  /// Whether the plan may hold an EDACS ID in another form than the one the radio shows.
  bool convertsIds;
  /// Whether Save asks before it replaces a file other than the current one.
  bool asksBeforeReplacing;

  // Transfers.
  /// Whether the dialogs block their main window.
  bool modalDialogs;
  /// The keys that pick a bank (0 to 9) for trunked channels.
  std::string (*bankKey)(int bank);
  /// Whether an upload must set the system type of each trunked bank.
  bool asksSystemType;

  // Saved searches.
  /// The mask for `platform::format` with which limits are saved.
  std::string_view searchMask;
  /// How many searches may be saved, if there is a limit.
  std::optional<int> mostSearches;
  /// Whether the radio goes back to scanning after the user declines to search.
  bool scansAfterNo;

  // The lockout review.
  /// Modes in which the lists hold IDs instead of frequencies, when the form opens and at Done.
  std::span<const std::string_view> idModesAtLoad;
  std::span<const std::string_view> idModesAtDone;
  /// Modes to which the search key returns the radio. From all others the scan key is used.
  std::span<const std::string_view> searchKeyModes;
  /// Whether Done reads the mode after the keys that clear the list instead of before them.
  bool clearsBeforeMode;
  LockoutWords lockoutWords;
  /// Whether the lists are read entry by entry, by number, instead of in one query.
  bool numberedLockouts;
};

const RadioModel& bc895Model();
const RadioModel& bc245Model();

}  // namespace tarnvex::link
