#pragma once

#include <string>
#include <string_view>

#include "platform/non_copyable.h"

namespace tarnvex::platform {

/// The per-user settings: named sections of named values, all of them text. Read at each use;
/// written at once. A store that can't be read gives the defaults; one that can't be written loses
/// the value and nothing else.
class SettingsStore : private NonCopyable {
 public:
  virtual ~SettingsStore() = default;

  [[nodiscard]] virtual std::string getSetting(std::string_view section, std::string_view name,
                                               std::string_view fallback) const = 0;
  virtual void saveSetting(std::string_view section, std::string_view name,
                           std::string_view text) = 0;
};

}  // namespace tarnvex::platform
