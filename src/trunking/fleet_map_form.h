#pragma once

#include <array>

#include "link/scanner_link.h"
#include "platform/controls.h"
#include "platform/dialogs.h"
#include "platform/non_copyable.h"
#include "platform/notifier.h"
#include "platform/window.h"
#include "trunking/fleet_map.h"

namespace tarnvex::trunking {

/// "Custom Fleet Map": a fleet map, chosen or made by hand, for a bank of the BC245XLT. The map
/// isn't kept on the PC, nor read from the radio: the form opens on the first preset. It stays open
/// after saving, for further banks. What the radio answers isn't looked at.
///
/// The rule for the larger size codes only ever writes forwards: a block that was taken stays taken
/// when the code before it gets smaller, and the user mends that by hand.
class Form5 : private platform::NonCopyable {
 public:
  Form5(link::ScannerLink& link, platform::Dialogs& dialogs);
  ~Form5() = default;

  void load();

  platform::Window window{"Form5", "Custom Fleet Map"};
  platform::ComboBox cboPreset{"cboPreset"};
  std::array<platform::ComboBox, kFleetBlocks> cboBlock =
      platform::controlArray<platform::ComboBox, kFleetBlocks>("cboBlock");
  platform::ComboBox cboBank{"cboBank"};
  platform::Button Command2{"Command2", "Save Fleetmap"};
  platform::Button Command1{"Command1", "Done"};

  platform::Notifier<> closed;

 private:
  void choosePreset();
  /// A block's combo was set: the larger codes take what follows, or don't fit.
  void takeBlocks(int block);
  void refuse(int block);
  void save();

  link::ScannerLink& link_;
  platform::Dialogs& dialogs_;
};

}  // namespace tarnvex::trunking
