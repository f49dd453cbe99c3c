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

  /// Makes a copy of a frequency file's bytes. The copy is named after the file, whose name is
  /// `path` (blank for a plan without a file). On success `kept` is the copy's path.
  virtual Failure keep(const std::string& path, std::string_view content, std::string& kept) = 0;
  /// The folder of the copies, without a slash at its end. Creates it if necessary.
  virtual std::string folder() = 0;

  /// True at the first call only, so that the user sees one message about a failure.
  [[nodiscard]] virtual bool firstFailure() { return !std::exchange(failed_, true); }

 private:
  bool failed_ = false;
};

}  // namespace tarnvex::platform
