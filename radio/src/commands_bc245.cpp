#include <array>

#include "radio/commands.h"
#include "radio/lockouts.h"
#include "radio/replies.h"

namespace tarnvex::radio {
namespace {

std::string identity(State&, std::string_view) {
  return identityReply();
}

std::string window(State& state, std::string_view) {
  return windowReply(state);
}

std::string trunkType(State& state, std::string_view) {
  return trunkTypeReply(state);
}

// The list may come without a blank: programs send it that way after adding letters to an empty
// list.
std::string setScanGroups(State& state, std::string_view line) {
  std::array<bool, kGroups> groups{};
  for (const char letter : line.substr(2)) {
    if (letter == ' ') {
      continue;
    }
    if (letter < 'A' || letter > 'J') {
      return kError;
    }
    groups[letter - 'A'] = true;
  }
  trunkBank(state).scanned = groups;
  return kOk;
}

std::string registerText(State&, std::string_view) {
  return kOk;
}

constexpr std::array kCommands{
    Command{"SI", identity},       Command{"WI", window},         Command{"TB", trunkType},
    Command{"IS*", setScanGroups}, Command{"SS##", skipNumber},   Command{"IL###", lockedIdNumber},
    Command{"RGN", registerText},  Command{"RG *", registerText}, Command{"RGF", registerText},
};

constexpr std::array kSwitches{
    Switch{"MU", 'N', 'A', &Switches::mute},
    Switch{"AF", 'N', 'F', &Switches::edacsDecimal},
    Switch{"AL", 'N', 'F', &Switches::autoLight},
    Switch{"AT", 'N', 'F', &Switches::attenuator},
    Switch{"BT", 'N', 'F', &Switches::statusBit},
    Switch{"FI", 'N', 'F', &Switches::frequencyId},
    Switch{"TD", 'N', 'F', &Switches::toneDetection},
    Switch{"LT", 'N', 'F', &Switches::light},
};

}  // namespace

std::span<const Command> bc245Commands() {
  return kCommands;
}

std::span<const Switch> bc245Switches() {
  return kSwitches;
}

}  // namespace tarnvex::radio
