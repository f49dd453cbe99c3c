#include <array>

#include "radio/commands.h"
#include "radio/lockouts.h"
#include "radio/readings.h"
#include "radio/replies.h"

namespace tarnvex::radio {
namespace {

std::string signal(State& state, std::string_view) {
  return signalReply(state);
}

// The tone squelch is in use if it is on and the active channel has a tone.
std::string toneInUse(State& state, std::string_view) {
  const int channel = activeChannel(state);
  const bool used = channel != 0 && state.switches.ctcss && state.memory.channels[channel].tone > 0;
  return used ? "CTN" : "CTF";
}

constexpr std::array kCommands{
    Command{"SG", signal},
    Command{"CT", toneInUse},
    Command{"SS", listSkips},
    Command{"IL", listLockedIds},
};

constexpr std::array kSwitches{Switch{"MU", 'N', 'A', &Switches::mute}};

}  // namespace

std::span<const Command> bc895Commands() {
  return kCommands;
}

std::span<const Switch> bc895Switches() {
  return kSwitches;
}

}  // namespace tarnvex::radio
