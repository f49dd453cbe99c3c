#include "link/answer_filter.h"

#include <algorithm>
#include <array>
#include <utility>

#include "link/scanner_commands.h"
#include "link/scanner_replies.h"
#include "platform/convert.h"

namespace tarnvex::link {
namespace {

constexpr std::string_view kKey = "KEY";
constexpr std::string_view kIds = "ID";

/// The first letters of the commands and of most answers. A key is "KEY".
constexpr std::array<std::string_view, 35> kWords{
    "AC", "AF", "AL", "AR", "AT", "BT", "CS", "CT", "DL", "FB", "FI", "IC",
    "ID", "IL", "IS", "LL", "LO", "LT", "LU", "MA", "MD", "MU", "PC", "PI",
    "PM", "PR", "SB", "SG", "SI", "SQ", "SS", "TB", "TD", "TR", "WI"};

/// What any command may be answered with.
constexpr std::array<std::string_view, 4> kAnswerWords{"OK", reply::kError, reply::kNothing,
                                                       reply::kFault};

constexpr std::size_t kLetters = 26;

constexpr bool isLetter(char character) {
  return character >= 'A' && character <= 'Z';
}

constexpr std::size_t placeOf(std::string_view word) {
  return static_cast<std::size_t>(word[0] - 'A') * kLetters +
         static_cast<std::size_t>(word[1] - 'A');
}

/// Which pairs of letters are words. Every exchange looks here twice.
constexpr auto kIsWord = [] {
  std::array<bool, kLetters * kLetters> table{};
  for (const std::string_view word : kWords) {
    table[placeOf(word)] = true;
  }
  return table;
}();

std::string_view wordAt(std::string_view text) {
  if (text.size() < 2 || !isLetter(text[0]) || !isLetter(text[1])) {
    return {};
  }
  const std::string_view pair = text.substr(0, 2);
  if (kIsWord[placeOf(pair)]) {
    return pair;
  }
  return text.starts_with(kKey) ? kKey : std::string_view();
}

/// The word of the command that a line answers or repeats. Empty if it can't be told.
std::string_view ownerOf(std::string_view line) {
  if (line == "+" || line == "-") {
    return command::kSquelch;
  }
  if (line.size() > 1 && platform::isDigit(line[1])) {
    if (line[0] == 'S') {
      return command::kSignal;
    }
    if (line[0] == 'C') {
      return command::kActiveChannel;
    }
  }
  return wordAt(line);
}

bool takesAnything(std::string_view command, std::string_view word) {
  return word.empty() || word == kKey || command == command::kStreamIds;
}

/// Whether an answer that begins with `owner` can belong to a command that begins with `word`.
bool sharesAnswers(std::string_view word, std::string_view owner) {
  return word == owner || (word == "PM" && owner == command::kActiveChannel) ||
         (word == command::kReception && owner == command::kSignal);
}

/// Whether the command asks about one channel, slot, group or bank, which the answer repeats.
bool asksAboutPlace(std::string_view command) {
  return (command.starts_with("PM") && command.size() == 5) ||
         (command.starts_with("IC ") && command.size() == 5) ||
         ((command.starts_with("PC ") || command.starts_with("PI ")) && command.size() == 4);
}

/// Whether the command is a question. A question's answer is longer than the question, so a line
/// that equals it is its echo. A command that sets something may be answered by its own text.
bool isQuestion(std::string_view command) {
  const bool isBareWord = command.size() == 2 && command != command::kClearChannels;
  const bool asksForEntry =
      (command.starts_with("SS") && command.size() == 4) ||
      (command.starts_with("IL") && command.size() == 5 && platform::isDigit(command[2]));
  return isBareWord || asksForEntry || asksAboutPlace(command);
}

/// Whether the answer about a place ends before it has named the place.
bool losesPlace(std::string_view command, std::string_view line) {
  return line.size() < command.size() && asksAboutPlace(command);
}

/// Removes the lines for which `unwanted` holds. Every line ends with a carriage return.
template <class Unwanted>
void eraseLines(std::string& text, Unwanted unwanted) {
  std::size_t at = 0;
  while (at < text.size()) {
    const std::size_t size = text.find('\r', at) - at;
    if (unwanted(std::string_view(text).substr(at, size))) {
      text.erase(at, size + 1);
    } else {
      at += size + 1;
    }
  }
}

/// Setting a switch is answered by its new state, and setting banks or limits by what is set.
bool isAnsweredByItself(std::string_view command) {
  constexpr std::array kSettings{command::kScanBanks, command::kTrunkScanBanks,
                                 command::kLowerLimit, command::kUpperLimit};
  return command.size() <= 3 ||
         std::ranges::any_of(kSettings, [&](auto word) { return command.starts_with(word); });
}

bool isAnswerWord(std::string_view line) {
  return std::ranges::find(kAnswerWords, line) != kAnswerWords.end();
}

}  // namespace

Belonging belongingOf(std::string_view command, std::string_view line) {
  const std::string_view owner = ownerOf(line);
  const std::string_view word = wordAt(command);
  if (owner.empty() || takesAnything(command, word)) {
    return Belonging::Answer;
  }
  if (command == command::kStopIds) {
    // Every streamed line begins with the same letters as the answer to this command.
    return line.starts_with(command) ? Belonging::Answer : Belonging::Elsewhere;
  }
  if (!sharesAnswers(word, owner) || (line == command && isQuestion(command))) {
    return Belonging::Elsewhere;
  }
  return owner == word && !line.starts_with(command) && asksAboutPlace(command) &&
                 !losesPlace(command, line)
             ? Belonging::OtherPlace
             : Belonging::Answer;
}

bool isOwnAnswer(std::string_view command, std::string_view line) {
  return sharesAnswers(wordAt(command), ownerOf(line));
}

bool isDoubtfulAnswer(std::string_view command, std::string_view line) {
  const std::string_view owner = ownerOf(line);
  return !owner.empty() && takesAnything(command, wordAt(command)) &&
         (owner != kIds || command != command::kStreamIds);
}

bool hasKnownForm(std::string_view line) {
  return !ownerOf(line).empty() || isAnswerWord(line);
}

std::string_view strangenessOf(std::string_view command, std::string_view line) {
  const std::string_view owner = ownerOf(line);
  if ((line == command && !isAnsweredByItself(command)) ||
      (!owner.empty() && losesPlace(command, line))) {
    return wordAt(command);
  }
  return line.empty() || hasKnownForm(line) ? std::string_view() : line;
}

void ReplyReader::add(std::string bytes) {
  if (buffer_.empty()) {
    buffer_ = std::move(bytes);
  } else {
    buffer_ += bytes;
  }
  if (!complete()) {
    return;
  }
  eraseLines(buffer_, [this](std::string_view line) {
    const Belonging belonging = belongingOf(command_, line);
    if (belonging == Belonging::OtherPlace) {
      otherPlace_.assign(line).push_back('\r');
    }
    return belonging != Belonging::Answer;
  });
}

std::string ReplyReader::take() {
  cut_ = !complete();
  if (buffer_.empty()) {
    buffer_ = std::move(otherPlace_);
  }
  if (!buffer_.empty()) {
    buffer_.pop_back();
  }
  return std::move(buffer_);
}

std::string withoutStrayLines(std::string_view command, std::string lines) {
  eraseLines(lines, [command](std::string_view line) {
    return line == command || line.starts_with(reply::kStreamedId);
  });
  return lines;
}

}  // namespace tarnvex::link
