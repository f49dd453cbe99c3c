#pragma once

#include <functional>
#include <string>

#include "link/scanner_link.h"
#include "platform/notifier.h"
#include "platform/shared_state.h"
#include "search/limit_box.h"
#include "search/search_list.h"

namespace tarnvex::search {

/// The popup menu of `List3`. The window layer shows it on `shown` and runs an item's `onClick`
/// through the event gate; `mnuSLSearch` is its default item.
struct SearchlistMenu {
  /// An entry: its name, its caption and what it does.
  struct Item {
    std::string name;
    std::string caption;
    std::function<void()> onClick;
  };
  Item mnuSLSearch{"mnuSLSearch", "&Search", {}};
  Item mnuSLDelete{"mnuSLDelete", "&Delete Search", {}};
  platform::Notifier<> shown;
};

/// The frame "Custom Search": the limits, the saved searches with their popup menu, and saving.
/// Choosing a search sends its limits at once, unchecked, before the user confirms the search.
class CustomSearch : private platform::NonCopyable {
 public:
  /// All of it outlives the `CustomSearch`.
  struct Outside {
    link::ScannerLink& link;
    platform::SharedState& state;
    platform::SequentialFiles& files;
    platform::Dialogs& dialogs;
    /// Without a slash at its end.
    std::string programDirectory;
    /// Shows the mode in which a search starts.
    std::function<void(std::string)> showMode;
  };

  CustomSearch(const link::RadioModel& model, Outside outside);

  /// A step of the main window's load: fills the list.
  void load() { saved.load(); }

  platform::Button Command4{"Command4", "Save Search As.."};
  LimitBox Ulimit;
  LimitBox LLimit;
  SearchList saved;
  SearchlistMenu mnuSearchlist;

 private:
  void choose();
  void popUp();

  const link::RadioModel& model_;
  Outside outside_;
};

}  // namespace tarnvex::search
