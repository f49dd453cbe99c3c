#pragma once

#include <cstddef>
#include <map>
#include <set>
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
/// The file has a line for each row, first 300 channels and then 1000 talkgroup slots. The fields
/// are the texts of the cells from column 0 on, in double quotes. Lines end in CR LF. Both radios
/// use the same format.
///
/// Before a save changes a file, the old content is kept as a backup. The user is asked first if
/// another program has changed the file since it was opened, or if it could not be read to its end,
/// since the tables then hold only a part of it, or nothing.
///
/// Deliberate: if the user cancels a file dialog, the command goes on with the current file; it
/// stops only if there is none yet. A failed command leaves file number 1 open, so later file
/// commands of this window fail with "File already open". The next main window has its own numbers.
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
  /// "Open Backup...": replaces the plan by a backup, as Open does. The plan still belongs to its
  /// file and counts as changed, so that the next save restores the file.
  void OpenBackup();

  /// Keeps the plan as a backup. Called before a download overwrites its rows.
  void keepPlan();

  /// Asks whether to save the plan if it has changes. After Yes it counts as saved, even if saving
  /// failed; the plan is then kept as a backup.
  void offerToSave() { offerToSave(SaveOccasion::BeforeReplacing); }
  /// The same when the main window closes. What isn't saved then is kept as a backup, and the user
  /// is told where, unless the answer was No.
  void offerToSaveAtExit() { offerToSave(SaveOccasion::Exit); }
  /// Loads the last file when a main window opens. Shows no message if it can't be read.
  void loadLastPlan();

 private:
  /// A hash of a file's content when the plan was last read from it or written to it.
  using Fingerprint = std::size_t;

  static constexpr int kFile = 1;

  /// The plan in the form of its file.
  [[nodiscard]] std::string planText();
  void prepareDialog(const char* title, const char* accept, const char* keep);
  /// Runs `work`, which returns its failure, as one step of undo. The command reports the failure
  /// afterwards, so that the step isn't open while the user reads the message.
  template <class Work>
  platform::Failure doInOneStep(const char* name, Work work);
  /// The commands' way to read a plan.
  platform::Failure load(const std::string& path);
  bool chooseSaveName();
  bool mayReplace(const std::string& path);
  bool mayReplaceUnread(const std::string& path);
  /// Makes a backup of the file's content and then writes the plan to it.
  platform::Failure replace(const std::string& path);
  void keep(const std::string& path, std::string_view content);
  void tellBackupFailure();
  /// What a save is for, and so what becomes of a plan that isn't saved.
  enum class SaveOccasion { Command, BeforeReplacing, Exit };
  void offerToSave(SaveOccasion occasion);
  void save(SaveOccasion occasion);
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
  /// Files that could not be read to their end when they were last opened.
  std::set<std::string> unread_;
  /// A failed backup that the user hasn't been told about yet.
  platform::Failure backupFailure_;
};

}  // namespace tarnvex::memory
