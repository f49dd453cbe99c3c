#include "search/search_list.h"

#include <span>

#include "platform/convert.h"

namespace tarnvex::search {
namespace {

using platform::NameCase;
using platform::OpenMode;
using platform::SequentialFiles;

constexpr int kFile = 1;
constexpr const char* kSaveTitle = "Save Search As";
constexpr std::string_view kFileName = "/Searchlist.txt";

using Fields = std::array<std::string, 4>;

/// The result of reading a record. It is `Ended` even if the file ends within a record.
enum class Outcome { Read, Ended, Failed };

Outcome readFields(SequentialFiles& files, Fields& fields) {
  for (std::string& field : fields) {
    if (files.endOfFile(kFile)) {
      return Outcome::Ended;
    }
    if (files.read(kFile, std::span(&field, 1))) {
      return Outcome::Failed;
    }
  }
  return Outcome::Read;
}

std::optional<SearchListRecord> recordOf(const Fields& fields) {
  const auto id = platform::toInteger(fields[0]);
  const auto lower = platform::toReal(fields[1]);
  const auto upper = platform::toReal(fields[2]);
  if (!id || !lower || !upper) {
    return std::nullopt;
  }
  return SearchListRecord{*id, *lower, *upper, fields[3]};
}

/// Reads all records, but at most one more than `most`. Nothing if the file can't be read to its
/// end.
std::optional<std::vector<Fields>> readAll(SequentialFiles& files, std::size_t most) {
  std::vector<Fields> records;
  Outcome outcome = Outcome::Read;
  while (outcome == Outcome::Read && records.size() <= most) {
    Fields fields;
    outcome = readFields(files, fields);
    if (outcome == Outcome::Read) {
      records.push_back(std::move(fields));
    }
  }
  return outcome == Outcome::Failed ? std::nullopt : std::optional(std::move(records));
}

platform::Failure write(SequentialFiles& files, const SearchListRecord& record) {
  return files.write(kFile, {record.id, record.lower, record.upper, record.name});
}

/// A limit as it is saved: formatted with the mask and read back.
std::optional<double> savedLimit(const std::string& text, std::string_view mask) {
  const auto limit = platform::toReal(text);
  return limit ? platform::toReal(platform::format(*limit, mask)) : std::nullopt;
}

}  // namespace

SearchList::SearchList(const link::RadioModel& model, Ports ports)
    : model_(model), ports_(std::move(ports)) {}

std::string SearchList::path() const {
  return ports_.programDirectory + std::string(kFileName);
}

bool SearchList::present() {
  const bool found = ports_.files.exists(path(), NameCase::Any);
  if (!found) {
    ports_.dialogs.messageBox(
        "Searchlist.txt is missing! You should re-install Tarnvex to replace this file.",
        "Search List Not Found", platform::kErrorIcon);
  }
  return found;
}

bool SearchList::open() {
  const auto failure = ports_.files.open(kFile, path(), OpenMode::Input, NameCase::Any);
  tellUnread(failure);
  return !failure;
}

void SearchList::tellUnread(const platform::Failure& failure) {
  if (failure) {
    ports_.dialogs.messageBox("The list of searches could not be read: " + *failure, "Search List",
                              platform::kWarning);
  }
}

void SearchList::load() {
  if (present()) {
    fill();
  }
}

/// Leaves the list as it is if the file can't be opened.
void SearchList::fill() {
  if (!open()) {
    return;
  }
  std::vector<std::string> names;
  Fields fields;
  while (readFields(ports_.files, fields) == Outcome::Read) {
    if (platform::assign(current_, recordOf(fields))) {
      names.push_back(current_.name);
    }
  }
  ports_.files.close(kFile);
  List3.clear();
  List3.addAll(names);
}

std::optional<SearchListRecord> SearchList::find(int id) {
  if (!present() || !open()) {
    return std::nullopt;
  }
  Fields fields;
  bool found = false;
  while (!found && readFields(ports_.files, fields) == Outcome::Read) {
    found = platform::assign(current_, recordOf(fields)) && current_.id == id;
  }
  ports_.files.close(kFile);
  return found ? std::optional(current_) : std::nullopt;
}

void SearchList::append(const platform::TextBox& lower, const platform::TextBox& upper) {
  const std::string name = ports_.dialogs.inputBox("Enter the name for this search:", "Tarnvex");
  if (name.empty() || !carried(name) || !present()) {
    return;
  }
  const int id = List3.count();
  if (model_.mostSearches && id >= *model_.mostSearches) {
    ports_.dialogs.messageBox("You may only have up to 200 Custom Searches Saved.",
                              "Maximum Saved Searches Exceeded", platform::kWarning);
  } else {
    platform::assign(current_.lower, savedLimit(lower.text(), model_.searchMask));
    platform::assign(current_.upper, savedLimit(upper.text(), model_.searchMask));
    current_.id = id;
    current_.name = name;
    tellFailure(add(current_));
  }
  load();
}

/// Whether the file can hold the name. The file is read field by field, so a name that ends its own
/// field would shift everything after it.
bool SearchList::carried(const std::string& name) {
  const bool carried = SequentialFiles::carries(name);
  if (!carried) {
    ports_.dialogs.messageBox(
        "The file of searches can't hold this name: a comma or a line end follows a double quote "
        "in it.",
        kSaveTitle, platform::kWarning);
  }
  return carried;
}

platform::Failure SearchList::add(const SearchListRecord& record) {
  auto failure = ports_.files.open(kFile, path(), OpenMode::Append, NameCase::Any);
  if (!failure) {
    failure = write(ports_.files, record);
    const auto closing = ports_.files.close(kFile);
    failure = failure ? failure : closing;
  }
  return failure;
}

void SearchList::tellFailure(const platform::Failure& failure) {
  if (failure) {
    ports_.dialogs.messageBox("The list of searches could not be saved: " + *failure, kSaveTitle,
                              platform::kWarning);
  }
}

void SearchList::removeSelected() {
  const std::string name = List3.text();
  if (ports_.dialogs.askToDestroy("Delete search: " + name + "?", "Confirm Delete",
                                  platform::kYesNoQuestion) != platform::Answer::Yes ||
      !present() || !open()) {
    return;
  }
  const auto records = readAll(ports_.files, kMostRewritten);
  ports_.files.close(kFile);
  if (!records) {
    tellUnread("the file can't be read to its end.");
    return;
  }
  if (records->size() > kMostRewritten) {
    ports_.dialogs.messageBox(
        "Searchlist.txt holds more than 201 searches, so none can be deleted. The file was not "
        "changed.",
        "Delete Search", platform::kWarning);
    return;
  }
  rewriteWithout(name, *records);
  load();
}

void SearchList::rewriteWithout(const std::string& name, const std::vector<Fields>& records) {
  if (const auto failure = ports_.files.open(kFile, path(), OpenMode::Output, NameCase::Any)) {
    tellFailure(failure);
    return;
  }
  int id = 0;
  for (const Fields& fields : records) {
    const auto record = recordOf(fields);
    if (!record) {
      // The list doesn't show this record, so the user can't have meant it.
      ports_.files.write(kFile, {fields[0], fields[1], fields[2], fields[3]});
    } else if (record->name != name) {
      current_ = *record;
      current_.id = id++;
      write(ports_.files, current_);
    }
  }
  tellFailure(ports_.files.close(kFile));
}

}  // namespace tarnvex::search
