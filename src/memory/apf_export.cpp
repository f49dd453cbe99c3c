#include <limits>

#include "memory/apf_dialogs.h"
#include "memory/plan_records.h"
#include "platform/convert.h"

namespace tarnvex::memory {

using platform::OpenMode;

namespace {

/// The values of the record to write. Deliberate: a value that a record doesn't set is that of the
/// record before it.
struct Exported {
  /// The channel number. Nothing for the first record if the start wasn't a number.
  std::optional<int> number;
  std::string frequency;
  std::string mode;
  std::string delay;
  std::string lockout;
  std::string tag;
};

bool inAmRange(const std::string& frequency) {
  double megahertz = 0;
  platform::assign(megahertz, platform::toReal(frequency));
  return (megahertz > 108 && megahertz < 137) || (megahertz > 200 && megahertz < 400);
}

/// Takes a row's values. A row outside the table changes nothing.
void take(const platform::Table& grid, int row, Exported& record) {
  if (row >= grid.rows()) {
    return;
  }
  const auto cell = [&](int col) { return grid.textMatrix(row, col); };
  record.frequency = cell(ChannelRecord::Frequency);
  record.delay = cell(ChannelRecord::Delay) == "X" ? "d" : " ";
  record.lockout = cell(ChannelRecord::Lockout) == "X" ? "l" : " ";
  record.tag = cell(ChannelRecord::AlphaTag);
}

/// Deliberate: the mode isn't reset between records. From the first AM frequency on, all records of
/// an export are "am ".
void chooseMode(Exported& record) {
  record.mode = inAmRange(record.frequency) ? "am " : record.mode.empty() ? "nfm" : record.mode;
}

void write(platform::SequentialFiles& files, int file, const Exported& record) {
  files.write(file, {" ", record.number ? std::to_string(*record.number) : std::string(),
                     record.frequency, record.mode, record.delay, record.lockout, record.tag});
}

}  // namespace

Form8::Form8(ApfPorts ports)
    : ApfForm(ports, "Form8", "Export APF File", "Start Export from Channel:", "Export Now") {
  Command1.onClick = [this] { openTarget(); };
  Command3.onClick = [this] { exportNow(); };
}

void Form8::load() {
  const platform::Table& grid = ports_.memory.MSFlexGrid1();
  std::vector<std::string> lines;
  for (int row = 1; row < grid.rows(); ++row) {
    lines.push_back(grid.textMatrix(row, ChannelRecord::Number) + " " +
                    grid.textMatrix(row, ChannelRecord::Frequency) + "-" +
                    grid.textMatrix(row, ChannelRecord::AlphaTag));
  }
  List1.addAll(std::move(lines));
}

void Form8::openTarget() {
  CommonDialog1.ShowOpen();
  const std::string& path = CommonDialog1.FileName;
  if (path.empty()) {
    return;
  }
  const std::string last = ports_.files.exists(path) ? listTarget() : "0";
  const auto number = platform::toInteger(last);
  if (number && *number < std::numeric_limits<std::int16_t>::max()) {
    Text1.setText(std::to_string(*number + 1));
  }
  Command3.setEnabled(true);
  window.setCaption("Export APF File - " + path);
}

/// Adds the file's records to the list, after the channels. Returns the last channel number in the
/// file.
std::string Form8::listTarget() {
  ApfRecord record;
  std::vector<std::string> lines;
  std::string last = "0";
  ports_.files.open(kFile, CommonDialog1.FileName, OpenMode::Input);
  while (!ports_.files.endOfFile(kFile)) {
    const bool whole = !ports_.files.read(kFile, record.fields);
    last = record.at(ApfRecord::Channel);
    if (whole) {
      lines.push_back(record.listed());
    }
  }
  List1.addAll(std::move(lines));
  ports_.files.close(kFile);
  return last;
}

void Form8::exportNow() {
  const platform::Table& grid = ports_.memory.MSFlexGrid1();
  Exported record;
  record.number = platform::toInteger(Text1.text());
  ports_.files.open(kFile, CommonDialog1.FileName, OpenMode::Append);
  for (int i = 0; i < List1.count(); ++i) {
    if (!List1.selected(i)) {
      continue;
    }
    take(grid, i + 1, record);
    chooseMode(record);
    write(ports_.files, kFile, record);
    record.number = record.number.value_or(0) + 1;
  }
  ports_.files.close(kFile);
  closed.notify();
}

}  // namespace tarnvex::memory
