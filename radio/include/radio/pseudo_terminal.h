#pragma once

#include <optional>
#include <string>

#include "radio/non_copyable.h"

namespace tarnvex::radio {

/// The radio's end of a pseudo terminal. The other end, at path(), is what a program opens as its
/// serial port. It is raw and starts at the given baud rate. It is kept open here too, so that it
/// doesn't hang up when the program closes it.
class PseudoTerminal : private NonCopyable {
 public:
  /// Throws std::system_error.
  explicit PseudoTerminal(int baud);
  ~PseudoTerminal();

  [[nodiscard]] int fd() const { return master_; }
  [[nodiscard]] const std::string& path() const { return path_; }

  /// The baud rate that the other end is set to; nothing for a rate without a number.
  [[nodiscard]] std::optional<int> baud() const;
  /// What has come in, up to a few thousand bytes; empty if nothing has.
  std::string read();
  /// Bytes that nobody fetches are lost, as on a line without flow control.
  void write(const std::string& bytes);

 private:
  int master_ = -1;
  int slave_ = -1;
  std::string path_;
};

/// A symbolic link with a fixed name to the terminal, whose own name changes.
class StableLink : private NonCopyable {
 public:
  /// Empty path: no link.
  explicit StableLink(std::string path) : path_(std::move(path)) {}
  ~StableLink() { remove(); }

  /// Replaces the link in one step. Throws std::system_error.
  void pointTo(const std::string& target);
  /// Takes the link away, unless it has come to point elsewhere.
  void remove();

 private:
  std::string path_;
  std::string target_;
};

}  // namespace tarnvex::radio
