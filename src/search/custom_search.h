#pragma once

#include <functional>
#include <string>

#include "link/scanner_link.h"
#include "platform/notifier.h"
#include "search/search_list.h"

namespace tarnvex::search {

/// The popup menu of `List3`. The window layer shows it on `shown` and runs an item's `onClick`
/// through the event gate; `mnuSLSearch` is its default item.
struct SearchlistMenu {
  struct Item {
    std::string caption;
    std::function<void()> onClick;
  };
  Item mnuSLSearch{"&Search", {}};
  Item mnuSLDelete{"&Delete Search", {}};
  platform::Notifier<> shown;
};

/// The saved searches on the Options page: choosing one, its popup menu, saving and deleting.
/// Choosing sends the limits at once, unchecked, before the user confirms the search.
class CustomSearch {
 public:
  struct Parts {
    SearchControls controls;
    platform::Button& Command4;
    SearchlistMenu& mnuSearchlist;
    /// Label of the panel: receives the mode that the search starts from.
    platform::Label& mode;
  };
  struct Outside {
    link::ScannerLink& link;
    platform::SequentialFiles& files;
    platform::Dialogs& dialogs;
    std::string programDirectory;
  };

  /// Takes over the clicks of the parts.
  CustomSearch(const link::RadioModel& model, Parts parts, Outside outside);

  /// A step of the main window's load: fills `List3`.
  void load() { list_.load(); }

 private:
  void choose();
  void sendLimit(std::string_view command, const platform::TextBox& box);
  void popUp();

  const link::RadioModel& model_;
  Parts parts_;
  link::ScannerLink& link_;
  platform::Dialogs& dialogs_;
  SearchList list_;
};

}  // namespace tarnvex::search
