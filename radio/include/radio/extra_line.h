#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "radio/chance.h"
#include "radio/outgoing.h"

namespace tarnvex::radio {

/// A line that nobody asked for, sent before or after a reply. It is described by these words, in
/// any order:
///
///   WHAT    id              the line that the radio streams in its ID modes
///           stream          the same, but only while "IDN" is in effect
///           echo            the command itself
///           copy            the reply to this command
///           previous        the reply to the last different command
///           noise           2 to 10 random bytes and a CR
///           flood [BYTES]   random letters without a CR, 65536 unless a number is given
///           text TEXT       TEXT; must come last
///   WHERE   before          between the command and its reply (the default)
///           after           directly after the reply, where it meets the next command
///           late MS         MS after the command, whatever is on the line then
///           anywhere        one of the three, at random; late is 5 to 60 ms
///   HOW     joined          in one piece with the reply
///           cut             without its CR
///           8bit            with the top bit of every character set
///           slow            one byte every 20 ms
///   WHEN    (nothing)       once
///           N               with each of the next N replies
///           every N         with one reply in N, at random
class ExtraLine {
 public:
  /// The three kinds of words, as in the table above.
  enum class What { Id, Stream, Echo, Copy, Previous, Noise, Flood, Text };
  enum class Where { Before, After, Late, Anywhere };
  enum class How { Plain, Joined, Cut, EightBit, Slow };

  static std::optional<ExtraLine> parse(std::span<const std::string> words);

  [[nodiscard]] bool isOver() const { return occasion_.isOver(); }
  /// Adds the line to the parts of a reply if it is due. `previous` is the reply to the last
  /// different command, with its CR, or empty.
  void join(std::vector<OutgoingPart>& parts, const Exchange& exchange, std::string_view previous,
            Chance& chance);

 private:
  struct Place {
    Where where;
    Instant lateness;
  };
  /// Where this one goes, by chance if it may go anywhere.
  [[nodiscard]] Place choosePlace(Chance& chance) const;
  std::size_t take(std::span<const std::string> words);
  std::size_t takeLate(double ms);
  std::size_t takeWhat(std::span<const std::string> words, std::optional<double> number);
  [[nodiscard]] std::string content(const Exchange& exchange, std::string_view previous,
                                    Chance& chance) const;
  [[nodiscard]] std::vector<OutgoingPart> shaped(std::string bytes) const;

  std::optional<What> what_;
  Where where_ = Where::Before;
  How how_ = How::Plain;
  Instant lateness_{};
  std::size_t floodBytes_ = 65536;
  std::string text_;
  std::vector<std::string> when_;
  Occasion occasion_;
};

}  // namespace tarnvex::radio
