#include "files/file_calls.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <string>

namespace tarnvex::files {

int FileCalls::stat(const char* path, struct stat* status) {
  return ::stat(path, status);
}

int FileCalls::access(const char* path, int mode) {
  return ::access(path, mode);
}

ssize_t FileCalls::readlink(const char* path, char* target, std::size_t size) {
  return ::readlink(path, target, size);
}

int FileCalls::open(const char* path, int flags, mode_t mode) {
  return ::open(path, flags, mode);
}

int FileCalls::fstat(int file, struct stat* status) {
  return ::fstat(file, status);
}

ssize_t FileCalls::read(int file, void* bytes, std::size_t size) {
  return ::read(file, bytes, size);
}

ssize_t FileCalls::write(int file, const void* bytes, std::size_t size) {
  return ::write(file, bytes, size);
}

ssize_t FileCalls::pwrite(int file, const void* bytes, std::size_t size, off_t place) {
  return ::pwrite(file, bytes, size, place);
}

int FileCalls::ftruncate(int file, off_t size) {
  return ::ftruncate(file, size);
}

int FileCalls::giveName(int file, const char* path) {
  const std::string descriptor = "/proc/self/fd/" + std::to_string(file);
  return ::linkat(AT_FDCWD, descriptor.c_str(), AT_FDCWD, path, AT_SYMLINK_FOLLOW);
}

int FileCalls::fchown(int file, uid_t owner, gid_t group) {
  return ::fchown(file, owner, group);
}

int FileCalls::fchmod(int file, mode_t mode) {
  return ::fchmod(file, mode);
}

int FileCalls::fsync(int file) {
  return ::fsync(file);
}

int FileCalls::close(int file) {
  return ::close(file);
}

int FileCalls::rename(const char* from, const char* to) {
  return ::rename(from, to);
}

int FileCalls::unlink(const char* path) {
  return ::unlink(path);
}

}  // namespace tarnvex::files
