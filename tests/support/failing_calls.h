#pragma once

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <string>

#include "files/file_calls.h"

namespace tarnvex::test {

/// The machine's calls, of which the n-th one fails or kills the process. Counts the open files.
class FailingCalls : public files::FileCalls {
  using Calls = files::FileCalls;

 public:
  int stat(const char* path, struct stat* status) override {
    return fails("stat") ? -1 : Calls::stat(path, status);
  }
  int access(const char* path, int mode) override {
    if (refuseFolders && (mode & X_OK) != 0) {
      errno = EACCES;
      return -1;
    }
    return fails("access") ? -1 : Calls::access(path, mode);
  }
  int open(const char* path, int flags, mode_t mode) override {
    const int file = fails("open") ? -1 : FileCalls::open(path, flags, mode);
    opened += file >= 0 ? 1 : 0;
    return file;
  }
  int fstat(int file, struct stat* status) override {
    if (fails("fstat")) {
      return -1;
    }
    const int result = Calls::fstat(file, status);
    status->st_uid += foreignOwner ? 1 : 0;
    return result;
  }
  ssize_t read(int file, void* bytes, std::size_t size) override {
    return fails("read") ? -1 : FileCalls::read(file, bytes, size);
  }
  ssize_t pwrite(int file, const void* bytes, std::size_t size, off_t place) override {
    return fails("pwrite") ? -1 : Calls::pwrite(file, bytes, std::min(size, atMost), place);
  }
  int ftruncate(int file, off_t size) override {
    return fails("ftruncate") ? -1 : Calls::ftruncate(file, size);
  }
  int fchown(int file, uid_t owner, gid_t group) override {
    errno = EPERM;
    return refuseOwner ? -1 : Calls::fchown(file, owner, group);
  }
  ssize_t write(int file, const void* bytes, std::size_t size) override {
    return fails("write") ? -1 : FileCalls::write(file, bytes, std::min(size, atMost));
  }
  int fchmod(int file, mode_t mode) override {
    return fails("fchmod") ? -1 : Calls::fchmod(file, mode);
  }
  int fsync(int /*file*/) override { return fails("fsync") ? -1 : 0; }
  int close(int file) override {
    --opened;
    FileCalls::close(file);
    return fails("close") ? -1 : 0;
  }
  int rename(const char* from, const char* to) override {
    return fails("rename") ? -1 : Calls::rename(from, to);
  }

  /// Calls left before the one that fails.
  int failAt = 0;
  int error = ENOSPC;
  bool kills = false;
  std::string failed;
  int opened = 0;
  std::size_t atMost = std::string::npos;
  /// New files belong to somebody else, and can't be given away.
  bool foreignOwner = false;
  bool refuseOwner = false;
  /// No folder takes a new file.
  bool refuseFolders = false;

 private:
  bool fails(const char* call) {
    if (--failAt != 0) {
      return false;
    }
    if (kills) {
      std::raise(SIGKILL);
    }
    failed = call;
    errno = error;
    return true;
  }
};

}  // namespace tarnvex::test
