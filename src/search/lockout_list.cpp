#include "search/lockout_list.h"

#include <algorithm>
#include <optional>

#include "link/answer_filter.h"
#include "link/scanner_commands.h"
#include "platform/convert.h"

namespace tarnvex::search {
namespace {

/// The sizes of the BC245XLT's lists.
constexpr int kSkips = 50;
constexpr int kLockedIds = 100;

/// An entry as shown. Nothing if it can't be read, empty at the end of the list.
using Entry = std::optional<std::string>;

Entry frequencyEntry(const std::string& text) {
  const auto megahertz = link::skippedFrequency(text);
  const std::string shown = megahertz.value_or(0) > 0 ? platform::format(*megahertz, "0.0000") : "";
  return megahertz ? Entry(shown) : std::nullopt;
}

Entry idEntry(const std::string& text) {
  const bool isId =
      std::ranges::any_of(text, platform::isDigit) && std::ranges::all_of(text, [](char c) {
        return platform::isDigit(c) || c == '-' || c == ' ' || c == link::kWireDash;
      });
  return isId ? std::optional(text) : std::nullopt;
}

/// Eight places of a frequency, the first of which may be a blank, or the zeros of an empty place.
bool isFullFrequency(std::string_view text) {
  constexpr std::size_t kPlaces = 8;
  const std::string_view digits = text.substr(text.starts_with(' ') ? 1 : 0);
  const bool zeros = text.size() > 1 && digits.find_first_not_of('0') == std::string_view::npos;
  return std::ranges::all_of(digits, platform::isDigit) &&
         (zeros || text.size() == kPlaces || digits.size() == kPlaces);
}

bool isFullId(std::string_view text) {
  const std::string_view id = text.substr(text.starts_with(' ') ? 1 : 0);
  return link::readsAsId(id) && !id.starts_with(' ');
}

std::string_view wordOf(bool ids) {
  return ids ? link::command::kIdLockouts : link::command::kSearchSkips;
}

/// Whether a line is a complete entry: the word, and a whole frequency or the six characters of an
/// ID, after a blank or none. A line that has lost a character mostly isn't.
bool isFullForm(const std::string& line, bool ids) {
  const std::string text = link::lockoutEntry(line);
  return (ids ? isFullId(text) : isFullFrequency(text)) && link::isOwnAnswer(wordOf(ids), line);
}

/// Believes a line that isn't in the full form only if the radio has sent the same one before.
Entry takeEntry(const std::string& line, bool ids, const std::vector<std::string>& before) {
  const bool believed = isFullForm(line, ids) || std::ranges::find(before, line) != before.end();
  if (!believed || link::belongingOf(wordOf(ids), line) != link::Belonging::Answer) {
    return std::nullopt;
  }
  const std::string text = link::lockoutEntry(line);
  return ids ? idEntry(text) : frequencyEntry(text);
}

void store(const Entry& entry, LockoutList& list) {
  if (!entry) {
    ++list.unreadable;
  } else if (!entry->empty()) {
    list.entries.push_back(*entry);
  }
}

/// Reads the list from the answer of a BC895XLT, which sends it all at once.
LockoutList parse(const std::string& reply, bool ids, const std::vector<std::string>& before) {
  LockoutList list;
  list.ended = link::listIsWhole(reply);
  for (const std::string& line : link::listLines(reply)) {
    store(takeEntry(line, ids, before), list);
  }
  return list;
}

LockoutList readInOneQuery(bool ids, link::ScannerLink& link) {
  const auto ask = [&] { return ids ? link.QueryIdLockouts() : link.QuerySearchSkips(); };
  const std::string reply = ask();
  LockoutList list = parse(reply, ids, {});
  return list.whole() || !link.mayGoOn() ? list : parse(ask(), ids, link::listLines(reply));
}

/// Asks at most twice.
Entry readEntry(int number, bool ids, link::ScannerLink& link) {
  const std::string question =
      ids ? link::command::readLockout(number) : link::command::readSkip(number);
  std::vector<std::string> before;
  for (int attempt = 0; attempt < 2 && link.mayGoOn(); ++attempt) {
    const std::string reply = link.SendCommand(question);
    if (ids && link::endsLockouts(reply)) {
      return "";
    }
    if (Entry entry = takeEntry(reply, ids, before)) {
      return entry;
    }
    before.push_back(reply);
  }
  return std::nullopt;
}

LockoutList readByNumber(bool ids, link::ScannerLink& link) {
  LockoutList list;
  const int places = ids ? kLockedIds : kSkips;
  for (int number = 1; number <= places && !list.ended && link.mayGoOn(); ++number) {
    const Entry entry = readEntry(number, ids, link);
    store(entry, list);
    list.ended = number == places || (entry && entry->empty());
  }
  return list;
}

}  // namespace

LockoutList readLockouts(const link::RadioModel& model, bool ids, link::ScannerLink& link) {
  return model.numberedLockouts ? readByNumber(ids, link) : readInOneQuery(ids, link);
}

}  // namespace tarnvex::search
