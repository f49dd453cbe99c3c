#include "radio/memory.h"

#include <algorithm>
#include <charconv>
#include <span>

namespace tarnvex::radio {
namespace {

bool allDigits(std::string_view text) {
  return !text.empty() && std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

int number(std::string_view text) {
  int value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

// Sizes 12 to 14 also cover the following blocks.
bool isMapped(const TrunkBank& bank, int block) {
  for (int first = block; first >= 0; --first) {
    const int size = bank.blocks[first];
    const int span = size == 14 ? 8 : size == 13 ? 4 : size == 12 ? 2 : size >= 0 ? 1 : 0;
    if (first + span > block) {
      return true;
    }
  }
  return false;
}

bool takesDashed(const TrunkBank& bank, std::string_view left, std::string_view right) {
  if (!allDigits(left) || !allDigits(right)) {
    return false;
  }
  if (bank.type == SystemType::Edacs) {
    return left.size() == 2 && right.size() == 3 && number(left) <= 15 &&
           number(right.substr(0, 2)) <= 15 && right[2] <= '7';
  }
  const int block = left[0] - '0';
  return bank.type == SystemType::Type1 && left.size() == 3 && right.size() <= 2 && block <= 7 &&
         number(right) <= 15 && isMapped(bank, block);
}

}  // namespace

const std::array<std::string_view, kLastTone + 1> kTones{
    "",      "67.0",  "71.9",  "74.4",  "77.0",  "79.7",  "82.5",  "85.4",  "88.5",  "91.5",
    "94.8",  "97.4",  "100.0", "103.5", "107.2", "110.9", "114.8", "118.8", "123.0", "127.3",
    "131.8", "136.5", "141.3", "146.2", "151.4", "156.7", "162.2", "167.9", "173.8", "179.9",
    "186.2", "192.8", "203.5", "210.7", "218.1", "225.7", "233.6", "241.8", "250.3", ""};

std::string_view wordOf(SystemType type) {
  constexpr std::array<std::string_view, 6> kWords = {"TYPE1",  "E2-800", "E2-900",
                                                      "E2-UHF", "E2-VHF", "EDACS"};
  return kWords.at(static_cast<std::size_t>(type) - 1);
}

int bankOf(int channel) {
  return (channel - 1) / kBankSize;
}

bool hasTrunkedChannel(const Memory& memory, int bank) {
  return controlChannel(memory, bank) != 0;
}

Frequency controlChannel(const Memory& memory, int bank) {
  const auto channels = std::span(memory.channels).subspan(bank * kBankSize + 1, kBankSize);
  const auto control = std::ranges::find(channels, true, &Channel::trunked);
  return control == channels.end() ? 0 : control->frequency;
}

bool receivable(Frequency frequency) {
  struct Band {
    Frequency first, last;
  };
  constexpr std::array<Band, 4> kBands{
      {{290000, 540000}, {1080000, 1740000}, {2160000, 5120000}, {8060000, 9560000}}};
  return std::ranges::any_of(kBands, [frequency](const Band& band) {
    return frequency >= band.first && frequency <= band.last;
  });
}

bool takesId(const TrunkBank& bank, std::string_view id) {
  const std::size_t dash = id.find('-');
  if (dash != std::string_view::npos) {
    return takesDashed(bank, id.substr(0, dash), id.substr(dash + 1));
  }
  if (!allDigits(id) || id.size() > 6) {
    return false;
  }
  return number(id) <= (bank.type == SystemType::Edacs ? 2047 : 65535);
}

std::string normalId(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) {
    return "";
  }
  text = text.substr(first, text.find_last_not_of(' ') - first + 1);
  if (text.size() > 6) {
    return "";
  }
  if (allDigits(text)) {
    return digits(number(text), 6);
  }
  const std::size_t dash = text.find('-');
  const bool dashed = dash != std::string_view::npos && allDigits(text.substr(0, dash)) &&
                      allDigits(text.substr(dash + 1));
  return dashed ? std::string(text) : "";
}

std::string digits(std::uint64_t value, int width) {
  std::string text = std::to_string(value);
  const std::size_t missing = std::max<std::size_t>(width, text.size()) - text.size();
  return std::string(missing, '0') + text;
}

}  // namespace tarnvex::radio
