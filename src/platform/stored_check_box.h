#pragma once

#include <string>
#include <string_view>

#include "platform/controls.h"
#include "platform/settings_store.h"

namespace tarnvex::platform {

/// A check box whose state is kept in the settings: each change is stored at once as "1" or "0",
/// and `load` restores it. The box's owner calls `load` once, while its window loads.
class StoredCheckBox : public CheckBox {
 public:
  /// Where the state is stored.
  struct Setting {
    SettingsStore& store;
    std::string_view section;
    std::string key;
  };

  /// `value` is the state until the first change is stored.
  StoredCheckBox(std::string name, std::string caption, Setting setting, bool value = false);

  /// Sets the stored state, which runs the click if it differs. A stored text that isn't a number
  /// leaves the box as it is.
  void load();

  /// Runs after a change has been stored. Use it instead of `onClick`, which the box uses itself.
  std::function<void()> onStored;

 private:
  Setting setting_;
};

}  // namespace tarnvex::platform
