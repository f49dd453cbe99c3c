#pragma once

#include <string>
#include <string_view>

/// Tells the answer to a command from lines that belong to something else: a line that the radio
/// streams, a late answer to another command, an echo of the command. They are known by their first
/// letters, since nearly every answer begins with the letters of its command.
namespace tarnvex::link {

/// What a line is to the command that waits for its answer.
enum class Belonging {
  /// Its answer, or a text that could be: "ERR", "NG", "FER", "OK" and whatever isn't known.
  Answer,
  /// An answer to the same question about another channel, slot or bank.
  OtherPlace,
  /// Certainly not its answer.
  Elsewhere,
};

/// `line` is without its carriage return. Keys and "IDN" may be answered by anything.
Belonging belongingOf(std::string_view command, std::string_view line);

/// Whether a line that was taken as the answer to a key or to "IDN" looks like something else. The
/// real answer may then still be under way.
bool isDoubtfulAnswer(std::string_view command, std::string_view line);

/// Collects the answer to one command from the bytes that arrive, and drops lines that belong
/// elsewhere. Used by the exchange alone.
class ReplyReader {
 public:
  explicit ReplyReader(std::string_view command) : command_(command) {}

  void add(std::string_view bytes);
  /// Whether the answer is there.
  [[nodiscard]] bool complete() const { return buffer_.ends_with('\r'); }
  /// The answer without its last character, whatever that is. If only lines that belong elsewhere
  /// have come: nothing, or the answer about another place.
  std::string take();
  /// After `take`: whether something that belongs to this command may still be under way.
  [[nodiscard]] bool leavesDoubt() const { return doubt_; }

 private:
  std::string command_;
  std::string buffer_;
  std::string otherPlace_;
  bool doubt_ = false;
};

/// The lines of a listing that belong to it. Every line ends with a carriage return.
std::string withoutStrayLines(std::string_view command, std::string_view lines);

}  // namespace tarnvex::link
