#include "files/posix_files.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <climits>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

#include "files/writing.h"

namespace tarnvex::files {

using platform::Failure;

namespace {
constexpr int kMostLinks = 40;
constexpr int kMostTemporaries = 100;
constexpr std::size_t kBlock = std::size_t{64} << 10;
constexpr std::string_view kTemporaryStart = ".tarnvex-";
constexpr std::string_view kTemporaryEnd = ".tmp";
/// No save takes this long from its last write to the renaming.
constexpr std::chrono::minutes kStrayAge{1};

/// Why something can't be used as a file. Nothing if it can.
Failure refusal(const struct stat& status) {
  return S_ISREG(status.st_mode)   ? Failure()
         : S_ISDIR(status.st_mode) ? "This is a folder, not a file"
                                   : "This is a device, not a file";
}

/// Whether the system calls would cut the name short.
bool misread(const std::string& path) {
  return path.empty() || path.find('\0') != std::string::npos;
}

/// The folder's part of a path, with its slash. Blank for the current folder.
std::string folderPart(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
}

std::string folderName(const std::string& path) {
  const std::string folder = folderPart(path);
  return folder.empty() ? "." : folder;
}

std::string lowerCase(std::string name) {
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
  std::ranges::transform(name, name.begin(), lower);
  return name;
}

/// Whether this is a temporary file whose process was killed, so that nobody is writing it any
/// more. Its age decides, since the process may have run on another machine.
bool isStray(const std::filesystem::directory_entry& entry) {
  const std::string name = entry.path().filename().string();
  std::error_code error;
  if (!name.starts_with(kTemporaryStart) || !name.ends_with(kTemporaryEnd) ||
      entry.symlink_status(error).type() != std::filesystem::file_type::regular) {
    return false;
  }
  const auto written = entry.last_write_time(error);
  return !error && std::filesystem::file_time_type::clock::now() - written > kStrayAge;
}

class PosixSource : public platform::ByteSource {
 public:
  PosixSource(FileCalls& calls, int file) : calls_(calls), file_(calls, file) {}

  Failure read(std::string& bytes) override {
    const std::size_t before = bytes.size();
    bytes.resize(before + kBlock);
    ssize_t count = -1;
    do {
      count = calls_.read(file_.file(), bytes.data() + before, kBlock);
    } while (count < 0 && errno == EINTR);
    bytes.resize(before + static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    return count < 0 ? Failure(describe(errno)) : std::nullopt;
  }

 private:
  FileCalls& calls_;
  Closing file_;
};

}  // namespace

/// Where the content of a path goes.
struct PosixFiles::Target {
  std::string path;  ///< with all links followed
  bool exists = false;
  struct stat status = {};
};

bool PosixFiles::exists(const std::string& path) {
  if (misread(path)) {
    return false;
  }
  struct stat status = {};
  if (calls_.stat(path.c_str(), &status) == 0) {
    return !S_ISDIR(status.st_mode);
  }
  return errno != ENOENT && errno != ENOTDIR && errno != ENAMETOOLONG && errno != ELOOP;
}

std::string PosixFiles::inAnyCase(const std::string& path) {
  if (misread(path) || exists(path)) {
    return path;
  }
  const std::string folder = folderPart(path);
  const std::string wanted = lowerCase(path.substr(folder.size()));
  std::vector<std::string> alike;
  std::error_code error;
  for (std::filesystem::directory_iterator entry(folderName(path), error), end;
       !error && entry != end; entry.increment(error)) {
    std::string name = entry->path().filename().string();
    if (lowerCase(name) == wanted) {
      alike.push_back(std::move(name));
    }
  }
  return alike.empty() ? path : folder + *std::ranges::min_element(alike);
}

Failure PosixFiles::openForReading(const std::string& path,
                                   std::unique_ptr<platform::ByteSource>& source) {
  if (misread(path)) {
    return describe(EINVAL);
  }
  // Checked before opening, since opening alone can act on a device, and again once it is open,
  // since the name may belong to something else by then.
  struct stat status = {};
  if (calls_.stat(path.c_str(), &status) < 0) {
    const int error = errno;
    const bool noFolder = error == ENOENT && calls_.stat(folderName(path).c_str(), &status) < 0;
    return describe(noFolder ? ENOTDIR : error);
  }
  if (auto refused = refusal(status)) {
    return refused;
  }
  Closing file(calls_, calls_.open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, 0));
  if (file.file() < 0 || calls_.fstat(file.file(), &status) < 0) {
    return describe(errno);
  }
  if (auto refused = refusal(status)) {
    return refused;
  }
  source = std::make_unique<PosixSource>(calls_, file.release());
  return std::nullopt;
}

/// Follows links by hand, since the last one may lead to a file that doesn't exist yet.
Failure PosixFiles::followLinks(std::string& path) {
  std::array<char, PATH_MAX> link = {};
  ssize_t length = calls_.readlink(path.c_str(), link.data(), link.size());
  for (int links = 0; length >= 0; ++links) {
    if (links == kMostLinks) {
      return describe(ELOOP);
    }
    const std::string next(link.data(), static_cast<std::size_t>(length));
    path = (next.starts_with('/') ? std::string() : folderPart(path)).append(next);
    length = calls_.readlink(path.c_str(), link.data(), link.size());
  }
  return errno == EINVAL || errno == ENOENT ? Failure() : describe(errno);
}

Failure PosixFiles::findTarget(const std::string& path, Target& target) {
  if (misread(path)) {
    return describe(EINVAL);
  }
  target.path = path;
  if (auto failure = followLinks(target.path)) {
    return failure;
  }
  target.exists = calls_.stat(target.path.c_str(), &target.status) == 0;
  if (target.exists) {
    return refusal(target.status);
  }
  struct stat folder = {};
  return errno != ENOENT                                             ? describe(errno)
         : calls_.stat(folderName(target.path).c_str(), &folder) < 0 ? describe(ENOTDIR)
                                                                     : Failure();
}

Failure PosixFiles::checkWritable(const std::string& path) {
  Target target;
  if (auto failure = findTarget(path, target)) {
    return failure;
  }
  const int result = target.exists ? calls_.access(target.path.c_str(), W_OK)
                                   : calls_.access(folderName(target.path).c_str(), W_OK | X_OK);
  return result < 0 ? Failure(describe(errno)) : std::nullopt;
}

Failure PosixFiles::replace(const std::string& path, std::string_view content) {
  Target target;
  if (auto failure = findTarget(path, target)) {
    return failure;
  }
  removeStrays(folderName(target.path));
  // A folder that takes no new file leaves only the file itself to be written.
  if (target.exists && (target.status.st_nlink > 1 ||
                        calls_.access(folderName(target.path).c_str(), W_OK | X_OK) < 0)) {
    return writeInPlace(target, content);
  }
  std::string temporary;
  Closing file(calls_, openTemporary(folderPart(target.path), temporary));
  if (file.file() < 0) {
    return describe(errno);
  }
  if (target.exists && !takeOwner(file.file(), target)) {
    calls_.unlink(temporary.c_str());
    return writeInPlace(target, content);
  }
  const bool filled = fill(file.file(), target, content) && name(file.file(), target, temporary);
  const int fillError = errno;
  const bool closed = calls_.close(file.release()) == 0;
  if (filled && closed && moveInto(target, temporary)) {
    return std::nullopt;
  }
  const int error = filled ? errno : fillError;
  calls_.unlink(temporary.c_str());  // already gone if only the folder's sync failed
  return describe(error);
}

/// For files that can't be replaced by a new one, which would have another owner or group, or would
/// leave the old content under the file's other names. The bytes that need new room on the disk are
/// written first. If anything fails, the old bytes are put back.
Failure PosixFiles::writeInPlace(const Target& target, std::string_view content) {
  const Closing file(calls_, calls_.open(target.path.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC, 0));
  std::string old;
  if (file.file() < 0 || !readAll(file.file(), old)) {
    return describe(errno);
  }
  const std::size_t common = std::min(old.size(), content.size());
  const auto put = [&](std::string_view bytes) {
    return writeAllAt(calls_, file.file(), bytes.substr(std::min(common, bytes.size())), common) &&
           writeAllAt(calls_, file.file(), bytes.substr(0, common), 0) &&
           calls_.ftruncate(file.file(), static_cast<off_t>(bytes.size())) == 0 &&
           calls_.fsync(file.file()) == 0;
  };
  if (put(content)) {
    return std::nullopt;
  }
  const int error = errno;
  put(old);
  return describe(error);
}

bool PosixFiles::readAll(int file, std::string& bytes) {
  ssize_t count = 1;
  while (count != 0) {
    const std::size_t before = bytes.size();
    bytes.resize(before + kBlock);
    count = calls_.read(file, bytes.data() + before, kBlock);
    bytes.resize(before + static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    if (count < 0 && errno != EINTR) {
      return false;
    }
  }
  return true;
}

/// A file that can't be examined or removed stays. The next save tries again.
void PosixFiles::removeStrays(const std::string& folder) {
  std::error_code error;
  for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    if (isStray(*entry)) {
      calls_.unlink(entry->path().c_str());
    }
  }
}

/// Opens a new file. It has no name if the file system supports that, so that a killed process
/// leaves nothing behind; `name` is then blank.
int PosixFiles::openTemporary(const std::string& folder, std::string& name) {
  name.clear();
  const int unnamed =
      calls_.open(folder.empty() ? "." : folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0666);
  if (unnamed >= 0 || (errno != EOPNOTSUPP && errno != EISDIR && errno != EINVAL)) {
    return unnamed;
  }
  int file = -1;
  for (int tries = 0; tries < kMostTemporaries; ++tries) {
    name = temporaryName(folder);
    file = calls_.open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666);
    if (file >= 0 || errno != EEXIST) {
      break;
    }
  }
  return file;
}

/// Short, so that it fits wherever the target's name fits.
std::string PosixFiles::temporaryName(const std::string& folder) {
  return folder + std::string(kTemporaryStart) + std::to_string(::getpid()) + "-" +
         std::to_string(++temporaries_) + std::string(kTemporaryEnd);
}

/// Names a file that has no name yet.
bool PosixFiles::name(int file, const Target& target, std::string& name) {
  int result = name.empty() ? -1 : 0;
  for (int tries = 0; result < 0 && tries < kMostTemporaries; ++tries) {
    name = temporaryName(folderPart(target.path));
    result = calls_.giveName(file, name.c_str());
    if (result < 0 && errno != EEXIST) {
      return false;
    }
  }
  return result == 0;
}

/// Gives the file the target's owner and group if it has others. False if that fails.
bool PosixFiles::takeOwner(int file, const Target& target) {
  struct stat status = {};
  if (calls_.fstat(file, &status) < 0) {
    return false;
  }
  return (status.st_uid == target.status.st_uid && status.st_gid == target.status.st_gid) ||
         calls_.fchown(file, target.status.st_uid, target.status.st_gid) == 0;
}

bool PosixFiles::fill(int file, const Target& target, std::string_view content) {
  constexpr mode_t kModeBits = 07777;
  return (!target.exists || calls_.fchmod(file, target.status.st_mode & kModeBits) == 0) &&
         writeAll(calls_, file, content) && calls_.fsync(file) == 0;
}

/// Opens the folder before the renaming, so that only its sync can fail afterwards.
bool PosixFiles::moveInto(const Target& target, const std::string& temporary) {
  const Closing folder(
      calls_, calls_.open(folderName(target.path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0));
  if (folder.file() < 0 || calls_.rename(temporary.c_str(), target.path.c_str()) < 0) {
    return false;
  }
  // Some file systems can't sync a folder, and say so.
  return calls_.fsync(folder.file()) == 0 || errno == EINVAL || errno == ENOTSUP;
}

}  // namespace tarnvex::files
