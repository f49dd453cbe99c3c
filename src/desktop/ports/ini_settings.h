#pragma once

#include <QString>
#include <functional>
#include <map>
#include <string>
#include <utility>

#include "files/posix_files.h"
#include "platform/settings_store.h"

namespace tarnvex::desktop {

/// The settings store as an INI file, by default `Tarnvex/Tarnvex.conf` in the user's configuration
/// folder. Nothing is written before the first value is saved. Every save replaces the whole file
/// or fails, waits for no lock, and keeps what another program has written into the file since.
///
/// A value that can't be saved stays in effect until the program ends. The next save tries again.
class IniSettings : public platform::SettingsStore {
 public:
  explicit IniSettings(const QString& path = defaultPath());
  /// Uses these system calls, which must outlive it.
  IniSettings(const QString& path, files::FileCalls& calls);
  static QString defaultPath();

  [[nodiscard]] std::string getSetting(std::string_view section, std::string_view name,
                                       std::string_view fallback) const override;
  void saveSetting(std::string_view section, std::string_view name, std::string_view text) override;

  /// All values, one per line, such as "Options/COM=1", spelled as in the file.
  [[nodiscard]] QString allText() const;

  /// Called with the description when a save fails, but only once for several failures in a row.
  std::function<void(const std::string& description)> onFailure;

 private:
  platform::Failure read(std::string& content) const;
  platform::Failure saveAll();

  files::FileCalls machineCalls_;
  mutable files::PosixFiles files_;
  QString folder_;
  std::string path_;
  /// Values by section and name, UTF-8, that aren't in the file yet.
  std::map<std::pair<std::string, std::string>, std::string> unsaved_;
  bool failed_ = false;
};

}  // namespace tarnvex::desktop
