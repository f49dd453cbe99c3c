#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/settings_store.h"

namespace tarnvex::test {

/// One value as it was saved.
struct SavedSetting {
  std::string section;
  std::string name;
  std::string text;

  bool operator==(const SavedSetting&) const = default;
};

/// A settings store in memory. `values` may be filled in advance; `saved` lists what the program
/// has written, in order.
class FakeSettings : public platform::SettingsStore {
 public:
  [[nodiscard]] std::string getSetting(std::string_view section, std::string_view name,
                                       std::string_view fallback) const override {
    const auto found = values.find({std::string(section), std::string(name)});
    return found == values.end() ? std::string(fallback) : found->second;
  }
  void saveSetting(std::string_view section, std::string_view name,
                   std::string_view text) override {
    saved.push_back({std::string(section), std::string(name), std::string(text)});
    values[{std::string(section), std::string(name)}] = std::string(text);
  }

  /// By section and name.
  std::map<std::pair<std::string, std::string>, std::string> values;
  std::vector<SavedSetting> saved;
};

}  // namespace tarnvex::test
