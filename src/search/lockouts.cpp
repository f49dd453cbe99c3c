#include "search/lockouts.h"

#include <algorithm>
#include <array>

#include "platform/convert.h"

namespace tarnvex::search {
namespace {

namespace key = link::key;
namespace mode895 = link::mode895;
namespace mode245 = link::mode245;

/// Places of the BC245XLT's lists.
constexpr int kSkips245 = 50;
constexpr int kLockouts245 = 100;

/// At Done one mode more counts as an ID mode than at the opening: a list of frequencies is then
/// given back as IDs. The radio never reports that mode, and the form keeps it.
constexpr std::array kIdModesAtDone895{mode895::kIdSearch, mode895::kIdHold, mode895::kTrunkScan,
                                       mode895::kTrunkManual, mode895::kUnassigned};
constexpr std::array kSearchKeyModes895{mode895::kIdSearch, mode895::kIdHold};
constexpr std::array kIdModes245{
    mode245::kIdSearch,    mode245::kIdHold,         mode245::kTrunkScan,
    mode245::kTrunkManual, mode245::kTrunkSearch,    mode245::kIdSearchEdacs,
    mode245::kIdHoldEdacs, mode245::kTrunkScanEdacs, mode245::kTrunkManualEdacs};
constexpr std::array kSearchKeyModes245{mode245::kIdSearch, mode245::kIdHold, mode245::kTrunkSearch,
                                        mode245::kIdSearchEdacs};

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

}  // namespace

const LockoutTraits& bc895LockoutTraits() {
  static const LockoutTraits traits{mode895::kIdModes, kIdModesAtDone895,  kSearchKeyModes895, true,
                                    link::kLockout895, readFrequencies895, readIds895};
  return traits;
}

const LockoutTraits& bc245LockoutTraits() {
  static const LockoutTraits traits{kIdModes245, kIdModes245,       kSearchKeyModes245,
                                    false,       link::kLockout245, readFrequencies245,
                                    readIds245};
  return traits;
}

frmLockouts::frmLockouts(const LockoutTraits& traits, const platform::Label& mode,
                         link::ScannerLink& link)
    : traits_(traits), mode_(mode), link_(link) {
  Command1.onClick = [this] { done(); };
  Command2.onClick = [this] { unlockAll(); };
}

bool frmLockouts::modeIsIn(std::span<const std::string_view> modes) const {
  return std::ranges::find(modes, mode_.caption()) != modes.end();
}

void frmLockouts::load() {
  const auto read = modeIsIn(traits_.idModesAtLoad) ? traits_.readIds : traits_.readFrequencies;
  List1.clear();
  for (const std::string& entry : read(link_)) {
    List1.add(entry);
  }
  for (int i = 0; i < List1.count(); ++i) {
    List1.setSelected(i, true);
  }
  List1.setListIndex(0);
}

void frmLockouts::done() {
  if (modeIsIn(traits_.idModesAtDone)) {
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
  if (traits_.keysBeforeMode) {
    back = returnKey();
  }
  for (int i = 0; i < List1.count(); ++i) {
    const auto word = List1.selected(i) ? traits_.words.lock : traits_.words.unlock;
    link_.SendCommand(link::command::lockId(word, List1.item(i)));
  }
  link_.SendCommand(back);
}

std::string_view frmLockouts::returnKey() const {
  return modeIsIn(traits_.searchKeyModes) ? key::kSearch : key::kScan;
}

void frmLockouts::unlockAll() {
  for (int i = 0; i < List1.count(); ++i) {
    List1.setSelected(i, false);
  }
}

}  // namespace tarnvex::search
