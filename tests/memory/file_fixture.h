#pragma once

#include <string>

#include "memory/frequency_file.h"
#include "memory_store.h"
#include "plan_fixture.h"
#include "support/fake_backups.h"
#include "support/fake_common_dialog.h"
#include "support/fake_settings.h"

namespace tarnvex::test {

inline const Box kSaveChanges{"Save Changes to Scanlist File?", "Save Changes", 36};
inline const Box kOverwriteNew{"File exists. Overwrite it?", "Confirm Overwrite", 36};
inline const Box kOverwriteSave{"Overwrite existing file?", "Confirm Overwrite", 36};

/// What a message about a failed save goes on with.
inline const std::string kKept = "\n\nThe plan is kept as a backup: ";

inline Box failed(const std::string& description) {
  return {"An error occurred while saving the file: " + description, "File Error Encountered", 48};
}

/// A plan with its file commands.
struct FileFixture : PlanFixture {
  explicit FileFixture(const link::RadioModel& model = link::bc895Model())
      : PlanFixture(model),
        file(plan, {files, Dlg1, dialogs, settings, window, backups, backupDialog}) {
    store.piece = 4096;
  }

  /// The window opens with this file.
  void startWith(const std::string& path, const std::string& content) {
    store.files[path] = content;
    settings.values[{std::string(plan.model().key), "LastFreqFile"}] = path;
    file.loadLastPlan();
  }

  MemoryStore store;
  platform::SequentialFiles files{store};
  FakeCommonDialog Dlg1;
  FakeSettings settings;
  platform::Window window{"window", "Tarnvex"};
  FakeBackups backups;
  FakeCommonDialog backupDialog;
  memory::FrequencyFile file;
};

inline std::string clearedFile() {
  std::string content;
  for (int row = 1; row <= 300; ++row) {
    content += "\"" + std::to_string(row) + "\",\"0.0000\",\" \",\" \",\"X\",\" \",\"\",\"\"\r\n";
  }
  for (const char bank : std::string("ABCDEFGHIJ")) {
    for (const char group : std::string("ABCDEFGHIJ")) {
      for (int slot = 1; slot <= 10; ++slot) {
        content += std::string("\"Bank ") + bank + ": " + group + std::to_string(slot) +
                   "\",\"\",\"\",\"\"\r\n";
      }
    }
  }
  return content;
}

inline std::string quoted(int row, int col) {
  return "\"" + std::to_string(row) + "/" + std::to_string(col) +
         (col == 2 ? ", \xE9\x80 \"" : "\"");
}

/// A file in which all fields differ, with characters beyond ASCII. The last LF is missing.
inline std::string fullFile(const std::string& lineEnd) {
  std::string content;
  for (int row = 1; row <= 1300; ++row) {
    for (int col = 0; col < (row <= 300 ? 8 : 4); ++col) {
      content += (col > 0 ? "," : "") + quoted(row, col);
    }
    content += row < 1300 || lineEnd == "\r\n" ? lineEnd : "";
  }
  return content;
}

}  // namespace tarnvex::test
