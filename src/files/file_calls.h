#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include <cstddef>

#include "platform/non_copyable.h"

namespace tarnvex::files {

/// The system calls that read and write files, each as its manual page describes it: a negative
/// result is a failure, and `errno` says which. Tests replace them, so that any call can fail.
class FileCalls : private platform::NonCopyable {
 public:
  virtual ~FileCalls() = default;

  virtual int stat(const char* path, struct stat* status);
  virtual int access(const char* path, int mode);
  virtual ssize_t readlink(const char* path, char* target, std::size_t size);
  virtual int open(const char* path, int flags, mode_t mode);
  virtual int fstat(int file, struct stat* status);
  virtual ssize_t read(int file, void* bytes, std::size_t size);
  virtual ssize_t write(int file, const void* bytes, std::size_t size);
  virtual ssize_t pwrite(int file, const void* bytes, std::size_t size, off_t place);
  virtual int ftruncate(int file, off_t size);
  /// Gives a name to an open file that has none.
  virtual int giveName(int file, const char* path);
  virtual int fchown(int file, uid_t owner, gid_t group);
  virtual int fchmod(int file, mode_t mode);
  virtual int fsync(int file);
  virtual int close(int file);
  virtual int rename(const char* from, const char* to);
  virtual int unlink(const char* path);
};

}  // namespace tarnvex::files
