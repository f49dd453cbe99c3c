#pragma once

#include <string>

#include "memory/channel_memory.h"
#include "platform/common_dialog.h"
#include "platform/dialogs.h"
#include "platform/sequential_files.h"
#include "platform/settings_store.h"
#include "platform/window.h"

namespace tarnvex::memory {

/// What the commands on frequency files need. All of it must outlive the `FrequencyFile`.
struct FrequencyFilePorts {
  platform::SequentialFiles& files;
  /// The main window's file dialog. Its `FileName` is the current file's name.
  platform::CommonDialog& Dlg1;
  platform::Dialogs& dialogs;
  platform::SettingsStore& settings;
  /// The main window, whose caption names the file.
  platform::Window& window;
};

/// The frequency file, the program's own document, and the commands on it.
///
/// The file has one line a row, 300 channels and then 1000 talkgroup slots, column 0 first, every
/// field the cell's text in double quotes; lines end in CR LF. Both radios use the same form.
///
/// Cancel in a file dialog gives the name of the file in use, and the command goes on with it; it
/// stops only if there is no name yet. A failed command leaves file number 1 open on purpose: later
/// file commands then fail with "File already open".
class FrequencyFile {
 public:
  FrequencyFile(ChannelMemory& memory, FrequencyFilePorts ports);

  /// Fills the tables from a file. Nothing is checked. Rows that were read before a failure stay;
  /// a file with fewer lines fails at the first missing field, further lines are ignored.
  platform::Failure LoadPlanFromFile(const std::string& path);
  /// On failure the old file is as it was.
  platform::Failure WritePlanToFile(const std::string& path);

  /// The menu's commands.
  void NewPlan();
  void OpenPlan();
  void SavePlan();

  /// If the plan has changes, asks whether to save them. After Yes they count as saved, whatever
  /// came of it. Also for a main window that closes.
  void offerToSave();
  /// Loads the last file as a main window opens, without a word if it can't be read.
  void loadLastPlan();

 private:
  bool chooseSaveName();
  /// Names the file in the caption and remembers it for the next start.
  void adopt(const std::string& path);
  void report(const std::string& description);
  void resetCursors();

  ChannelMemory& memory_;
  FrequencyFilePorts ports_;
};

}  // namespace tarnvex::memory
