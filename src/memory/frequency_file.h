#pragma once

#include <cstddef>
#include <map>
#include <string>

#include "memory/channel_memory.h"
#include "platform/backups.h"
#include "platform/common_dialog.h"
#include "platform/dialogs.h"
#include "platform/sequential_files.h"
#include "platform/settings_store.h"
#include "platform/window.h"

namespace tarnvex::memory {

/// Title of a main window: the program's name and the full name of the frequency file, which is
/// empty if there is none.
std::string mainTitle(const std::string& planName);

/// What the file commands use. All of it must outlive the `FrequencyFile`.
struct FrequencyFilePorts {
  platform::SequentialFiles& files;
  /// The main window's file dialog. `FileName` is the name of the current file.
  platform::CommonDialog& Dlg1;
  platform::Dialogs& dialogs;
  platform::SettingsStore& settings;
  /// The main window. Its caption names the file.
  platform::Window& window;
  platform::Backups& backups;
  /// The file dialog of "Open Backup...".
  platform::CommonDialog& backupDialog;
};

/// The frequency file, which stores the plan, and the commands on it.
///
/// The file has a line for each row, first 300 channels and then 1000 talkgroup slots. Fields are
/// the texts of the cells from column 0 on, in double quotes. Lines end in CR LF. Both radios use
/// the same format.
///
/// Before a file is replaced by other bytes, the old ones are kept as a backup. A file that another
/// program has changed since it was opened is replaced only after a question.
///
/// Deliberate: if the user cancels a file dialog, the command goes on with the current file; it
/// stops only if there is none yet. A failed command leaves file number 1 open, so later file
/// commands of this window fail with "File already open". The next window frees it.
class FrequencyFile {
 public:
  FrequencyFile(ChannelMemory& memory, FrequencyFilePorts ports);

  /// Fills the tables from a file. Nothing is checked. Rows read before a failure stay. A file with
  /// too few lines fails at the first missing field; extra lines are ignored.
  platform::Failure LoadPlanFromFile(const std::string& path);
  /// Writes the tables to a file. On failure the old file is as it was.
  platform::Failure WritePlanToFile(const std::string& path);

  /// The menu commands.
  void NewPlan();
  void OpenPlan();
  void SavePlan();
  /// "Open Backup...": puts a backup in the plan's place, as Open does. The plan still belongs to
  /// its file and counts as changed, so that the next save restores the file.
  void OpenBackup();

  /// Keeps the plan as a backup, before a download writes over its rows.
  void keepPlan();

  /// Asks whether to save the plan if it has changes. After Yes it counts as saved, even if saving
  /// failed; the plan is then kept as a backup. Also called when a main window closes.
  void offerToSave();
  /// Loads the last file when a main window opens. Shows no message if it can't be read.
  void loadLastPlan();

 private:
  /// What is known of a file's bytes: a hash of them, as they were when the plan was read from it
  /// or written to it.
  using Fingerprint = std::size_t;

  void prepareDialog(const char* title, const char* accept, const char* keep);
  bool chooseSaveName();
  bool mayReplace(const std::string& path);
  /// Writes the plan after a backup of what the file holds.
  platform::Failure replace(const std::string& path);
  void keep(const std::string& path, std::string_view content);
  void tellBackupFailure();
  void save(bool lastChance);
  std::string keepUnsaved();
  void noteFingerprint(const std::string& path);
  /// Shows the file's name in the caption and remembers it for the next start.
  void adopt(const std::string& path);
  void showName(const std::string& path);
  void report(const std::string& description);
  void resetCursors();

  ChannelMemory& memory_;
  FrequencyFilePorts ports_;
  std::map<std::string, Fingerprint> known_;
  /// Of a backup, until the user is told.
  platform::Failure backupFailure_;
};

}  // namespace tarnvex::memory
