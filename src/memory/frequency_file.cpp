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

constexpr int kFile = 1;

/// Reads the rows of a table. A row that can't be read completely isn't changed.
Failure readTable(platform::SequentialFiles& files, Table& table, std::span<std::string> fields) {
  for (int row = 1; row < table.rows(); ++row) {
    if (auto failure = files.read(kFile, fields)) {
      return failure;
    }
    for (int col = 0; col < table.cols(); ++col) {
      table.setTextMatrix(row, col, fields[static_cast<std::size_t>(col)]);
    }
  }
  return std::nullopt;
}

Failure readPlan(platform::SequentialFiles& files, ChannelMemory& memory) {
  std::array<std::string, ChannelRecord::kColumns> channel;
  std::array<std::string, TalkgroupRecord::kColumns> talkgroup;
  auto failure = readTable(files, memory.MSFlexGrid1(), channel);
  return failure ? failure : readTable(files, memory.MSFlexGrid2(), talkgroup);
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

/// The plan in the form of its file.
std::string planText(ChannelMemory& memory) {
  std::string text;
  appendRows(text, memory.MSFlexGrid1());
  appendRows(text, memory.MSFlexGrid2());
  return text;
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
    showName(path);
  };
}

Failure FrequencyFile::LoadPlanFromFile(const std::string& path) {
  auto failure = ports_.files.open(kFile, path, OpenMode::Input);
  if (!failure) {
    failure = readPlan(ports_.files, memory_);
  }
  return failure ? failure : ports_.files.close(kFile);
}

Failure FrequencyFile::WritePlanToFile(const std::string& path) {
  auto failure = ports_.files.open(kFile, path, OpenMode::Output);
  if (!failure) {
    failure = ports_.files.writeText(kFile, planText(memory_));
  }
  if (!failure) {
    failure = ports_.files.flush(kFile);
  }
  return failure ? failure : ports_.files.close(kFile);
}

Failure FrequencyFile::replace(const std::string& path) {
  std::string old;
  if (ports_.files.exists(path) && !ports_.files.contentOf(path, old) && !old.empty() &&
      old != planText(memory_)) {
    keep(path, old);
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
  keep(memory_.history().file(), planText(memory_));
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

void FrequencyFile::offerToSave() {
  if (memory_.state().MemoryModified &&
      ports_.dialogs.messageBox("Save Changes to Scanlist File?", "Save Changes",
                                platform::kYesNoQuestion) == Answer::Yes) {
    save(true);
    memory_.state().MemoryModified = false;
    memory_.history().saved();
  }
}

void FrequencyFile::prepareDialog(const char* title, const char* accept, const char* keep) {
  platform::CommonDialog& dialog = ports_.Dlg1;
  dialog.DialogTitle = title;
  dialog.AcceptCaption = accept;
  dialog.KeepCaption = keep;
  dialog.DefaultExt = "tvf";
  dialog.AsksBeforeReplacing = false;
}

/// The whole of it can be undone at once. Says what went wrong when it is over.
template <class Work>
void FrequencyFile::doInOneStep(const char* name, Work work) {
  Failure failure;
  {
    const auto step = memory_.history().step(name);
    failure = work();
  }
  if (failure) {
    report(*failure);
  }
}

void FrequencyFile::NewPlan() {
  offerToSave();
  prepareDialog("New Frequency File", "New", "Empty");
  ports_.Dlg1.ShowOpen();
  const std::string path = ports_.Dlg1.FileName;
  if (path.empty() || !mayOverwrite(path, "File exists. Overwrite it?") || !mayReplace(path)) {
    return;
  }
  doInOneStep("New", [&] {
    memory_.clear();
    Failure failure = replace(path);
    if (!failure) {
      adopt(path);
    }
    return failure;
  });
  tellBackupFailure();
}

bool FrequencyFile::mayOverwrite(const std::string& path, const std::string& question) {
  return !ports_.files.exists(path) ||
         ports_.dialogs.askToDestroy(question, "Confirm Overwrite", platform::kYesNoQuestion) ==
             Answer::Yes;
}

void FrequencyFile::OpenPlan() {
  // Deliberate: after No the plan still counts as changed, so closing the program asks again.
  offerToSave();
  prepareDialog("Open Frequency File", "Open", "Reload");
  ports_.Dlg1.DefaultExt.clear();
  ports_.Dlg1.ShowOpen();
  const std::string path = ports_.Dlg1.FileName;
  if (path.empty()) {
    return;
  }
  doInOneStep("Open", [&] {
    Failure failure = LoadPlanFromFile(path);
    if (!failure) {
      noteFingerprint(path);
      adopt(path);
      resetCursors();
    }
    return failure;
  });
}

void FrequencyFile::OpenBackup() {
  offerToSave();
  platform::CommonDialog& dialog = ports_.backupDialog;
  dialog.DialogTitle = "Open Backup";
  dialog.AcceptCaption = "Open";
  dialog.InitDir = ports_.backups.folder();
  dialog.FileName.clear();
  dialog.ShowOpen();
  if (dialog.FileName.empty()) {
    return;
  }
  doInOneStep("Open Backup", [&] {
    Failure failure = LoadPlanFromFile(dialog.FileName);
    memory_.state().MemoryModified = true;
    if (!failure) {
      resetCursors();
    }
    return failure;
  });
}

void FrequencyFile::SavePlan() {
  save(false);
}

void FrequencyFile::save(bool lastChance) {
  const auto rescue = [&] { return lastChance ? keepUnsaved() : std::string(); };
  if (!chooseSaveName() || !mayReplace(ports_.Dlg1.FileName)) {
    rescue();
    return;
  }
  const std::string path = ports_.Dlg1.FileName;
  // Deliberate: set before writing. A plan counts as saved even if saving fails.
  memory_.state().MemoryModified = false;
  memory_.history().saved();
  if (const auto failure = replace(path)) {
    report(*failure + rescue());
  } else {
    adopt(path);
  }
  tellBackupFailure();
}

/// The plan is about to be replaced. Returns the words that tell the user where its backup is.
std::string FrequencyFile::keepUnsaved() {
  std::string kept;
  const auto failure = ports_.backups.keep(memory_.history().file(), planText(memory_), kept);
  return failure ? "\n\nThe plan could not be kept as a backup either: " + *failure
                 : "\n\nThe plan is kept as a backup: " + kept;
}

bool FrequencyFile::chooseSaveName() {
  platform::CommonDialog& dialog = ports_.Dlg1;
  const std::string current = dialog.FileName;
  const bool asks = memory_.model().asksBeforeReplacing;
  prepareDialog("Save Frequency File", "Save", "Save to");
  dialog.AsksBeforeReplacing = !asks;
  bool settled = false;
  while (!settled) {
    dialog.ShowSave();
    if (dialog.FileName.empty()) {
      return false;
    }
    settled = !asks || dialog.FileName == current ||
              mayOverwrite(dialog.FileName, "Overwrite existing file?");
  }
  return true;
}

void FrequencyFile::loadLastPlan() {
  const std::string path = ports_.settings.getSetting(memory_.model().key, "LastFreqFile", "");
  ports_.Dlg1.FileName = path;
  memory_.history().setFile(path);
  showName(path);
  if (path.empty()) {
    return;
  }
  // The previous main window may have left it open.
  ports_.files.close(kFile);
  if (!LoadPlanFromFile(path)) {
    noteFingerprint(path);
  }
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
