#include "memory/memory_traits.h"

#include <limits>

#include "platform/table.h"

namespace tarnvex::memory {
namespace {

constexpr int kDesign = platform::Table::kDesignWidth;
constexpr int kHidden = 0;

}  // namespace

const MemoryTraits& bc895MemoryTraits() {
  static const MemoryTraits kTraits = {
      .section = "BC895",
      .channelHeadings = {"Ch.", "Frequency", "Trnk", "Dly", "L/O", "Line", "CTCSS", "Alpha Tag"},
      .channelWidths = {500, kDesign, 500, 500, 500, 500, 700, 3000},
      .talkgroupHeadings = {"Channel", "Talkgroup ID", "Alpha Tag", "PRI"},
      .tagLimit = 30,
      .talkgroupDirtyRule = DirtyRule::AfterFirstKey,
      .talkgroupLastColumn = TalkgroupRecord::AlphaTag,
      // Half of the table, on purpose: Enter walks the first five banks of this radio and no more.
      .talkgroupLastRow = 500,
      .hitIdStart = 1,
      .asksBeforeReplacing = false,
  };
  return kTraits;
}

const MemoryTraits& bc245MemoryTraits() {
  static const MemoryTraits kTraits = {
      .section = "BC245",
      // The radio has neither a line output nor tones, but the plan keeps both for the other one.
      .channelHeadings = {"Channel", "Frequency", "Trnk", "Dly", "L/O", "", "", "Alpha Tag"},
      .channelWidths = {kDesign, kDesign, 500, 500, 500, kHidden, kHidden, 3000},
      .talkgroupHeadings = {"Bank: Ch.", "Talkgroup ID", "Alpha Tag", "PRI"},
      .tagLimit = std::numeric_limits<std::size_t>::max(),
      .talkgroupDirtyRule = DirtyRule::EveryKey,
      .talkgroupLastColumn = TalkgroupRecord::Priority,
      .talkgroupLastRow = TalkgroupRecord::kRows,
      .hitIdStart = 2,
      .asksBeforeReplacing = true,
  };
  return kTraits;
}

}  // namespace tarnvex::memory
