#pragma once

#include <string>
#include <string_view>

#include "platform/non_copyable.h"

namespace tarnvex::platform {

/// The user's settings: named sections of named text values. Reads and writes are immediate. If the
/// store can't be read, every value is its default; if it can't be written, the value is lost and
/// nothing else happens.
class SettingsStore : private NonCopyable {
 public:
  virtual ~SettingsStore() = default;

  [[nodiscard]] virtual std::string getSetting(std::string_view section, std::string_view name,
                                               std::string_view fallback) const = 0;
  virtual void saveSetting(std::string_view section, std::string_view name,
                           std::string_view text) = 0;
};

}  // namespace tarnvex::platform
