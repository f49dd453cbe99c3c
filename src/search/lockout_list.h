#pragma once

#include <string>
#include <vector>

#include "link/radio_model.h"
#include "link/scanner_link.h"

namespace tarnvex::search {

/// A radio's list of skipped search frequencies or of locked-out IDs, as the review shows it.
struct LockoutList {
  std::vector<std::string> entries;
  /// Entries that couldn't be read, asked twice.
  int unreadable = 0;
  /// The list was read to its end.
  bool ended = false;

  [[nodiscard]] bool whole() const { return ended && unreadable == 0; }
};

/// Reads the list from the radio. What can't be read is asked for once more.
LockoutList readLockouts(const link::RadioModel& model, bool ids, link::ScannerLink& link);

}  // namespace tarnvex::search
