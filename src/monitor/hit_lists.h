#pragma once

#include "link/scanner_link.h"
#include "memory/channel_memory.h"
#include "platform/controls.h"
#include "platform/non_copyable.h"

namespace tarnvex::monitor {

/// The page "Search Results": the hits of the conventional and the trunked search. The poll fills
/// the lists (see hit_capture.h). A click on a line stores it in the plan.
class HitLists : private platform::NonCopyable {
 public:
  HitLists(memory::ChannelMemory& plan, link::ScannerLink& link);

  /// If `chkSkip` is ticked and the hit is known, makes the radio go on searching.
  void skipIf(bool known);

  platform::ListBox List1{"List1"};
  platform::ListBox List2{"List2"};
  platform::Button Command1{"Command1", "Clear List"};
  platform::Button Command2{"Command2", "Clear List"};
  platform::CheckBox chkSkip{"chkSkip", "Skip Found Frequencies/ Talkgroup ID's"};

 private:
  link::ScannerLink& link_;
};

}  // namespace tarnvex::monitor
