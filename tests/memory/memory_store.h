#pragma once

#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "platform/sequential_files.h"

namespace tarnvex::test {

/// Files in memory. Reads return small pieces, so that fields are split between pieces.
class MemoryStore : public platform::FileStore {
 public:
  [[nodiscard]] bool exists(const std::string& path) override { return files.count(path) > 0; }
  [[nodiscard]] std::string inAnyCase(const std::string& path) override { return path; }
  platform::Failure openForReading(const std::string& path,
                                   std::unique_ptr<platform::ByteSource>& source) override {
    if (!exists(path)) {
      return "File not found";
    }
    source = std::make_unique<Source>(files[path], piece, readable);
    return std::nullopt;
  }
  platform::Failure checkWritable(const std::string& path) override {
    return path.starts_with("no/") ? platform::Failure("Path not found") : std::nullopt;
  }
  platform::Failure replace(const std::string& path, std::string_view content) override {
    if (!full) {
      files[path] = content;
    }
    return full ? platform::Failure("Disk full") : std::nullopt;
  }

  std::map<std::string, std::string> files;
  std::size_t piece = 3;
  /// Reading a file fails after this many bytes.
  std::size_t readable = std::string::npos;
  bool full = false;

 private:
  class Source : public platform::ByteSource {
   public:
    Source(std::string content, std::size_t piece, std::size_t readable)
        : content_(std::move(content)), piece_(piece), readable_(readable) {}
    platform::Failure read(std::string& bytes) override {
      if (position_ >= readable_) {
        return "Device I/O error";
      }
      const std::string next = content_.substr(std::min(position_, content_.size()), piece_);
      bytes += next;
      position_ += next.size();
      return std::nullopt;
    }

   private:
    std::string content_;
    std::size_t piece_;
    std::size_t readable_;
    std::size_t position_ = 0;
  };
};

}  // namespace tarnvex::test
