#include "radio/demo_plan.h"

#include <initializer_list>
#include <map>
#include <string_view>

#include "radio/built_in_memory.h"

namespace tarnvex::radio {
namespace {

std::string quoted(std::initializer_list<std::string_view> fields) {
  std::string line;
  for (const std::string_view field : fields) {
    if (!line.empty()) {
      line += ',';
    }
    line += '"' + std::string(field) + '"';
  }
  return line + "\r\n";
}

std::string_view mark(bool on) {
  return on ? "X" : " ";
}

std::string megahertz(Frequency frequency) {
  return std::to_string(frequency / 10000) + '.' + digits(frequency % 10000, 4);
}

std::string channelLine(int number, const Channel& channel, std::string_view tag) {
  return quoted({std::to_string(number), megahertz(channel.frequency), mark(channel.trunked),
                 mark(channel.delay), mark(channel.lockout), mark(channel.line),
                 kTones[channel.tone], tag});
}

std::string slotLine(char bank, char group, int slot) {
  const std::string label = std::string("Bank ") + bank + ": " + group + std::to_string(slot);
  for (const BuiltInTalkgroup& row : builtInTalkgroups()) {
    if (row.bank == bank && row.group == group && row.slot == slot) {
      return quoted({label, row.id, row.tag, row.priority ? "X" : ""});
    }
  }
  return quoted({label, "-----", "", ""});
}

std::string slotLines(char bank) {
  std::string text;
  for (char group = 'A'; group <= 'J'; ++group) {
    for (int slot = 1; slot <= kSlots; ++slot) {
      text += slotLine(bank, group, slot);
    }
  }
  return text;
}

}  // namespace

std::string demoPlan() {
  const Memory memory = builtInMemory();
  std::map<int, std::string_view> tags;
  for (const BuiltInChannel& row : builtInChannels()) {
    tags[row.number] = row.tag;
  }
  std::string text;
  for (int number = 1; number <= kChannels; ++number) {
    text += channelLine(number, memory.channels[number], tags[number]);
  }
  for (char bank = 'A'; bank <= 'J'; ++bank) {
    text += slotLines(bank);
  }
  return text;
}

}  // namespace tarnvex::radio
