#include "search/lockouts.h"

#include "link/scanner_commands.h"
#include "platform/convert.h"
#include "search/lockout_list.h"

namespace tarnvex::search {
namespace {

namespace key = link::key;

constexpr const char* kReading = "Reading the list from the radio ...";
constexpr const char* kNotWhole =
    "Part of the list could not be read. The rest is shown, and Done changes nothing in the radio.";

}  // namespace

frmLockouts::frmLockouts(const link::RadioModel& model, const platform::Label& mode,
                         link::ScannerLink& link)
    : model_(model), mode_(mode), link_(link) {
  Command1.onClick = [this] { done(); };
  Command2.onClick = [this] { unlockAll(); };
}

bool frmLockouts::modeIsIn(std::span<const std::string_view> modes) const {
  return link::contains(modes, mode_.caption());
}

void frmLockouts::load() {
  const std::string help = Label1.caption();
  Label1.setCaption(kReading);
  setEnabled(false);
  List1.clear();
  link_.ids().end();
  const LockoutList list = readLockouts(model_, modeIsIn(model_.idModesAtLoad), link_);
  List1.addAll(list.entries);
  List1.selectAll();
  List1.setListIndex(0);
  whole_ = list.whole();
  Label1.setCaption(whole_ ? help : kNotWhole);
  setEnabled(true);
}

void frmLockouts::setEnabled(bool enabled) {
  Command1.setEnabled(enabled);
  Command2.setEnabled(enabled);
}

/// Sends nothing unless the whole list was read: Done empties the radio's list before it writes, so
/// entries that weren't read would be lost.
void frmLockouts::done() {
  if (whole_) {
    link_.ids().end();
    modeIsIn(model_.idModesAtDone) ? restoreIds() : restoreFrequencies();
  }
  closed.notify();
}

/// The keys empty the radio's list; the entries that are still ticked are put back on it. The radio
/// stays where the keys have taken it.
void frmLockouts::restoreFrequencies() {
  for (const auto pressed : {key::kSearch, key::kHold, key::kLockoutHeld}) {
    link_.SendCommand(pressed);
  }
  for (int i = 0; i < List1.count(); ++i) {
    const auto frequency = platform::toReal(List1.item(i));
    if (frequency && List1.selected(i)) {
      link_.SendCommand(link::command::skipFrequency(*frequency));
    }
  }
}

void frmLockouts::restoreIds() {
  std::string_view back = returnKey();
  link_.SendCommand(key::kHold);
  link_.SendCommand(key::kLockoutHeld);
  if (model_.clearsBeforeMode) {
    back = returnKey();
  }
  for (int i = 0; i < List1.count(); ++i) {
    const auto word = List1.selected(i) ? model_.lockoutWords.lock : model_.lockoutWords.unlock;
    link_.SendCommand(link::command::lockId(word, List1.item(i)));
  }
  link_.SendCommand(back);
}

std::string_view frmLockouts::returnKey() const {
  return modeIsIn(model_.searchKeyModes) ? key::kSearch : key::kScan;
}

void frmLockouts::unlockAll() {
  for (int i = 0; i < List1.count(); ++i) {
    List1.setSelected(i, false);
  }
}

}  // namespace tarnvex::search
