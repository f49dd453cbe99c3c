#include "files/writing.h"

#include <cerrno>
#include <map>
#include <system_error>
#include <utility>

namespace tarnvex::files {
namespace {

/// `write` writes part of what it is given and returns how much, as the system call does.
template <class Write>
bool writeOn(std::string_view content, Write write) {
  while (!content.empty()) {
    const ssize_t count = write(content);
    if (count > 0) {
      content.remove_prefix(static_cast<std::size_t>(count));
    } else if (count == 0) {
      errno = ENOSPC;
      return false;
    } else if (errno != EINTR) {
      return false;
    }
  }
  return true;
}

}  // namespace

std::string describe(int error) {
  static const std::map<int, const char*> kDescriptions = {
      {ENOENT, "File not found"},   {ENOTDIR, "Path not found"},     {EACCES, "Permission denied"},
      {EPERM, "Permission denied"}, {EROFS, "Permission denied"},    {ENOSPC, "Disk full"},
      {EDQUOT, "Disk full"},        {EIO, "Device I/O error"},       {EMFILE, "Too many files"},
      {ENFILE, "Too many files"},   {ENAMETOOLONG, "Bad file name"}, {EINVAL, "Bad file name"},
      {ELOOP, "Bad file name"},
  };
  const auto found = kDescriptions.find(error);
  return found == kDescriptions.end() ? std::generic_category().message(error) : found->second;
}

bool writeAll(FileCalls& calls, int file, std::string_view content) {
  return writeOn(
      content, [&](std::string_view rest) { return calls.write(file, rest.data(), rest.size()); });
}

bool writeAllAt(FileCalls& calls, int file, std::string_view content, std::size_t place) {
  return writeOn(content, [&](std::string_view rest) {
    const std::size_t at = place + content.size() - rest.size();
    return calls.pwrite(file, rest.data(), rest.size(), static_cast<off_t>(at));
  });
}

Closing::~Closing() {
  if (file_ >= 0) {
    const int error = errno;
    calls_.close(file_);
    errno = error;
  }
}

int Closing::release() {
  return std::exchange(file_, -1);
}

}  // namespace tarnvex::files
