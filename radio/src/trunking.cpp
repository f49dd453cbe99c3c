#include "radio/trunking.h"

#include <algorithm>

#include "radio/commands.h"

namespace tarnvex::radio {
namespace {

// Without a trunked channel in the scan the radio keeps searching until its user ends it.
std::string startBc245(State& state) {
  enter(state, Activity::TrunkSearch);
  for (int bank = 0; bank < kBanks; ++bank) {
    if (!state.scanBanks[bank] || !hasTrunkedChannel(state.memory, bank)) {
      continue;
    }
    state.trunkBank = bank;
    state.acquiredAt = state.now + kAcquire;
    break;
  }
  return kOk;
}

std::string startBc895(State& state) {
  enter(state, Activity::IdScan);
  state.bankKeyOpen = true;
  return kOk;
}

void goToBank(State& state, int bank) {
  enter(state, Activity::Manual);
  state.channel = bank * kBankSize + 1;
}

// Picks another bank to follow, switches a group of the scan, or goes to the first slot of a group.
std::string chooseWhileFollowing(State& state, int bank) {
  if (state.bankKeyOpen) {
    state.trunkBank = bank;
    enter(state, state.activity);
    return kOk;
  }
  if (bank >= groupsOf(state.model)) {
    return kError;
  }
  if (state.activity != Activity::IdManual) {
    return toggleBank(trunkBank(state).scanned, bank) ? kOk : kError;
  }
  state.slot = {bank, 1};
  return kOk;
}

}  // namespace

std::string keyTrunk(State& state, std::string_view) {
  if (programsTrunk(state.activity)) {
    state.programBank = -1;
    enter(state, state.resume);
    return kOk;
  }
  if (followsIds(state.activity) || state.activity == Activity::TrunkSearch) {
    state.bankKeyOpen = false;
    enter(state, Activity::Scan);
    return kOk;
  }
  return state.model == Model::BC895XLT ? startBc895(state) : startBc245(state);
}

std::string keyTrunkHeld(State& state, std::string_view) {
  state.resume = programsTrunk(state.activity) ? state.resume : state.activity;
  state.programBank = -1;
  enter(state, Activity::SelectBank);
  return kOk;
}

std::string keyBank(State& state, std::string_view line) {
  const int bank = line.back() - 'A';
  if (state.activity == Activity::SelectBank) {
    chooseProgramBank(state, bank);
    return kOk;
  }
  if (state.activity == Activity::ProgramTrunk || state.activity == Activity::Send) {
    return kError;
  }
  if (followsIds(state.activity)) {
    return chooseWhileFollowing(state, bank);
  }
  if (state.activity == Activity::Scan) {
    return toggleBank(state.scanBanks, bank) ? kOk : kError;
  }
  goToBank(state, bank);
  return kOk;
}

void chooseProgramBank(State& state, int bank) {
  state.programBank = bank;
  state.entry = {};
}

void programTrunk(State& state, int bank) {
  state.resume = programsTrunk(state.activity) ? state.resume : state.activity;
  state.programBank = bank;
  enter(state, Activity::ProgramTrunk);
}

bool toggleBank(std::array<bool, kBanks>& banks, int bank) {
  const auto count = std::ranges::count(banks, true);
  if (banks[bank] && count == 1) {
    return false;
  }
  banks[bank] = !banks[bank];
  return true;
}

}  // namespace tarnvex::radio
