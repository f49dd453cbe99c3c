#pragma once

#include <optional>
#include <string>

#include "radio/non_copyable.h"

namespace tarnvex::radio {

/// The radio's end of a pseudo terminal. The other end, at path(), is what a program opens as its
/// serial port. It is raw and starts at the given baud rate. This class keeps the other end open,
/// too, so that it doesn't hang up when the program closes it.
class PseudoTerminal : private NonCopyable {
 public:
  /// Throws std::system_error.
  explicit PseudoTerminal(int baud);
  ~PseudoTerminal();

  [[nodiscard]] int fd() const { return master_; }
  [[nodiscard]] const std::string& path() const { return path_; }

  /// The baud rate of the other end. Nothing if it isn't one of the usual rates.
  [[nodiscard]] std::optional<int> baud() const;
  /// The bytes that have arrived, up to a few thousand. Empty if there are none.
  std::string read();
  /// Bytes that nobody reads are lost, as on a line without flow control.
  void write(const std::string& bytes);

 private:
  int master_ = -1;
  int slave_ = -1;
  std::string path_;
};

/// A symbolic link with a fixed name to the terminal, whose own name changes.
class StableLink : private NonCopyable {
 public:
  /// With an empty path there is no link.
  explicit StableLink(std::string path) : path_(std::move(path)) {}
  ~StableLink() { remove(); }

  /// Replaces the link in one step. Throws std::system_error.
  void pointTo(const std::string& target);
  /// Removes the link, unless it points elsewhere by now.
  void remove();

 private:
  std::string path_;
  std::string target_;
};

}  // namespace tarnvex::radio
