#include "trunking/fleet_map_form.h"

#include "link/scanner_commands.h"

namespace tarnvex::trunking {
namespace {

constexpr int kBanks = 10;
/// The radio's number for Motorola Type 1.
constexpr int kTypeOne = 1;

template <class Index>
platform::ComboBox& blockAt(std::array<platform::ComboBox, kFleetBlocks>& blocks, Index block) {
  return blocks[static_cast<std::size_t>(block)];
}

}  // namespace

Form5::Form5(link::ScannerLink& link, platform::Dialogs& dialogs) : link_(link), dialogs_(dialogs) {
  std::vector<std::string> presets;
  for (const auto& preset : fleetPresets()) {
    presets.emplace_back(preset.name);
  }
  cboPreset.setItems(presets);
  cboPreset.onClick = [this] { choosePreset(); };
  for (int block = 0; block < kFleetBlocks; ++block) {
    blockAt(cboBlock, block).setItems(sizeCodeNames());
    blockAt(cboBlock, block).onClick = [this, block] { takeBlocks(block); };
  }
  std::vector<std::string> banks;
  for (int bank = 1; bank <= kBanks; ++bank) {
    banks.push_back(std::to_string(bank));
  }
  cboBank.setItems(banks);
  Command2.onClick = [this] { save(); };
  Command1.onClick = [this] { closed.notify(); };
}

void Form5::load() {
  cboBank.setListIndex(0);
  cboPreset.setListIndex(0);
}

void Form5::choosePreset() {
  const auto& map = fleetPresets()[static_cast<std::size_t>(cboPreset.listIndex())].map;
  for (int block = 0; block < kFleetBlocks; ++block) {
    blockAt(cboBlock, block).setListIndex(map[static_cast<std::size_t>(block)]);
  }
}

/// Alignment isn't checked, except that the largest code must start at block 0.
void Form5::takeBlocks(int block) {
  const int next = block + blocksOf(blockAt(cboBlock, block).listIndex());
  if (next > kFleetBlocks) {
    refuse(block);
    return;
  }
  for (int taken = block + 1; taken < next; ++taken) {
    blockAt(cboBlock, taken).setListIndex(kTaken);
  }
}

void Form5::refuse(int block) {
  const bool all = blockAt(cboBlock, block).listIndex() == kAllBlocks;
  dialogs_.messageBox(
      all ? "That size code can only go in Block 0" : "That size code does not fit in this block",
      "Size Code Invalid", platform::kWarning);
  blockAt(cboBlock, block).setListIndex(kTaken);
}

void Form5::save() {
  const char bank = link::bankLetter(cboBank.listIndex());
  link_.SendCommand(link::command::selectChannel(1));
  link_.SendCommand(link::command::setTrunkType(std::string(1, bank), kTypeOne));
  for (int block = 0; block < kFleetBlocks; ++block) {
    const SizeCode code = blockAt(cboBlock, block).listIndex();
    if (code >= 0 && code < kTaken) {
      link_.SendCommand(link::command::setFleetBlock(bank, block, code));
    }
  }
  link_.SendCommand(link::key::kTrunk);
}

}  // namespace tarnvex::trunking
