#pragma once

#include <string>
#include <string_view>

/// Distinguishes the answer to a command from other lines: one that the radio streams, a late
/// answer to another command, an echo of the command. It looks at the first letters, since nearly
/// every answer begins with the letters of its command.
namespace tarnvex::link {

/// What a line is to the command that waits for its answer.
enum class Belonging {
  /// Its answer, or a text that could be: "ERR", "NG", "FER", "OK" and anything unknown.
  Answer,
  /// An answer to the same question about another channel, slot or bank.
  OtherPlace,
  /// Not its answer.
  Elsewhere,
};

/// `line` is without its carriage return. Keys and "IDN" may be answered by anything.
Belonging belongingOf(std::string_view command, std::string_view line);

/// Whether a line has the form of an answer to that command, or of an answer with the same layout.
bool isOwnAnswer(std::string_view command, std::string_view line);

/// Whether a line that was accepted as the answer to a key or to "IDN" looks like something else.
/// The real answer may then still be on its way.
bool isDoubtfulAnswer(std::string_view command, std::string_view line);

/// Whether a line has the form of an answer to any command. Noise and other devices' lines have
/// not.
bool hasKnownForm(std::string_view line);

/// What is strange in an answer that was taken; empty if nothing is. A line of no known form may be
/// noise before the answer, the echo of a command that sets something looks like an answer, and so
/// does an answer that has lost its end. But each may be how this radio answers: then the next such
/// answer is strange in the same way.
std::string_view strangenessOf(std::string_view command, std::string_view line);

/// Collects the answer to one command from the bytes that arrive, and drops lines that belong
/// elsewhere. Used only by the exchange. The command outlives it.
class ReplyReader {
 public:
  explicit ReplyReader(std::string_view command) : command_(command) {}

  void add(std::string bytes);
  /// Whether the answer has arrived.
  [[nodiscard]] bool complete() const { return buffer_.ends_with('\r'); }
  /// The answer without its last character, whatever that is. If only lines that belong elsewhere
  /// have come, the answer about another place or nothing.
  std::string take();
  /// After `take`: whether the limit was reached first, so that the rest may still be on its way.
  [[nodiscard]] bool wasCut() const { return cut_; }

 private:
  std::string_view command_;
  std::string buffer_;
  std::string otherPlace_;
  bool cut_ = false;
};

/// The listing without streamed IDs and echoes. Other lines stay, since any of them may be an entry
/// that has lost a character. Every line ends with a carriage return.
std::string withoutStrayLines(std::string_view command, std::string lines);

}  // namespace tarnvex::link
