#include "search/lockout_list.h"

#include <algorithm>
#include <optional>

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

/// Reads the list from the answer of a BC895XLT, which sends it all at once.
LockoutList parse(const std::string& reply, bool ids) {
  LockoutList list;
  list.ended = link::listIsWhole(reply);
  for (const std::string& text : link::listEntries(reply)) {
    const Entry entry = ids ? idEntry(text) : frequencyEntry(text);
    if (!entry) {
      ++list.unreadable;
    } else if (!entry->empty()) {
      list.entries.push_back(*entry);
    }
  }
  return list;
}

LockoutList readInOneQuery(bool ids, link::ScannerLink& link) {
  const auto read = [&] {
    return parse(ids ? link.QueryIdLockouts() : link.QuerySearchSkips(), ids);
  };
  LockoutList list = read();
  return list.unreadable > 0 && list.ended ? read() : list;
}

Entry readEntry(int number, bool ids, link::ScannerLink& link) {
  const std::string reply =
      link.SendCommand(ids ? link::command::readLockout(number) : link::command::readSkip(number));
  if (ids && link::endsLockouts(reply)) {
    return "";
  }
  const std::string text = link::lockoutEntry(reply);
  return ids ? idEntry(text) : frequencyEntry(text);
}

LockoutList readByNumber(bool ids, link::ScannerLink& link) {
  LockoutList list;
  const int places = ids ? kLockedIds : kSkips;
  for (int number = 1; number <= places && !list.ended; ++number) {
    Entry entry = readEntry(number, ids, link);
    if (!entry) {
      entry = readEntry(number, ids, link);
    }
    if (!entry) {
      ++list.unreadable;
    } else if (entry->empty()) {
      list.ended = true;
    } else {
      list.entries.push_back(*entry);
    }
  }
  list.ended = true;
  return list;
}

}  // namespace

LockoutList readLockouts(const link::RadioModel& model, bool ids, link::ScannerLink& link) {
  return model.numberedLockouts ? readByNumber(ids, link) : readInOneQuery(ids, link);
}

}  // namespace tarnvex::search
