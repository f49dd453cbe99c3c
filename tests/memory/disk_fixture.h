#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <string>

#include "files/posix_files.h"
#include "support/failing_calls.h"

namespace tarnvex::test {

namespace fs = std::filesystem;

/// A folder of the machine's own, and files over calls that can fail.
class DiskFiles : public testing::Test {
 protected:
  DiskFiles() {
    std::string name = (fs::temp_directory_path() / "tarnvex-files-XXXXXX").string();
    folder = ::mkdtemp(name.data());
  }
  ~DiskFiles() override { fs::remove_all(folder); }

  [[nodiscard]] std::string at(const std::string& name) const { return (folder / name).string(); }
  static std::string contentOf(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  static void put(const std::string& path, const std::string& content) {
    std::ofstream(path, std::ios::binary) << content;
  }
  [[nodiscard]] std::set<std::string> names() const {
    std::set<std::string> found;
    for (const auto& entry : fs::directory_iterator(folder)) {
      found.insert(entry.path().filename().string());
    }
    return found;
  }

  fs::path folder;
  FailingCalls calls;
  files::PosixFiles store{calls};
  platform::SequentialFiles files{store};
};

}  // namespace tarnvex::test
