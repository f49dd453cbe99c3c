#include "search/custom_search.h"

#include "link/insist.h"
#include "link/scanner_commands.h"
#include "platform/convert.h"

namespace tarnvex::search {

CustomSearch::CustomSearch(const link::RadioModel& model, Outside outside)
    : Ulimit("Ulimit", outside.state.UpperLimitEditing, link::command::kUpperLimit, Command4,
             outside.link, outside.dialogs),
      LLimit("LLimit", outside.state.LowerLimitEditing, link::command::kLowerLimit, Ulimit,
             outside.link, outside.dialogs),
      saved(model, {outside.files, outside.dialogs, outside.programDirectory}),
      model_(model),
      outside_(std::move(outside)) {
  saved.List3.onClick = [this] { choose(); };
  saved.List3.onRightPress = [this] { popUp(); };
  mnuSearchlist.mnuSLSearch.onClick = [this] { choose(); };
  mnuSearchlist.mnuSLDelete.onClick = [this] { saved.removeSelected(); };
  Command4.onClick = [this] { saved.append(LLimit, Ulimit); };
}

void CustomSearch::choose() {
  outside_.link.SendCommand(link::key::kScan);
  outside_.showMode(link::insist(outside_.link, link::command::kMode));
  if (const auto record = saved.find(saved.List3.listIndex())) {
    LLimit.setText(platform::shortest(record->lower));
    Ulimit.setText(platform::shortest(record->upper));
    LLimit.send();
    Ulimit.send();
  }
  // Deliberate: asks even if there is no such record or no file. The radio then searches between
  // the limits that it already has.
  const auto answer = outside_.dialogs.messageBox("Start searching now?", "Confirm Search",
                                                  platform::kYesNoQuestion);
  if (answer == platform::Answer::Yes) {
    outside_.link.SendCommand(link::key::kSearch);
  } else if (answer == platform::Answer::No && model_.scansAfterNo) {
    outside_.link.SendCommand(link::key::kScan);
  }
}

void CustomSearch::popUp() {
  const std::string selected = saved.List3.text();
  if (selected.empty()) {
    outside_.dialogs.beep();
    return;
  }
  mnuSearchlist.mnuSLSearch.caption = "&Search " + selected;
  mnuSearchlist.shown.notify();
}

}  // namespace tarnvex::search
