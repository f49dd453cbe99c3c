#include "radio/built_in_memory.h"

#include <array>

namespace tarnvex::radio {
namespace {

constexpr bool kPlain = false, kTrunked = true;
constexpr bool kNoDelay = false, kDelayed = true;
constexpr bool kIn = false, kOut = true;

// Tones by number: 12 is 100.0, 13 is 103.5, 16 is 114.8, 19 is 127.3, 24 is 151.4.
constexpr std::array kChannelTable{
    BuiltInChannel{1, 1551150, kPlain, kDelayed, kIn, 13, "Fire dispatch"},
    BuiltInChannel{2, 1544300, kPlain, kDelayed, kIn, 0, "Fire ground"},
    BuiltInChannel{3, 4601250, kPlain, kDelayed, kIn, 0, "Police dispatch"},
    BuiltInChannel{4, 1553400, kPlain, kNoDelay, kIn, 0, "Hospital net"},
    BuiltInChannel{5, 4539500, kPlain, kDelayed, kIn, 19, "Ambulance"},
    BuiltInChannel{6, 395000, kPlain, kDelayed, kIn, 0, "Highway patrol"},
    BuiltInChannel{7, 1512500, kPlain, kDelayed, kIn, 24, "Park rangers"},
    BuiltInChannel{8, 1542800, kPlain, kDelayed, kIn, 16, "Fire mutual aid"},
    BuiltInChannel{9, 4603750, kPlain, kNoDelay, kOut, 0, "Police tactical"},
    BuiltInChannel{31, 8562125, kTrunked, kDelayed, kIn, 0, "City trunk control"},
    BuiltInChannel{32, 8572125, kTrunked, kDelayed, kIn, 0, "City trunk 2"},
    BuiltInChannel{33, 8582125, kTrunked, kDelayed, kIn, 0, "City trunk 3"},
    BuiltInChannel{34, 8592125, kTrunked, kDelayed, kIn, 0, "City trunk 4"},
    BuiltInChannel{35, 8602125, kTrunked, kDelayed, kIn, 0, "City trunk 5"},
    BuiltInChannel{36, 8510875, kTrunked, kDelayed, kIn, 0, "City trunk 6"},
    BuiltInChannel{61, 1181000, kPlain, kDelayed, kIn, 0, "Airport tower"},
    BuiltInChannel{62, 1197000, kPlain, kDelayed, kIn, 0, "Approach north"},
    BuiltInChannel{63, 1219000, kPlain, kNoDelay, kIn, 0, "Airport ground"},
    BuiltInChannel{64, 1215000, kPlain, kDelayed, kIn, 0, "Air emergency"},
    BuiltInChannel{65, 1278500, kPlain, kNoDelay, kOut, 0, "Airport information"},
    BuiltInChannel{91, 1568000, kPlain, kDelayed, kIn, 0, "Marine 16 calling"},
    BuiltInChannel{92, 1566500, kPlain, kNoDelay, kIn, 0, "Marine 13 bridges"},
    BuiltInChannel{93, 1564500, kPlain, kDelayed, kIn, 0, "Marine 9 harbour"},
    BuiltInChannel{94, 1571000, kPlain, kDelayed, kIn, 0, "Coast guard"},
    BuiltInChannel{121, 1607700, kPlain, kDelayed, kIn, 0, "Rail road 1"},
    BuiltInChannel{122, 1604100, kPlain, kDelayed, kIn, 0, "Rail yard"},
    BuiltInChannel{123, 1611000, kPlain, kDelayed, kIn, 0, "Rail dispatcher"},
    BuiltInChannel{151, 1625500, kPlain, kNoDelay, kIn, 0, "Weather 1"},
    BuiltInChannel{152, 1624000, kPlain, kNoDelay, kIn, 0, "Weather 2"},
    BuiltInChannel{153, 1624750, kPlain, kNoDelay, kIn, 0, "Weather 3"},
    BuiltInChannel{181, 1465200, kPlain, kDelayed, kIn, 0, "Amateur simplex"},
    BuiltInChannel{182, 1469400, kPlain, kDelayed, kIn, 12, "Amateur repeater"},
    BuiltInChannel{183, 4441000, kPlain, kDelayed, kIn, 0, "Amateur UHF"},
    BuiltInChannel{211, 8554625, kTrunked, kDelayed, kIn, 0, "County trunk control"},
    BuiltInChannel{212, 8564625, kTrunked, kDelayed, kIn, 0, "County trunk 2"},
    BuiltInChannel{213, 8574625, kTrunked, kDelayed, kIn, 0, "County trunk 3"},
    BuiltInChannel{300, 9535000, kPlain, kNoDelay, kOut, 0, "Last channel"},
};

constexpr std::array kTalkgroupTable{
    BuiltInTalkgroup{'B', 'A', 1, "001616", true, "Police north"},
    BuiltInTalkgroup{'B', 'A', 2, "001648", false, "Police south"},
    BuiltInTalkgroup{'B', 'A', 3, "001680", false, "Police tactical"},
    BuiltInTalkgroup{'B', 'A', 10, "001904", false, "Police command"},
    BuiltInTalkgroup{'B', 'B', 1, "003216", true, "Fire main"},
    BuiltInTalkgroup{'B', 'B', 2, "003248", false, "Fire ground 1"},
    BuiltInTalkgroup{'B', 'B', 3, "003280", false, "Medics"},
    BuiltInTalkgroup{'B', 'C', 1, "004816", false, "Public works"},
    BuiltInTalkgroup{'B', 'C', 2, "004848", false, "City buses"},
    BuiltInTalkgroup{'B', 'E', 5, "009616", false, "Stadium events"},
    BuiltInTalkgroup{'H', 'A', 1, "04-032", true, "County roads"},
    BuiltInTalkgroup{'H', 'A', 2, "04-041", false, "County water"},
    BuiltInTalkgroup{'H', 'B', 1, "02-115", false, "Sheriff"},
};

constexpr std::array<Frequency, 5> kCityVoice{8572125, 8582125, 8592125, 8602125, 8510875};
constexpr std::array<Frequency, 2> kCountyVoice{8564625, 8574625};

void fillTalkgroups(Memory& memory) {
  for (const BuiltInTalkgroup& row : kTalkgroupTable) {
    TrunkBank& bank = memory.banks[row.bank - 'A'];
    const int group = row.group - 'A';
    bank.ids[group][row.slot - 1] = row.id;
    bank.scanned[group] = true;
    if (row.priority) {
      bank.prioritySlot[group] = row.slot;
    }
  }
}

}  // namespace

std::span<const BuiltInChannel> builtInChannels() {
  return kChannelTable;
}

std::span<const BuiltInTalkgroup> builtInTalkgroups() {
  return kTalkgroupTable;
}

Memory builtInMemory() {
  Memory memory;
  for (const BuiltInChannel& row : kChannelTable) {
    memory.channels[row.number] = {row.frequency, row.trunked, row.delay,
                                   row.lockout,   false,       row.tone};
  }
  for (int bank = 0; bank < kBanks; ++bank) {
    memory.priorityChannel[bank] = bank * kBankSize + 1;
  }
  memory.banks['H' - 'A'].type = SystemType::Edacs;
  for (TrunkBank& bank : memory.banks) {
    bank.scanned[0] = true;
  }
  fillTalkgroups(memory);
  memory.skips = {1525500, 1588200};
  memory.lockedIds = {"006416"};
  return memory;
}

std::span<const Frequency> voiceChannels(char bank) {
  using Channels = std::span<const Frequency>;
  return bank == 'B' ? Channels(kCityVoice) : bank == 'H' ? Channels(kCountyVoice) : Channels();
}

}  // namespace tarnvex::radio
