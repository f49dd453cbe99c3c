#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "files/file_calls.h"
#include "platform/backups.h"
#include "platform/clock.h"

namespace tarnvex::files {

/// Which of these copies may be removed: all except the newest 50 and the newest of each of the
/// last 31 days. Files that aren't copies are never among them. `today` begins with a date such as
/// "2026-03-01".
std::vector<std::string> superfluousBackups(std::vector<std::string> names, std::string_view today);

/// Keeps the backups as files in the folder `backups` of the program's directory. A copy of
/// "plan.tvf" is called "plan 2026-03-01 14-05-59.tvf". The folder is created when it is needed.
class BackupFolder : public platform::Backups {
 public:
  /// `programDirectory` has no slash at its end.
  BackupFolder(FileCalls& calls, const platform::Clock& clock, const std::string& programDirectory)
      : calls_(calls), clock_(clock), folder_(programDirectory + "/backups") {}

  platform::Failure keep(const std::string& path, std::string_view content,
                         std::string& kept) override;
  std::string folder() override;

 private:
  platform::Failure create(const std::string& start, std::string_view content, std::string& kept);
  void thin();

  FileCalls& calls_;
  const platform::Clock& clock_;
  std::string folder_;
};

}  // namespace tarnvex::files
