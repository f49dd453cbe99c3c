#pragma once

#include <optional>
#include <string>

namespace tarnvex::radio {

/// The radio's end of a pseudo terminal. The other end, at path(), is what a program opens as its
/// serial port. It is raw, starts out at the given baud rate, and stays open here too, so that it
/// doesn't hang up when a program leaves.
class PseudoTerminal {
 public:
  /// Throws std::system_error.
  explicit PseudoTerminal(int baud);
  ~PseudoTerminal();
  PseudoTerminal(const PseudoTerminal&) = delete;
  PseudoTerminal(PseudoTerminal&&) = delete;
  PseudoTerminal& operator=(const PseudoTerminal&) = delete;
  PseudoTerminal& operator=(PseudoTerminal&&) = delete;

  int fd() const { return master_; }
  const std::string& path() const { return path_; }

  /// The baud rate that the other end is set to; nothing for a rate without a number.
  std::optional<int> baud() const;
  /// What has come in, up to a few thousand bytes; empty if nothing has.
  std::string read();
  /// Bytes that nobody fetches are lost, as on a line without flow control.
  void write(const std::string& bytes);

 private:
  int master_ = -1;
  int slave_ = -1;
  std::string path_;
};

/// A symbolic link with a fixed name to a terminal whose own name changes.
class StableLink {
 public:
  /// Empty path: no link.
  explicit StableLink(std::string path) : path_(std::move(path)) {}
  ~StableLink() { remove(); }
  StableLink(const StableLink&) = delete;
  StableLink(StableLink&&) = delete;
  StableLink& operator=(const StableLink&) = delete;
  StableLink& operator=(StableLink&&) = delete;

  /// Replaces the link in one step. Throws std::system_error.
  void pointTo(const std::string& target);
  /// Takes the link away, unless it has come to point elsewhere.
  void remove();

 private:
  std::string path_;
  std::string target_;
};

}  // namespace tarnvex::radio
