#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/backups.h"

namespace tarnvex::test {

/// Backups in memory, named "backup 1", "backup 2" and so on.
class FakeBackups : public platform::Backups {
 public:
  platform::Failure keep(const std::string& path, std::string_view content,
                         std::string& name) override {
    if (!failure) {
      kept.emplace_back(path, content);
      name = "backup " + std::to_string(kept.size());
    }
    return failure;
  }
  std::string folder() override { return "/backups"; }

  /// The files that the copies belong to, and their bytes.
  std::vector<std::pair<std::string, std::string>> kept;
  platform::Failure failure;
};

}  // namespace tarnvex::test
