#include "monitor/hit_capture.h"

#include <algorithm>

#include "link/scanner_commands.h"
#include "platform/convert.h"

namespace tarnvex::monitor {
namespace {

constexpr std::string_view kCountMark = "Hits: ";

/// The count in a line, between its mark and the tag. Nothing if there is no tag.
std::optional<int> countOf(const std::string& line) {
  const std::size_t mark = line.find(kCountMark);
  const std::size_t start =
      mark == std::string::npos ? kCountMark.size() : mark + kCountMark.size();
  const std::size_t tag = line.find('(');
  if (tag == std::string::npos || tag < start) {
    return std::nullopt;
  }
  return platform::toInteger(line.substr(start, tag - start));
}

/// Whether a text is an ID as shown: digits, dashes and blanks, and at least one digit.
bool isShownId(std::string_view text) {
  return std::ranges::any_of(text, platform::isDigit) && std::ranges::all_of(text, [](char c) {
           return platform::isDigit(c) || c == '-' || c == ' ';
         });
}

bool addUnlessListed(platform::ListBox& hits, const std::string& id, const std::string& rest) {
  if (!isShownId(id)) {
    return false;
  }
  for (const std::string& line : hits.items()) {
    if (line.find(id) != std::string::npos) {
      return true;
    }
  }
  hits.add(id + " - " + rest);
  return false;
}

}  // namespace

std::string tagPart(const std::string& tag) {
  return tag.empty() ? "" : "(" + tag + ")";
}

bool captureFrequency(platform::ListBox& hits, const std::string& frequency, const std::string& tag,
                      const platform::Clock& clock, platform::SharedState& state) {
  if (!link::readsAsFrequency(frequency)) {
    return false;
  }
  const auto line = [&](int count) {
    return frequency + " - " + clock.now() + " " + std::string(kCountMark) + std::to_string(count) +
           tagPart(tag);
  };
  bool found = false;
  for (int i = 0; i < hits.count(); ++i) {
    const bool same = hits.item(i).find(frequency) != std::string::npos;
    found = found || same;
    if (same && !state.HitCounted) {
      hits.replace(i, line(countOf(hits.item(i)).value_or(0) + 1));
    }
  }
  if (!found) {
    hits.add(line(1));
  }
  state.HitCounted = true;
  return found;
}

bool captureId(platform::ListBox& hits, const std::string& id, const std::string& tag,
               const platform::Clock& clock) {
  return addUnlessListed(hits, id, clock.now() + " " + tagPart(tag));
}

bool captureId(platform::ListBox& hits, const std::string& id, int bank, const std::string& tag,
               const platform::Clock& clock) {
  return addUnlessListed(hits, id,
                         clock.now() + " Bank: " + std::to_string(bank + 1) + " " + tagPart(tag));
}

}  // namespace tarnvex::monitor
