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

/// "Custom Fleet Map": sets the fleet map of a bank of the BC245XLT, to a preset or to the user's
/// own map. The map is neither stored on the PC nor read from the radio: the form opens with the
/// first preset. It stays open after saving, for further banks. The radio's replies aren't checked.
///
/// Deliberate: a larger size code marks the following blocks as taken, but a smaller one doesn't
/// free them. They stay taken until the user changes them.
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
  /// The size code of a block has changed. A larger code takes the following blocks or is refused.
  void takeBlocks(int block);
  void refuse(int block);
  void save();

  link::ScannerLink& link_;
  platform::Dialogs& dialogs_;
};

}  // namespace tarnvex::trunking
