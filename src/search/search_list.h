#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "link/radio_model.h"
#include "platform/controls.h"
#include "platform/dialogs.h"
#include "platform/non_copyable.h"
#include "platform/sequential_files.h"

namespace tarnvex::search {

/// One saved search: a line of `Searchlist.txt`, such as 3,851.0125,869.9875,"Police".
struct SearchListRecord {
  /// The record's position in the list when it was written, from 0.
  int id = 0;
  /// Limits in MHz.
  double lower = 0;
  double upper = 0;
  std::string name;
};

/// The saved searches, `Searchlist.txt` in the program's directory, and the list `List3` that shows
/// their names. Both radios share the file. It is installed with the program, which never creates
/// it. If it is missing, every operation says so and leaves the list as it was.
///
/// The contents aren't checked, and a record that can't be read is skipped. Deliberate: a search
/// whose limits aren't numbers is saved with the limits of the last record that was read or
/// written.
class SearchList : private platform::NonCopyable {
 public:
  /// What the searches use. All of it outlives the `SearchList`.
  struct Ports {
    platform::SequentialFiles& files;
    platform::Dialogs& dialogs;
    /// Without a slash at its end.
    std::string programDirectory;
  };

  SearchList(const link::RadioModel& model, Ports ports);

  /// The most records that Delete can rewrite.
  static constexpr int kMostRewritten = 201;

  /// Fills `List3` in the order of the file.
  void load();
  /// "Save Search As..": asks for a name and adds the search between the limits that the two boxes
  /// hold then, in MHz. A limit that isn't a number is replaced by that of the last record that was
  /// read or written.
  void append(const platform::TextBox& lower, const platform::TextBox& upper);
  /// "Delete Search": asks, and removes the selected search. Deliberate: all searches with the same
  /// name are removed, too. The others are renumbered. If there are more records than it can
  /// rewrite, or the file can't be read to its end, it shows a message and leaves the file as it
  /// is.
  void removeSelected();
  /// The first record with this id. Nothing if there is none or the file is missing. It becomes the
  /// last record that was read.
  std::optional<SearchListRecord> find(int id);

  platform::ListBox List3{"List3"};

 private:
  /// The four fields of a record as they are in the file.
  using Fields = std::array<std::string, 4>;

  [[nodiscard]] std::string path() const;
  bool present();
  bool open();
  void tellUnread(const platform::Failure& failure);
  bool carried(const std::string& name);
  platform::Failure add(const SearchListRecord& record);
  void tellFailure(const platform::Failure& failure);
  void fill();
  void rewriteWithout(const std::string& name, const std::vector<Fields>& records);

  const link::RadioModel& model_;
  Ports ports_;
  SearchListRecord current_;
};

}  // namespace tarnvex::search
