#include "radio/commands.h"

#include <algorithm>
#include <cstdlib>

namespace tarnvex::radio {
namespace {

bool fits(char pattern, char c) {
  return pattern == '#'   ? c >= '0' && c <= '9'
         : pattern == '@' ? c >= 'A' && c <= 'J'
                          : pattern == c;
}

std::vector<Command> join(std::initializer_list<std::span<const Command>> parts) {
  std::vector<Command> all;
  for (const auto part : parts) {
    all.insert(all.end(), part.begin(), part.end());
  }
  return all;
}

/// Asks for the switch, or sets it.
bool isAbout(const Switch& row, std::string_view line) {
  const std::string_view rest = line.substr(std::min(row.word.size(), line.size()));
  const bool sets = rest.size() == 1 && (rest[0] == row.on || rest[0] == row.off);
  return line.starts_with(row.word) && (rest.empty() || sets);
}

std::string answerSwitch(State& state, const Switch& row, std::string_view rest) {
  bool& value = state.switches.*row.value;
  value = rest.empty() ? value : rest[0] == row.on;
  return std::string(row.word) + (value ? row.on : row.off);
}

}  // namespace

int numberAt(std::string_view line, std::size_t from, std::size_t count) {
  return std::atoi(std::string(line.substr(from, count)).c_str());
}

std::string letters(const std::array<bool, kBanks>& banks) {
  std::string text;
  for (int bank = 0; bank < kBanks; ++bank) {
    if (banks[bank]) {
      text += static_cast<char>('A' + bank);
    }
  }
  return text;
}

bool matches(std::string_view pattern, std::string_view line) {
  if (pattern.back() == '*') {
    pattern.remove_suffix(1);
    if (line.size() < pattern.size()) {
      return false;
    }
    line = line.substr(0, pattern.size());
  }
  return std::ranges::equal(pattern, line, fits);
}

const std::vector<Command>& commandsOf(Model model) {
  static const auto kBc895All =
      join({commonCommands(), trunkedCommands(), bc895Commands(), commonKeys(), bc895Keys()});
  static const auto kBc245All =
      join({commonCommands(), trunkedCommands(), bc245Commands(), commonKeys(), bc245Keys()});
  return model == Model::BC895XLT ? kBc895All : kBc245All;
}

std::string answer(State& state, std::string_view line) {
  const bool bc895 = state.model == Model::BC895XLT;
  for (const Switch& row : bc895 ? bc895Switches() : bc245Switches()) {
    if (isAbout(row, line)) {
      return answerSwitch(state, row, line.substr(row.word.size()));
    }
  }
  for (const Command& command : commandsOf(state.model)) {
    // The first letters are a cheap check that excludes most of them.
    if (line.starts_with(command.pattern.substr(0, 2)) && matches(command.pattern, line)) {
      return command.answer(state, line);
    }
  }
  return kError;
}

}  // namespace tarnvex::radio
