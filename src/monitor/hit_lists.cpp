#include "monitor/hit_lists.h"

#include "link/scanner_commands.h"

namespace tarnvex::monitor {

HitLists::HitLists(memory::ChannelMemory& plan, link::ScannerLink& link) : link_(link) {
  List1.onClick = [this, &plan] { plan.StoreHit(memory::HitList::Frequencies, List1.text()); };
  List2.onClick = [this, &plan] { plan.StoreHit(memory::HitList::Talkgroups, List2.text()); };
  Command1.onClick = [this] { List1.clear(); };
  Command2.onClick = [this] { List2.clear(); };
  Command2.passKeysOn();
  chkSkip.onClick = [this] { skipIf(true); };
}

void HitLists::skipIf(bool known) {
  if (chkSkip.value() && known) {
    link_.SendCommand(link::key::kSearch);
  }
}

}  // namespace tarnvex::monitor
