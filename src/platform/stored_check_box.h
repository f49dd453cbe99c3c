#pragma once

#include <string>
#include <string_view>

#include "platform/controls.h"
#include "platform/settings_store.h"

namespace tarnvex::platform {

/// A check box that the program remembers: each change is stored at once as "1" or "0", and `load`
/// brings the stored state back. Whoever owns the box runs `load` once, while its window loads.
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

  /// Sets the stored state, which runs the click if it is another one. A text that is no number
  /// leaves the box as it is.
  void load();

  /// Runs after a change has been stored. Takes the place of `onClick`, which the box uses itself.
  std::function<void()> onStored;

 private:
  Setting setting_;
};

}  // namespace tarnvex::platform
