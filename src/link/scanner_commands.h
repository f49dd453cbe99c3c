#pragma once

#include <string>
#include <string_view>

#include "link/scanner_replies.h"

/// What the program sends: every command text is here and nowhere else. A request is shown without
/// its carriage return. What the radio answers is in `scanner_replies.h`.
namespace tarnvex::link {

/// Requests that have no argument.
namespace command {
inline constexpr std::string_view kIdentify = "SI";
inline constexpr std::string_view kMode = "MD";
inline constexpr std::string_view kSignal = "SG";
/// Signal level and frequency of a BC245XLT.
inline constexpr std::string_view kReception = "WI";
inline constexpr std::string_view kSquelch = "SQ";
inline constexpr std::string_view kActiveChannel = "MA";
inline constexpr std::string_view kActiveId = "IC";
inline constexpr std::string_view kScanBanks = "SB";
inline constexpr std::string_view kTrunkScanBanks = "IS";
inline constexpr std::string_view kMute = "MU";
inline constexpr std::string_view kMuteOn = "MUN";
inline constexpr std::string_view kMuteOff = "MUA";
inline constexpr std::string_view kLockout = "LO";
inline constexpr std::string_view kLockoutOn = "LON";
inline constexpr std::string_view kLockoutOff = "LOF";
inline constexpr std::string_view kDelay = "DL";
inline constexpr std::string_view kDelayOn = "DLN";
inline constexpr std::string_view kDelayOff = "DLF";
/// The `Line` flag of the current channel.
inline constexpr std::string_view kLineOn = "ARN";
inline constexpr std::string_view kLineOff = "ARF";
inline constexpr std::string_view kToneSquelch = "CT";
inline constexpr std::string_view kPriority = "PR";
inline constexpr std::string_view kLowerLimit = "LL";
inline constexpr std::string_view kUpperLimit = "LU";
inline constexpr std::string_view kStreamIds = "IDN";
inline constexpr std::string_view kStopIds = "IDF";
inline constexpr std::string_view kSearchSkips = "SS";
inline constexpr std::string_view kIdLockouts = "IL";
/// The trunked bank in use and its system type; BC245XLT only.
inline constexpr std::string_view kTrunkType = "TB";
/// Empties all channels of the radio.
inline constexpr std::string_view kClearChannels = "AC";
/// Not a command of the radio. Sent after a change of the baud rate to provoke any answer.
inline constexpr std::string_view kProvoke = "TEST";

/// Select the banks in the scan.
std::string scanBanks(std::string_view letters);
/// Ask for the priority slot of a group of trunked IDs. The letter is the group's, as in a reply.
std::string priorityId(std::string_view groupLetter);
/// Ask for the priority channel of a bank.
std::string priorityChannel(char bankLetter);
/// Select a channel (1 to 300): the radio goes there, and the flag and tone commands act on it.
std::string selectChannel(int channel);
/// Read a channel: see `ChannelReply`.
std::string readChannel(int channel);
/// Write the frequency of a channel, in MHz; 0 empties it.
std::string writeChannel(int channel, double megahertz);
/// Give the selected channel the tone with this index in `ToneTable`.
std::string setTone(int index);
/// Set the system type of a trunked bank. `bank` is its letter as in `TrunkTypeReply`, `type` the
/// type's number.
std::string setTrunkType(std::string_view bank, int type);
/// The same for a type with a base frequency and a step, of eight and four digits as on the wire.
std::string setTrunkType(std::string_view bank, int type, std::string_view base,
                         std::string_view step);
/// Read a slot (1 to 10) of a group (0 to 9) of trunked IDs: see `TrunkIdReply`.
std::string readId(int group, int slot);
/// Write a slot of a BC245XLT. The ID is sent as it is; after an empty one the command ends with a
/// blank.
std::string writeId(int group, int slot, std::string_view id);
/// Make a slot the priority ID of its group.
std::string setPriorityId(int group, int slot);
/// Give a block (0 to 7) of a bank's fleet map a size code.
std::string setFleetBlock(char bankLetter, int block, int sizeCode);
/// Set the banks that a BC245XLT scans. `word` is `kScanBanks` or `kTrunkScanBanks`; `list` is what
/// `bankList` cuts out of the answer to it, with the blank before it.
std::string setBankList(std::string_view word, std::string_view list);
/// Lock an ID out or unlock it. `word` is one of `LockoutWords`.
std::string lockId(std::string_view word, std::string_view id);
/// Read one entry of the BC245XLT's list of skipped frequencies (1 to 50) or locked-out IDs (1 to
/// 100).
std::string readSkip(int number);
std::string readLockout(int number);
/// Put a frequency, in MHz, on the list of skipped frequencies.
std::string skipFrequency(double megahertz);
/// A frequency in MHz as on the wire.
std::string wireFrequency(double megahertz);
/// Set a search limit (`kLowerLimit` or `kUpperLimit`), in MHz.
std::string setLimit(std::string_view command, double megahertz);
}  // namespace command

/// The words before an ID that lock it out and unlock it. The BC245XLT sends its IDs with a leading
/// blank and takes them back the same way.
struct LockoutWords {
  std::string_view lock;
  std::string_view unlock;
};
inline constexpr LockoutWords kLockout895{"ILR ", "ILD "};
inline constexpr LockoutWords kLockout245{"ILR", "ILD"};

/// A switch of the radio. The bare word asks for its state, and the answer is `on` or `off`. Any
/// answer other than `on` counts as off.
struct Switch {
  std::string_view read;
  std::string_view on;
  std::string_view off;

  [[nodiscard]] std::string_view form(bool set) const { return set ? on : off; }
};
inline constexpr Switch kMuteSwitch{command::kMute, command::kMuteOn, command::kMuteOff};
/// Of the current channel.
inline constexpr Switch kDelaySwitch{command::kDelay, command::kDelayOn, command::kDelayOff};
inline constexpr Switch kLockoutSwitch{command::kLockout, command::kLockoutOn,
                                       command::kLockoutOff};
/// Can only be set. `ChannelReply` has its state.
inline constexpr Switch kLineSwitch{{}, command::kLineOn, command::kLineOff};
/// The next ones exist only on the BC245XLT.
inline constexpr Switch kEdacsDecimal{"AF", "AFN", "AFF"};
inline constexpr Switch kAutoLight{"AL", "ALN", "ALF"};
inline constexpr Switch kAttenuator{"AT", "ATN", "ATF"};
inline constexpr Switch kStatusBit{"BT", "BTN", "BTF"};
inline constexpr Switch kFrequencyId{"FI", "FIN", "FIF"};
inline constexpr Switch kToneDetection{"TD", "TDN", "TDF"};
inline constexpr Switch kLight{"LT", "LTN", "LTF"};

/// Keys of the radio's front.
namespace key {
inline constexpr std::string_view kScan = "KEY00";
inline constexpr std::string_view kManual = "KEY01";
/// The point, or "-" in an ID.
inline constexpr std::string_view kPoint = "KEY03";
inline constexpr std::string_view kEnter = "KEY04";
inline constexpr std::string_view kPriority = "KEY05";
inline constexpr std::string_view kPriorityHeld = "KEY05H";
inline constexpr std::string_view kLockout = "KEY06";
inline constexpr std::string_view kLockoutHeld = "KEY06H";
inline constexpr std::string_view kHold = "KEY07";
inline constexpr std::string_view kHoldHeld = "KEY07H";
inline constexpr std::string_view kLimit = "KEY08";
inline constexpr std::string_view kLimitHeld = "KEY08H";
/// A step of the knob is one of these two keys.
inline constexpr std::string_view kKnobUp = kHold;
inline constexpr std::string_view kKnobDown = kLimit;
inline constexpr std::string_view kSearch = "KEY09";
/// Weather on the BC895XLT, service search on the BC245XLT.
inline constexpr std::string_view kWeather = "KEY10";
inline constexpr std::string_view kData = "KEY11";
inline constexpr std::string_view kDelay = "KEY12";
inline constexpr std::string_view kDelayHeld = "KEY12H";
inline constexpr std::string_view kTrunk = "KEY13";
inline constexpr std::string_view kTrunkHeld = "KEY13H";
inline constexpr std::string_view kLight = "KEY14";
inline constexpr std::string_view kLightHeld = "KEY14H";
inline constexpr std::string_view kStep = "KEY15";
inline constexpr std::string_view kAux = "KEY16";
inline constexpr std::string_view kSend = "KEY18";
inline constexpr std::string_view kAuto = "KEY19";
inline constexpr std::string_view kTone = "KEY20";
inline constexpr std::string_view kToneHeld = "KEY20H";
/// A digit, or 10 for the tenth bank of the BC245XLT.
std::string number(int digit);
/// The key for a character of an ID: the point key for "-", otherwise a digit key.
std::string idCharacter(char character);
std::string bank(char letter);
/// The command with a line end of its own, so that the radio gets two. It answers both; the next
/// exchange discards the second answer.
std::string withLineEnd(std::string_view command);
}  // namespace key

/// The letter of bank index 0 to 9.
constexpr char bankLetter(int index) {
  return static_cast<char>('A' + index);
}

}  // namespace tarnvex::link
