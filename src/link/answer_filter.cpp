#include "link/answer_filter.h"

#include <algorithm>
#include <array>
#include <functional>

#include "link/scanner_commands.h"
#include "platform/convert.h"

namespace tarnvex::link {
namespace {

constexpr std::string_view kKey = "KEY";
constexpr std::string_view kIds = "ID";

/// The first letters of the commands and of most answers.
constexpr std::array<std::string_view, 36> kWords{
    "AC", "AF", "AL", "AR", "AT", "BT", "CS", "CT", "DL", "FB", "FI", "IC",
    "ID", "IL", "IS", "LL", "LO", "LT", "LU", "MA", "MD", "MU", "PC", "PI",
    "PM", "PR", "SB", "SG", "SI", "SQ", "SS", "TB", "TD", "TR", "WI", kKey};

std::string_view wordAt(std::string_view text) {
  const auto* const word = std::ranges::find_if(
      kWords, [text](std::string_view word) { return text.starts_with(word); });
  return word == kWords.end() ? std::string_view() : *word;
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

bool takesAnything(std::string_view command) {
  const std::string_view word = wordAt(command);
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
  const bool asksForEntry = (command.starts_with("SS") && command.size() == 4) ||
                            (command.starts_with("IL") && command.size() == 5);
  return isBareWord || asksForEntry || asksAboutPlace(command);
}

/// Calls `line` for each line of a text in which every line ends with a carriage return.
void forEachLine(std::string_view text, const std::function<void(std::string_view)>& line) {
  for (std::size_t end = text.find('\r'); end != std::string_view::npos; end = text.find('\r')) {
    line(text.substr(0, end));
    text.remove_prefix(end + 1);
  }
}

}  // namespace

Belonging belongingOf(std::string_view command, std::string_view line) {
  const std::string_view owner = ownerOf(line);
  if (takesAnything(command) || owner.empty()) {
    return Belonging::Answer;
  }
  if (command == command::kStopIds) {
    // Every streamed line begins with the same letters as the answer to this command.
    return line.starts_with(command) ? Belonging::Answer : Belonging::Elsewhere;
  }
  if (!sharesAnswers(wordAt(command), owner) || (isQuestion(command) && line == command)) {
    return Belonging::Elsewhere;
  }
  return asksAboutPlace(command) && owner == wordAt(command) && !line.starts_with(command)
             ? Belonging::OtherPlace
             : Belonging::Answer;
}

bool isDoubtfulAnswer(std::string_view command, std::string_view line) {
  const std::string_view owner = ownerOf(line);
  return takesAnything(command) && !owner.empty() &&
         (command != command::kStreamIds || owner != kIds);
}

void ReplyReader::add(std::string_view bytes) {
  buffer_ += bytes;
  if (!complete()) {
    return;
  }
  std::string kept;
  forEachLine(buffer_, [&](std::string_view line) {
    const Belonging belonging = belongingOf(command_, line);
    if (belonging == Belonging::Answer) {
      kept.append(line).push_back('\r');
    } else if (belonging == Belonging::OtherPlace) {
      otherPlace_.assign(line).push_back('\r');
    }
  });
  buffer_ = std::move(kept);
}

std::string ReplyReader::take() {
  doubt_ = !complete();
  if (buffer_.empty()) {
    buffer_ = std::move(otherPlace_);
  }
  if (!buffer_.empty()) {
    buffer_.pop_back();
  }
  const bool owesSecond =
      command_.find('\r') != std::string::npos && buffer_.find('\r') == std::string::npos;
  doubt_ = doubt_ || owesSecond || isDoubtfulAnswer(command_, buffer_);
  return std::move(buffer_);
}

std::string withoutStrayLines(std::string_view command, std::string_view lines) {
  std::string kept;
  forEachLine(lines, [&](std::string_view line) {
    if (belongingOf(command, line) == Belonging::Answer) {
      kept.append(line).push_back('\r');
    }
  });
  return kept;
}

}  // namespace tarnvex::link
