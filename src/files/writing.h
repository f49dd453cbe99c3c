#pragma once

#include <string>
#include <string_view>

#include "files/file_calls.h"
#include "platform/non_copyable.h"

namespace tarnvex::files {

/// An error number in the words that the user is told: "Disk full".
std::string describe(int error);

/// Writes all of it, in as many calls as that takes. False on failure; `errno` says why.
bool writeAll(FileCalls& calls, int file, std::string_view content);
/// The same from a place in the file on, whose other bytes stay.
bool writeAllAt(FileCalls& calls, int file, std::string_view content, std::size_t place);

/// Closes a file when the scope ends, whichever way it ends. Keeps `errno`.
class Closing : private platform::NonCopyable {
 public:
  Closing(FileCalls& calls, int file) : calls_(calls), file_(file) {}
  ~Closing();

  [[nodiscard]] int file() const { return file_; }
  /// From here on somebody else closes it.
  int release();

 private:
  FileCalls& calls_;
  int file_;
};

}  // namespace tarnvex::files
