#include "memory/apf_dialogs.h"
#include "memory/plan_records.h"
#include "platform/convert.h"

namespace tarnvex::memory {

using platform::Failure;
using platform::OpenMode;

namespace {

/// Reads a start channel. On failure returns the reason.
Failure toChannel(const std::string& text, int& channel) {
  const bool taken = platform::assign(channel, platform::toInteger(text));
  return taken ? Failure() : platform::toReal(text) ? "Overflow" : "Type mismatch";
}

void store(platform::Table& grid, int row, const ApfRecord& record) {
  const auto flag = [&](ApfRecord::Field field) { return record.at(field) != " " ? "X" : " "; };
  grid.setTextMatrix(row, ChannelRecord::Frequency, record.at(ApfRecord::Frequency));
  grid.setTextMatrix(row, ChannelRecord::Delay, flag(ApfRecord::Delay));
  grid.setTextMatrix(row, ChannelRecord::Lockout, flag(ApfRecord::Lockout));
  grid.setTextMatrix(row, ChannelRecord::AlphaTag, record.at(ApfRecord::AlphaTag));
}

}  // namespace

Form7::Form7(ApfPorts ports)
    : ApfForm(ports, "Form7", "Import APF File", "Start Import at channel:", "Import Now") {
  Command1.onClick = [this] {
    List1.clear();
    if (const auto failure = list()) {
      report(*failure);
    }
  };
  Command3.onClick = [this] { importNow(); };
}

void Form7::load() {
  if (list()) {
    ports_.files.close(kFile);
    Command3.setEnabled(true);
  }
}

Failure Form7::list() {
  CommonDialog1.ShowOpen();
  if (CommonDialog1.FileName.empty()) {
    return std::nullopt;
  }
  if (auto failure = listRecords()) {
    return failure;
  }
  Command3.setEnabled(true);
  return std::nullopt;
}

Failure Form7::listRecords() {
  if (auto failure = ports_.files.open(kFile, CommonDialog1.FileName, OpenMode::Input)) {
    return failure;
  }
  ApfRecord record;
  std::vector<std::string> lines;
  Failure failure;
  while (!failure && !ports_.files.endOfFile(kFile)) {
    failure = ports_.files.read(kFile, record.fields);
    if (!failure) {
      lines.push_back(record.listed());
    }
  }
  List1.addAll(std::move(lines));
  return failure ? failure : ports_.files.close(kFile);
}

void Form7::importNow() {
  int channel = 0;
  auto failure = toChannel(Text1.text(), channel);
  if (!failure && (channel < 1 || channel > ChannelRecord::kRows)) {
    dialogs().messageBox("Invalid channel number selected.", "Invalid Entry", platform::kWarning);
    return;
  }
  if (!failure) {
    failure = importSelected(channel);
  }
  if (failure) {
    report(*failure);
  } else if (ports_.memory.state().MemoryModified) {
    // Deliberate: this is the plan's flag, not a count of the imported records. So the dialog also
    // closes if the plan had changes before the import.
    closed.notify();
  } else {
    dialogs().messageBox("No frequencies were selected.", "No Frequencies Selected",
                         platform::kWarning);
  }
}

Failure Form7::importSelected(int channel) {
  if (auto failure = ports_.files.open(kFile, CommonDialog1.FileName, OpenMode::Input)) {
    return failure;
  }
  const auto step = ports_.memory.history().step("Import");
  platform::Table& grid = ports_.memory.MSFlexGrid1();
  ApfRecord record;
  for (int i = 0; i < List1.count() && channel <= ChannelRecord::kRows; ++i) {
    if (auto failure = ports_.files.read(kFile, record.fields)) {
      return failure;
    }
    if (List1.selected(i)) {
      ports_.memory.state().MemoryModified = true;
      store(grid, channel++, record);
    }
  }
  return ports_.files.close(kFile);
}

void Form7::report(const std::string& description) {
  dialogs().messageBox("The following error occurred while import this apf file: " + description +
                           ". This file may be corrupt, or not a standard APF file.",
                       "Import Error", platform::kWarning);
  ports_.files.close(kFile);
}

}  // namespace tarnvex::memory
