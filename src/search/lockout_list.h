#pragma once

#include <string>
#include <vector>

#include "link/radio_model.h"
#include "link/scanner_link.h"

namespace tarnvex::search {

/// A radio's list of skipped search frequencies or locked-out IDs, as the review shows it.
struct LockoutList {
  std::vector<std::string> entries;
  /// The number of entries that couldn't be read, even at the second attempt.
  int unreadable = 0;
  /// Whether the list was read to its end.
  bool ended = false;

  [[nodiscard]] bool whole() const { return ended && unreadable == 0; }
};

/// Reads the list from the radio. Asks once more for what can't be read or has an unusual form.
/// Stops if the port is closed or the user leaves; the list then hasn't ended.
LockoutList readLockouts(const link::RadioModel& model, bool ids, link::ScannerLink& link);

}  // namespace tarnvex::search
