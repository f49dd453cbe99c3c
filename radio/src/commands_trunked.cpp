#include <algorithm>
#include <array>

#include "radio/commands.h"
#include "radio/entry.h"
#include "radio/readings.h"
#include "radio/replies.h"
#include "radio/trunking.h"

namespace tarnvex::radio {
namespace {

using Line = std::string_view;

Slot slotAt(Line line, std::size_t from) {
  const int digit = line[from + 1] - '0';
  return {line[from] - 'A', digit == 0 ? kSlots : digit};
}

// "NG" if no group in the scan has an ID.
std::string scanGroups(State& state, Line) {
  const TrunkBank& bank = trunkBank(state);
  const auto isFull = [](const std::string& id) { return !id.empty(); };
  std::array<bool, kBanks> groups{};
  bool any = false;
  for (int group = 0; group < groupsOf(state.model); ++group) {
    groups[group] = bank.scanned[group];
    const auto& ids = bank.ids[group];
    any = any || (groups[group] && std::ranges::any_of(ids, isFull));
  }
  return any ? "IS " + letters(groups) : kNothing;
}

std::string currentId(State& state, Line) {
  const auto slot = activeSlot(state);
  return slot ? slotReply(state, *slot) : kNothing;
}

std::string readSlot(State& state, Line line) {
  const Slot slot = slotAt(line, 3);
  if (!followsIds(state.activity) || slot.group >= groupsOf(state.model)) {
    return kError;
  }
  if (state.activity == Activity::IdManual) {
    state.slot = slot;
  }
  state.entry = {};
  state.entry.slot = slot;
  return slotReply(state, slot);
}

std::string writeSlot(State& state, Line line) {
  const Slot slot = slotAt(line, 3);
  const bool taken = followsIds(state.activity) && slot.group < groupsOf(state.model) &&
                     storeId(state, slot, line.substr(6));
  return taken ? kOk : kError;
}

std::string prioritySlot(State& state, Line line) {
  const int slot = trunkBank(state).prioritySlot[line[3] - 'A'];
  return slot == 0 ? kNothing : std::string(line) + static_cast<char>('0' + slot % 10);
}

std::string setPrioritySlot(State& state, Line line) {
  const Slot slot = slotAt(line, 3);
  TrunkBank& bank = trunkBank(state);
  if (slot.group >= groupsOf(state.model)) {
    return kError;
  }
  if (bank.ids[slot.group][slot.number - 1].empty()) {
    return kError;
  }
  bank.prioritySlot[slot.group] = slot.number;
  return kOk;
}

// A new type clears the fleet map: Type 1 takes no dashed IDs until its blocks are set.
std::string setType(State& state, Line line) {
  const int type = line[5] - '0';
  const bool tuned = type == 4 || type == 5;
  if (type < 1 || type > 6 || tuned != (line.size() > 6)) {
    return kError;
  }
  TrunkBank& bank = state.memory.banks[line[3] - 'A'];
  bank.type = static_cast<SystemType>(type);
  bank.blocks.fill(kUnmapped);
  if (tuned) {
    bank.base = static_cast<Frequency>(numberAt(line, 7, 8));
    bank.step = numberAt(line, 16, 4);
  }
  programTrunk(state, line[3] - 'A');
  return kOk;
}

std::string setBlock(State& state, Line line) {
  TrunkBank& bank = state.memory.banks[line[3] - 'A'];
  const int block = line[5] - '0';
  const int size = numberAt(line, 7, 2);
  const int span = size == 14 ? 8 : size == 13 ? 4 : size == 12 ? 2 : 1;
  if (bank.type != SystemType::Type1 || block > 7 || size > 14 || block + span > 8) {
    return kError;
  }
  bank.blocks[block] = size;
  return kOk;
}

constexpr std::array kCommands{
    Command{"IS", scanGroups},      Command{"IC", currentId},
    Command{"IC @#", readSlot},     Command{"IC @# *", writeSlot},
    Command{"PI @", prioritySlot},  Command{"PI @#", setPrioritySlot},
    Command{"TR @ #", setType},     Command{"TR @ # ######## ####", setType},
    Command{"FB @ # ##", setBlock},
};

}  // namespace

std::span<const Command> trunkedCommands() {
  return kCommands;
}

}  // namespace tarnvex::radio
