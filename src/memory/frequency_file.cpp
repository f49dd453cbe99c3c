#include "memory/frequency_file.h"

#include <array>
#include <functional>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace tarnvex::memory {

using platform::Answer;
using platform::Failure;
using platform::OpenMode;
using platform::Table;

namespace {

/// Reads the rows of a table. A row that can't be read completely isn't changed.
Failure readTable(platform::SequentialFiles& files, int number, Table& table,
                  std::span<std::string> fields) {
  for (int row = 1; row < table.rows(); ++row) {
    if (auto failure = files.read(number, fields)) {
      return failure;
    }
    for (int col = 0; col < table.cols(); ++col) {
      table.setTextMatrix(row, col, fields[static_cast<std::size_t>(col)]);
    }
  }
  return std::nullopt;
}

Failure readPlan(platform::SequentialFiles& files, int number, ChannelMemory& memory) {
  std::array<std::string, ChannelRecord::kColumns> channel;
  std::array<std::string, TalkgroupRecord::kColumns> talkgroup;
  auto failure = readTable(files, number, memory.MSFlexGrid1(), channel);
  return failure ? failure : readTable(files, number, memory.MSFlexGrid2(), talkgroup);
}

void appendRows(std::string& text, const Table& table) {
  std::vector<platform::WriteField> fields;
  for (int row = 1; row < table.rows(); ++row) {
    fields.clear();
    for (int col = 0; col < table.cols(); ++col) {
      fields.emplace_back(table.textMatrix(row, col));
    }
    platform::appendLine(text, fields);
  }
}

std::size_t fingerprintOf(std::string_view content) {
  return std::hash<std::string_view>()(content);
}

}  // namespace

std::string mainTitle(const std::string& planName) {
  return "Tarnvex - " + (planName.empty() ? "Untitled" : planName);
}

FrequencyFile::FrequencyFile(ChannelMemory& memory, FrequencyFilePorts ports)
    : memory_(memory), ports_(ports) {
  for (platform::CommonDialog* dialog : {&ports_.Dlg1, &ports_.backupDialog}) {
    dialog->Filter = "Tarnvex Frequency Files(*.tvf)|*.tvf";
  }
  memory_.history().onFileChanged = [this](const std::string& path) {
    ports_.Dlg1.FileName = path;
    // So the next start opens the file that the caption names.
    adopt(path);
  };
}

Failure FrequencyFile::LoadPlanFromFile(const std::string& path) {
  auto failure = ports_.files.open(kFile, path, OpenMode::Input);
  if (!failure) {
    failure = readPlan(ports_.files, kFile, memory_);
  }
  return failure ? failure : ports_.files.close(kFile);
}

std::string FrequencyFile::planText() {
  std::string text;
  appendRows(text, memory_.MSFlexGrid1());
  appendRows(text, memory_.MSFlexGrid2());
  return text;
}

Failure FrequencyFile::load(const std::string& path) {
  auto failure = LoadPlanFromFile(path);
  if (failure) {
    known_.erase(path);
    unread_.insert(path);
  } else {
    noteFingerprint(path);
  }
  return failure;
}

Failure FrequencyFile::WritePlanToFile(const std::string& path) {
  auto failure = ports_.files.open(kFile, path, OpenMode::Output);
  if (!failure) {
    failure = ports_.files.writeText(kFile, planText());
  }
  if (!failure) {
    failure = ports_.files.flush(kFile);
  }
  return failure ? failure : ports_.files.close(kFile);
}

Failure FrequencyFile::replace(const std::string& path) {
  std::string old;
  if (ports_.files.exists(path)) {
    if (auto failure = ports_.files.contentOf(path, old)) {
      backupFailure_ = std::move(failure);
    } else if (!old.empty() && old != planText()) {
      keep(path, old);
    }
  }
  auto failure = WritePlanToFile(path);
  if (!failure) {
    noteFingerprint(path);
  }
  return failure;
}

void FrequencyFile::keep(const std::string& path, std::string_view content) {
  std::string kept;
  if (auto failure = ports_.backups.keep(path, content, kept)) {
    backupFailure_ = std::move(failure);
  }
}

void FrequencyFile::keepPlan() {
  keep(memory_.history().file(), planText());
  tellBackupFailure();
}

/// Called after the command that wanted the backup, since a failed backup never stops a command.
void FrequencyFile::tellBackupFailure() {
  const auto failure = std::exchange(backupFailure_, std::nullopt);
  if (failure && ports_.backups.firstFailure()) {
    ports_.dialogs.messageBox("The old plan could not be kept as a backup: " + *failure +
                                  ". This message won't be shown again.",
                              "Backup", platform::kWarning);
  }
}

void FrequencyFile::noteFingerprint(const std::string& path) {
  std::string content;
  known_.erase(path);
  unread_.erase(path);
  if (!ports_.files.contentOf(path, content)) {
    known_[path] = fingerprintOf(content);
  }
}

/// Whether the file may be replaced. Asks if another program has changed it since the plan was
/// read.
bool FrequencyFile::mayReplace(const std::string& path) {
  const auto known = known_.find(path);
  std::string content;
  if (known == known_.end() || !ports_.files.exists(path) ||
      ports_.files.contentOf(path, content) || fingerprintOf(content) == known->second) {
    return true;
  }
  return ports_.dialogs.askToDestroy(
             path + " was changed by another program since it was opened. Replace it?",
             "Confirm Overwrite", platform::kYesNoQuestion) == Answer::Yes;
}

/// Asks before replacing a file whose content the tables may not hold. Doesn't ask if the save will
/// fail anyway.
bool FrequencyFile::mayReplaceUnread(const std::string& path) {
  return !unread_.contains(path) || ports_.files.taken(kFile) || !ports_.files.exists(path) ||
         ports_.dialogs.askToDestroy(
             path +
                 " could not be read completely when it was opened. Replace it with the tables' "
                 "content?",
             "Confirm Overwrite", platform::kYesNoQuestion) == Answer::Yes;
}

/// Keeps a plan that the user won't be asked about again. Returns a sentence that says where it is.
std::string FrequencyFile::keepUnsaved() {
  std::string kept;
  const auto failure = ports_.backups.keep(memory_.history().file(), planText(), kept);
  return failure ? "\n\nThe plan could not be kept as a backup either: " + *failure
                 : "\n\nThe plan is kept as a backup: " + kept;
}

void FrequencyFile::loadLastPlan() {
  const std::string path = ports_.settings.getSetting(memory_.model().key, "LastFreqFile", "");
  ports_.Dlg1.FileName = path;
  memory_.history().setFile(path);
  showName(path);
  if (path.empty()) {
    return;
  }
  load(path);
  // Unlike in the commands, the file is closed even if it can't be read.
  ports_.files.close(kFile);
  resetCursors();
}

void FrequencyFile::adopt(const std::string& path) {
  memory_.history().setFile(path);
  showName(path);
  ports_.settings.saveSetting(memory_.model().key, "LastFreqFile", path);
}

void FrequencyFile::showName(const std::string& path) {
  ports_.window.setCaption(mainTitle(path));
}

void FrequencyFile::report(const std::string& description) {
  // Deliberate: "saving" even after a failed read. All three commands share the message.
  ports_.dialogs.messageBox("An error occurred while saving the file: " + description,
                            "File Error Encountered", platform::kWarning);
}

void FrequencyFile::resetCursors() {
  for (Table* table : {&memory_.MSFlexGrid1(), &memory_.MSFlexGrid2()}) {
    table->setRow(1);
    table->setCol(1);
  }
}

}  // namespace tarnvex::memory
