#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "platform/non_copyable.h"
#include "platform/sequential_files.h"

namespace tarnvex::platform {

/// Dated copies of plans, made before the plan or its file is overwritten. The newest are kept.
class Backups : private NonCopyable {
 public:
  virtual ~Backups() = default;

  /// Keeps the bytes of a frequency file. `path` is the file they belong to, which names the copy;
  /// blank for a plan without a file. On success `kept` is the copy's path.
  virtual Failure keep(const std::string& path, std::string_view content, std::string& kept) = 0;
  /// The folder of the copies, without a slash at its end. Made if it isn't there.
  virtual std::string folder() = 0;

  /// True at the first call: a failure is told to the user once.
  [[nodiscard]] bool firstFailure() { return !std::exchange(failed_, true); }

 private:
  bool failed_ = false;
};

}  // namespace tarnvex::platform
