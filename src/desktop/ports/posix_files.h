#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "platform/sequential_files.h"

namespace tarnvex::desktop {

/// The system calls that files are read and written with, each as its manual page tells: a negative
/// result is a failure, and `errno` says which. Replaced by tests, so that any one can fail.
class FileCalls {
 public:
  FileCalls() = default;
  virtual ~FileCalls() = default;
  FileCalls(const FileCalls&) = delete;
  FileCalls& operator=(const FileCalls&) = delete;
  FileCalls(FileCalls&&) = delete;
  FileCalls& operator=(FileCalls&&) = delete;

  virtual int stat(const char* path, struct stat* status);
  virtual int access(const char* path, int mode);
  virtual ssize_t readlink(const char* path, char* target, std::size_t size);
  virtual int open(const char* path, int flags, mode_t mode);
  virtual int fstat(int file, struct stat* status);
  virtual ssize_t read(int file, void* bytes, std::size_t size);
  virtual ssize_t write(int file, const void* bytes, std::size_t size);
  virtual int fchown(int file, uid_t owner, gid_t group);
  virtual int fchmod(int file, mode_t mode);
  virtual int fsync(int file);
  virtual int close(int file);
  virtual int rename(const char* from, const char* to);
  virtual int unlink(const char* path);
};

/// The machine's files.
///
/// Replacing a file writes a temporary one into the same folder, puts it on the disk, and renames
/// it over the old one, which keeps its mode and group. So at any moment, also after a crash, there
/// is either the old content or the new one. Only if the very last step fails, the sync of the
/// folder, is the new content in place although a failure is reported: it may not outlast a power
/// cut.
class PosixFiles : public platform::FileStore {
 public:
  explicit PosixFiles(FileCalls& calls) : calls_(calls) {}

  [[nodiscard]] bool exists(const std::string& path) override;
  [[nodiscard]] std::string inAnyCase(const std::string& path) override;
  platform::Failure openForReading(const std::string& path,
                                   std::unique_ptr<platform::ByteSource>& source) override;
  platform::Failure checkWritable(const std::string& path) override;
  platform::Failure replace(const std::string& path, std::string_view content) override;

 private:
  struct Target;

  platform::Failure findTarget(const std::string& path, Target& target);
  int openTemporary(const std::string& folder, std::string& name);
  bool fill(int file, const Target& target, std::string_view content);
  bool writeAll(int file, std::string_view content);
  bool moveInto(const Target& target, const std::string& temporary);

  FileCalls& calls_;
  unsigned temporaries_ = 0;
};

}  // namespace tarnvex::desktop
