#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "radio/state.h"

namespace tarnvex::radio {

/// One form of a command line. In the pattern '#' stands for a digit, '@' for a bank letter A to J,
/// and '*' at the end for any text. All other characters, and the first two in any case, stand for
/// themselves. `answer` gets the whole line and returns the reply without its final CR.
struct Command {
  std::string_view pattern;
  std::string (*answer)(State& state, std::string_view line);
};

bool matches(std::string_view pattern, std::string_view line);

/// All commands of a model, including its keys. The first match counts.
const std::vector<Command>& commandsOf(Model model);

/// The tables from which commandsOf() is put together.
std::span<const Command> commonCommands();
std::span<const Command> trunkedCommands();
std::span<const Command> bc895Commands();
std::span<const Command> bc245Commands();
std::span<const Command> commonKeys();
std::span<const Command> bc895Keys();
std::span<const Command> bc245Keys();

/// A switch with three commands: the bare word reads it, the word followed by `on` or `off` sets
/// it. The reply is always the word followed by the letter of the switch's state.
struct Switch {
  std::string_view word;
  char on;
  char off;
  bool Switches::*value;
};
std::span<const Switch> bc895Switches();
std::span<const Switch> bc245Switches();

/// The number in `count` characters from index `from` on. 0 if there is none.
int numberAt(std::string_view line, std::size_t from, std::size_t count);
/// The letters of the banks that are set: "AC" for the first and the third.
std::string letters(const std::array<bool, kBanks>& banks);

/// The reply to any line. "ERR" if it isn't a command of the model.
std::string answer(State& state, std::string_view line);

inline const std::string kOk = "OK";
inline const std::string kError = "ERR";
inline const std::string kNothing = "NG";

}  // namespace tarnvex::radio
