#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarnvex::radio {

/// In units of 100 Hz; 0 means none. 155.1150 MHz is 1551150.
using Frequency = std::uint32_t;

constexpr int kChannels = 300;
constexpr int kBanks = 10;
constexpr int kBankSize = 30;
constexpr int kGroups = 10;
constexpr int kSlots = 10;
constexpr int kLastTone = 39;
constexpr std::size_t kSkipLimit = 50;
constexpr std::size_t kLockedIdLimit = 100;

/// The CTCSS tones by the radio's tone number; 0 and 39 are blank.
extern const std::array<std::string_view, kLastTone + 1> kTones;

/// A stored channel. An unused or cleared one is locked out.
struct Channel {
  Frequency frequency = 0;
  bool trunked = false;
  bool delay = false;
  bool lockout = true;
  bool line = false;
  int tone = 0;

  bool operator==(const Channel&) const = default;
};

/// The types of trunked systems. Their values are the digits of the `TR` command.
enum class SystemType { Type1 = 1, Type2At800, Type2At900, Type2Uhf, Type2Vhf, Edacs };

/// "TYPE1", "E2-800" and so on, as in a `TB` reply.
std::string_view wordOf(SystemType type);

/// The trunked system of a bank. IDs are six characters ("001616", "01-157"), empty text for none.
struct TrunkBank {
  SystemType type = SystemType::Type2At800;
  Frequency base = 0;
  int step = 0;
  std::array<int, 8> blocks{};  ///< size code of each fleet-map block; kUnmapped before `FB`
  std::array<std::array<std::string, kSlots>, kGroups> ids;  ///< slot 10 is the last
  std::array<int, kGroups> prioritySlot{};                   ///< 1 to 10, 0 for none
  std::array<bool, kGroups> scanned{};                       ///< groups in the ID scan
  bool delay = true;
};
constexpr int kUnmapped = -1;

/// Everything that a radio stores: channels, trunked banks, priority channels and lockouts.
struct Memory {
  std::array<Channel, kChannels + 1> channels;  ///< 1 to 300; 0 unused
  std::array<TrunkBank, kBanks> banks;
  std::array<int, kBanks> priorityChannel{};
  std::vector<Frequency> skips;        ///< search skip list, at most kSkipLimit
  std::vector<std::string> lockedIds;  ///< at most kLockedIdLimit
};

/// 0 to 9 for channel 1 to 300.
int bankOf(int channel);
/// True if any channel of the bank is a frequency of a trunked system.
bool hasTrunkedChannel(const Memory& memory, int bank);
/// The lowest trunked channel's frequency (the control channel). 0 if there is none.
Frequency controlChannel(const Memory& memory, int bank);
/// True for the bands that the radios receive: 29-54, 108-174, 216-512, 806-956 MHz.
bool receivable(Frequency frequency);
/// Whether the bank takes the ID, apart from all zeros. It takes plain numbers up to 65535, on
/// EDACS up to 2047; "AA-FFS" on EDACS; and "BFF-SS" on Type 1 if the fleet map covers block B.
bool takesId(const TrunkBank& bank, std::string_view id);
/// The form in which an ID is stored: a plain number padded to six digits, a dashed one unchanged.
/// Empty if the text is neither.
std::string normalId(std::string_view text);
/// The number with leading zeros.
std::string digits(std::uint64_t value, int width);

}  // namespace tarnvex::radio
