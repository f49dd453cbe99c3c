#include "search/custom_search.h"

#include "link/scanner_commands.h"
#include "platform/convert.h"

namespace tarnvex::search {

CustomSearch::CustomSearch(const link::RadioModel& model, Parts parts, Outside outside)
    : model_(model),
      parts_(parts),
      link_(outside.link),
      dialogs_(outside.dialogs),
      list_(model, parts.controls,
            {outside.files, outside.dialogs, std::move(outside.programDirectory)}) {
  parts_.controls.List3.onClick = [this] { choose(); };
  parts_.controls.List3.onRightPress = [this] { popUp(); };
  parts_.mnuSearchlist.mnuSLSearch.onClick = [this] { choose(); };
  parts_.mnuSearchlist.mnuSLDelete.onClick = [this] { list_.removeSelected(); };
  parts_.Command4.onClick = [this] { list_.append(); };
}

void CustomSearch::choose() {
  link_.SendCommand(link::key::kScan);
  parts_.mode.setCaption(link_.SendCommand(link::command::kMode));
  const auto& [list, lower, upper] = parts_.controls;
  if (const auto record = list_.find(list.listIndex())) {
    lower.setText(platform::shortest(record->lower));
    upper.setText(platform::shortest(record->upper));
    sendLimit(link::command::kLowerLimit, lower);
    sendLimit(link::command::kUpperLimit, upper);
  }
  // Asked also when there was no such record or no file: the radio then searches between the limits
  // that it has.
  if (dialogs_.messageBox("Start searching now?", "Confirm Search", platform::kYesNoQuestion) ==
      platform::Answer::Yes) {
    link_.SendCommand(link::key::kSearch);
  } else if (model_.scansAfterNo) {
    link_.SendCommand(link::key::kScan);
  }
}

void CustomSearch::sendLimit(std::string_view command, const platform::TextBox& box) {
  if (const auto limit = platform::toReal(box.text())) {
    link_.SendCommand(link::command::setLimit(command, *limit));
  }
}

void CustomSearch::popUp() {
  const std::string selected = parts_.controls.List3.text();
  if (selected.empty()) {
    dialogs_.beep();
    return;
  }
  parts_.mnuSearchlist.mnuSLSearch.caption = "&Search " + selected;
  parts_.mnuSearchlist.shown.notify();
}

}  // namespace tarnvex::search
