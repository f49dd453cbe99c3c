#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "link/radio_model.h"
#include "platform/controls.h"
#include "platform/dialogs.h"
#include "platform/non_copyable.h"
#include "platform/sequential_files.h"

namespace tarnvex::search {

/// One saved search: a line of `Searchlist.txt`, such as 3,851.0125,869.9875,"Police".
struct SearchListRecord {
  /// Position of the record in the list at the time of writing, from 0.
  int id = 0;
  /// Limits in MHz.
  double lower = 0;
  double upper = 0;
  std::string name;
};

/// The saved searches, `Searchlist.txt` in the program's directory, and the list `List3` that shows
/// their names. Both radios share the file. It is installed with the program and never made by it:
/// every operation reports its absence and leaves the list as it was.
///
/// What the file holds isn't checked: a record that can't be read is passed over. A search whose
/// limits are no numbers is saved with those of the record that was read or written last.
class SearchList : private platform::NonCopyable {
 public:
  struct Ports {
    platform::SequentialFiles& files;
    platform::Dialogs& dialogs;
    /// Without a slash at its end.
    std::string programDirectory;
  };

  SearchList(const link::RadioModel& model, Ports ports);

  /// How many records Delete can rewrite.
  static constexpr int kMostRewritten = 201;

  /// Fills `List3` in the order of the file.
  void load();
  /// "Save Search As..": asks for a name and adds the search between the two limits, in MHz. A
  /// limit that is none leaves that of the record read or written last.
  void append(std::optional<double> lower, std::optional<double> upper);
  /// "Delete Search": asks, and removes all searches that have the selected one's name, not that
  /// one alone. The others are numbered anew. With more records than it can rewrite it says so and
  /// leaves the file alone; so it does, without a word, if the file can't be read to its end.
  void removeSelected();
  /// The first record with that id; nothing if there is none or the file is missing. It becomes the
  /// record read last.
  std::optional<SearchListRecord> find(int id);

  platform::ListBox List3{"List3"};

 private:
  /// The four fields of a record as the file has them.
  using Fields = std::array<std::string, 4>;

  [[nodiscard]] std::string path() const;
  bool present();
  bool open();
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
