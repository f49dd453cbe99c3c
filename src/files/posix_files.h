#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "files/file_calls.h"
#include "platform/sequential_files.h"

namespace tarnvex::files {

/// The machine's files.
///
/// Replacing a file writes a new one into the same folder, syncs it, and renames it over the old
/// one. Mode, owner and group are kept. So at any moment, even after a crash, the file has either
/// its old content or its new one. Only if the very last step fails, the sync of the folder, is the
/// new content in place although a failure is reported: it may not survive a power cut. A process
/// that is killed just before the renaming, or on a file system without unnamed files, leaves its
/// temporary file behind; a later save into the folder removes it.
///
/// A file that has several names, or an owner or group that a new file can't be given, is written
/// in place. A failure then puts the old bytes back, but a process that is killed in the middle
/// leaves a mixture.
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

  platform::Failure followLinks(std::string& path);
  platform::Failure findTarget(const std::string& path, Target& target);
  void removeStrays(const std::string& folder);
  platform::Failure writeInPlace(const Target& target, std::string_view content);
  bool readAll(int file, std::string& bytes);
  int openTemporary(const std::string& folder, std::string& name);
  std::string temporaryName(const std::string& folder);
  bool name(int file, const Target& target, std::string& name);
  bool takeOwner(int file, const Target& target);
  bool fill(int file, const Target& target, std::string_view content);
  bool moveInto(const Target& target, const std::string& temporary);

  FileCalls& calls_;
  unsigned temporaries_ = 0;
};

}  // namespace tarnvex::files
