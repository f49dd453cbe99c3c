#pragma once

#include <QSettings>

#include "platform/settings_store.h"

namespace tarnvex::desktop {

/// The settings store as an INI file, by default `Tarnvex/Tarnvex.conf` in the user's configuration
/// folder. Nothing is written before the first value is saved.
class IniSettings : public platform::SettingsStore {
 public:
  explicit IniSettings(const QString& path = defaultPath());
  static QString defaultPath();

  [[nodiscard]] std::string getSetting(std::string_view section, std::string_view name,
                                       std::string_view fallback) const override;
  void saveSetting(std::string_view section, std::string_view name, std::string_view text) override;

  /// All values, a line each: "Options/COM=1".
  [[nodiscard]] QString allText() const;

 private:
  mutable QSettings file_;
};

}  // namespace tarnvex::desktop
