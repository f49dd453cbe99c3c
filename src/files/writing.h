#pragma once

#include <string>
#include <string_view>

#include "files/file_calls.h"
#include "platform/non_copyable.h"

namespace tarnvex::files {

/// The description of an error number that the user sees, such as "Disk full".
std::string describe(int error);

/// Writes the whole content, in as many calls as it takes. False on failure; `errno` says why.
bool writeAll(FileCalls& calls, int file, std::string_view content);
/// The same, starting at `place` in the file. The file's other bytes stay.
bool writeAllAt(FileCalls& calls, int file, std::string_view content, std::size_t place);

/// Closes a file at the end of the scope. Keeps `errno`.
class Closing : private platform::NonCopyable {
 public:
  Closing(FileCalls& calls, int file) : calls_(calls), file_(file) {}
  ~Closing();

  [[nodiscard]] int file() const { return file_; }
  /// Hands the file over: from now on the caller closes it.
  int release();

 private:
  FileCalls& calls_;
  int file_;
};

}  // namespace tarnvex::files
