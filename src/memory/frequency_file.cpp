#include "memory/frequency_file.h"

#include <array>
#include <span>
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

Failure writeTable(platform::SequentialFiles& files, const Table& table) {
  std::vector<platform::WriteField> fields;
  for (int row = 1; row < table.rows(); ++row) {
    fields.clear();
    for (int col = 0; col < table.cols(); ++col) {
      fields.emplace_back(table.textMatrix(row, col));
    }
    if (auto failure = files.write(kFile, fields)) {
      return failure;
    }
  }
  return std::nullopt;
}

Failure writePlan(platform::SequentialFiles& files, ChannelMemory& memory) {
  auto failure = writeTable(files, memory.MSFlexGrid1());
  failure = failure ? failure : writeTable(files, memory.MSFlexGrid2());
  return failure ? failure : files.flush(kFile);
}

}  // namespace

std::string mainTitle(const std::string& planName) {
  return "Tarnvex - " + (planName.empty() ? "Untitled" : planName);
}

FrequencyFile::FrequencyFile(ChannelMemory& memory, FrequencyFilePorts ports)
    : memory_(memory), ports_(ports) {
  ports_.Dlg1.Filter = "Tarnvex Frequency Files(*.tvf)|*.tvf";
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
    failure = writePlan(ports_.files, memory_);
  }
  return failure ? failure : ports_.files.close(kFile);
}

void FrequencyFile::offerToSave() {
  if (memory_.state().MemoryModified &&
      ports_.dialogs.messageBox("Save Changes to Scanlist File?", "Save Changes",
                                platform::kYesNoQuestion) == Answer::Yes) {
    SavePlan();
    memory_.state().MemoryModified = false;
  }
}

void FrequencyFile::NewPlan() {
  offerToSave();
  ports_.Dlg1.ShowOpen();
  const std::string path = ports_.Dlg1.FileName;
  if (path.empty()) {
    return;
  }
  if (ports_.files.exists(path) &&
      ports_.dialogs.messageBox("File exists. Overwrite it?", "Confirm Overwrite",
                                platform::kYesNoQuestion) != Answer::Yes) {
    return;
  }
  memory_.clear();
  if (const auto failure = WritePlanToFile(path)) {
    report(*failure);
    return;
  }
  adopt(path);
}

void FrequencyFile::OpenPlan() {
  // Deliberate: after No the plan still counts as changed, so closing the program asks again.
  offerToSave();
  ports_.Dlg1.ShowOpen();
  const std::string path = ports_.Dlg1.FileName;
  if (path.empty()) {
    return;
  }
  if (const auto failure = LoadPlanFromFile(path)) {
    report(*failure);
    return;
  }
  adopt(path);
  resetCursors();
}

void FrequencyFile::SavePlan() {
  if (!chooseSaveName()) {
    return;
  }
  const std::string path = ports_.Dlg1.FileName;
  // Deliberate: set before writing. A plan counts as saved even if saving fails.
  memory_.state().MemoryModified = false;
  if (const auto failure = WritePlanToFile(path)) {
    report(*failure);
    return;
  }
  adopt(path);
}

bool FrequencyFile::chooseSaveName() {
  platform::CommonDialog& dialog = ports_.Dlg1;
  const std::string current = dialog.FileName;
  bool settled = false;
  while (!settled) {
    dialog.ShowSave();
    if (dialog.FileName.empty()) {
      return false;
    }
    settled = !memory_.model().asksBeforeReplacing || dialog.FileName == current ||
              !ports_.files.exists(dialog.FileName) ||
              ports_.dialogs.messageBox("Overwrite existing file?", "Confirm Overwrite",
                                        platform::kYesNoQuestion) == Answer::Yes;
  }
  return true;
}

void FrequencyFile::loadLastPlan() {
  const std::string path = ports_.settings.getSetting(memory_.model().key, "LastFreqFile", "");
  ports_.Dlg1.FileName = path;
  if (path.empty()) {
    ports_.window.setCaption(mainTitle({}));
    return;
  }
  LoadPlanFromFile(path);
  // Unlike in the commands, the file is closed even if it can't be read.
  ports_.files.close(kFile);
  resetCursors();
  ports_.window.setCaption(mainTitle(path));
}

void FrequencyFile::adopt(const std::string& path) {
  ports_.window.setCaption(mainTitle(path));
  ports_.settings.saveSetting(memory_.model().key, "LastFreqFile", path);
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
