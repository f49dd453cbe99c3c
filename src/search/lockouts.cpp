#include "search/lockouts.h"

#include <algorithm>

#include "link/scanner_commands.h"
#include "platform/convert.h"

namespace tarnvex::search {
namespace {

namespace key = link::key;

/// Places of the BC245XLT's lists.
constexpr int kSkips245 = 50;
constexpr int kLockouts245 = 100;

std::string shown(double megahertz) {
  return platform::format(megahertz, "0.0000");
}

std::vector<std::string> readFrequencies895(link::ScannerLink& link) {
  std::vector<std::string> frequencies;
  for (const std::string& entry : link::listEntries(link.QuerySearchSkips())) {
    if (const auto frequency = link::skippedFrequency(entry)) {
      frequencies.push_back(shown(*frequency));
    }
  }
  return frequencies;
}

std::vector<std::string> readIds895(link::ScannerLink& link) {
  return link::listEntries(link.QueryIdLockouts());
}

std::vector<std::string> readFrequencies245(link::ScannerLink& link) {
  std::vector<std::string> frequencies;
  for (int number = 1; number <= kSkips245; ++number) {
    const auto entry = link::lockoutEntry(link.SendCommand(link::command::readSkip(number)));
    const auto frequency = link::skippedFrequency(entry.value_or(""));
    if (!frequency || *frequency <= 0) {
      break;
    }
    frequencies.push_back(shown(*frequency));
  }
  return frequencies;
}

std::vector<std::string> readIds245(link::ScannerLink& link) {
  std::vector<std::string> ids;
  for (int number = 1; number <= kLockouts245; ++number) {
    const auto entry = link::lockoutEntry(link.SendCommand(link::command::readLockout(number)));
    if (!entry) {
      break;
    }
    ids.push_back(*entry);
  }
  return ids;
}

using Entries = std::vector<std::string>;

Entries readFrequencies(const link::RadioModel& model, link::ScannerLink& link) {
  return model.numberedLockouts ? readFrequencies245(link) : readFrequencies895(link);
}

Entries readIds(const link::RadioModel& model, link::ScannerLink& link) {
  return model.numberedLockouts ? readIds245(link) : readIds895(link);
}

}  // namespace

frmLockouts::frmLockouts(const link::RadioModel& model, const platform::Label& mode,
                         link::ScannerLink& link)
    : model_(model), mode_(mode), link_(link) {
  Command1.onClick = [this] { done(); };
  Command2.onClick = [this] { unlockAll(); };
}

bool frmLockouts::modeIsIn(std::span<const std::string_view> modes) const {
  return std::ranges::find(modes, mode_.caption()) != modes.end();
}

void frmLockouts::load() {
  const auto read = modeIsIn(model_.idModesAtLoad) ? readIds : readFrequencies;
  List1.clear();
  for (const std::string& entry : read(model_, link_)) {
    List1.add(entry);
  }
  for (int i = 0; i < List1.count(); ++i) {
    List1.setSelected(i, true);
  }
  List1.setListIndex(0);
}

void frmLockouts::done() {
  if (modeIsIn(model_.idModesAtDone)) {
    restoreIds();
  } else {
    restoreFrequencies();
  }
  closed.notify();
}

/// The keys empty the radio's list; what is still ticked goes back on it. The radio stays where the
/// keys have taken it.
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
