#include "link/scanner_commands.h"

#include <algorithm>

#include "platform/convert.h"

namespace tarnvex::link {
namespace {

using platform::format;
using platform::isDigit;
using platform::mid;
using platform::toInteger;
using platform::toReal;

constexpr int kChannels = 300;

/// The wire's unit is 100 Hz.
constexpr double kUnitsPerMegahertz = 10000;

/// Seven characters in the wire's unit as MHz.
std::optional<double> megahertzAt(std::string_view text, std::size_t position) {
  const auto units = toReal(mid(text, position, 7));
  return units ? std::optional(*units / kUnitsPerMegahertz) : std::nullopt;
}

std::optional<std::string> withFourDecimals(std::optional<double> megahertz) {
  return megahertz ? std::optional(format(*megahertz, "0.0000")) : std::nullopt;
}

/// Whole MHz and decimals with a point between them. The decimals aren't converted.
std::string aroundPoint(std::string_view text, std::string_view mask) {
  return format(mid(text, 8, 3), mask) + "." + mid(text, 11, 4);
}

/// A slot of trunked IDs: the group's letter and a digit, 0 for the tenth slot.
std::string idPlace(int group, int slot) {
  return bankLetter(group) + std::to_string(slot % 10);
}

}  // namespace

std::string command::scanBanks(std::string_view letters) {
  return "SB " + std::string(letters);
}

std::string command::priorityId(std::string_view groupLetter) {
  return "PI " + std::string(groupLetter);
}

std::string command::priorityChannel(char bankLetter) {
  return std::string("PC ") + bankLetter;
}

std::string command::selectChannel(int channel) {
  return "MA" + format(channel, "000");
}

std::string command::readChannel(int channel) {
  return "PM" + format(channel, "000");
}

std::string command::writeChannel(int channel, double megahertz) {
  return readChannel(channel) + " " + wireFrequency(megahertz);
}

std::string command::setTone(int index) {
  return "CS" + format(index, "00");
}

std::string command::setTrunkType(std::string_view bank, int type) {
  return "TR " + std::string(bank) + " " + std::to_string(type);
}

std::string command::setTrunkType(std::string_view bank, int type, std::string_view base,
                                  std::string_view step) {
  return setTrunkType(bank, type) + " " + std::string(base) + " " + std::string(step);
}

std::string command::readId(int group, int slot) {
  return "IC " + idPlace(group, slot);
}

std::string command::writeId(int group, int slot, std::string_view id) {
  return readId(group, slot) + " " + std::string(id);
}

std::string command::setPriorityId(int group, int slot) {
  return "PI " + idPlace(group, slot);
}

std::string command::setFleetBlock(char bankLetter, int block, int sizeCode) {
  return std::string("FB ") + bankLetter + " " + std::to_string(block) + " " +
         format(sizeCode, "00");
}

std::string command::setBankList(std::string_view word, std::string_view list) {
  return std::string(word) + std::string(list);
}

std::string command::lockId(std::string_view word, std::string_view id) {
  return std::string(word) + std::string(id);
}

std::string command::readSkip(int number) {
  return std::string(kSearchSkips) + format(number, "00");
}

std::string command::readLockout(int number) {
  return std::string(kIdLockouts) + format(number, "000");
}

std::string command::skipFrequency(double megahertz) {
  return "SS" + wireFrequency(megahertz);
}

std::string command::wireFrequency(double megahertz) {
  return format(megahertz * kUnitsPerMegahertz, "00000000");
}

std::string command::setLimit(std::string_view command, double megahertz) {
  return std::string(command) + wireFrequency(megahertz);
}

std::string key::number(int digit) {
  return "KEY02 " + std::to_string(digit);
}

std::string key::idCharacter(char character) {
  return character == '-' ? std::string(kPoint) : std::string("KEY02 ") + character;
}

std::string key::bank(char letter) {
  return std::string("KEY21 ") + letter;
}

std::string key::withLineEnd(std::string_view command) {
  return std::string(command) + "\r";
}

bool mode245::holdsTrunkedBank(std::string_view mode) {
  return mode.ends_with("12") || mode.ends_with("18");
}

bool IdentityReply::namesModel() const {
  return text_.starts_with(command::kIdentify) && !model().empty();
}

bool IdentityReply::isKnown() const {
  return text_.empty() || isError() || text_ == reply::kFault || namesModel();
}

std::string IdentityReply::model() const {
  return mid(text_, 3, 8);
}

std::string IdentityReply::serialNumber() const {
  return mid(text_, 12, 10);
}

std::string IdentityReply::firmware() const {
  return mid(text_, 24, 3);
}

std::string IdentityReply::polledModel() const {
  return mid(text_, 3, 9);
}

std::string IdentityReply::polledSerialNumber() const {
  return mid(text_, 13, 10);
}

std::optional<int> SignalReply::level() const {
  return toInteger(mid(text_, 2, 3));
}

std::optional<double> SignalReply::megahertz() const {
  return megahertzAt(text_, 8);
}

std::optional<std::string> SignalReply::tableFrequency() const {
  return withFourDecimals(megahertz());
}

std::string SignalReply::shownFrequency() const {
  return aroundPoint(text_, "###");
}

std::optional<int> ChannelReply::number() const {
  const auto number = toInteger(mid(text_, 2, 3));
  return number && *number >= 1 && *number <= kChannels ? number : std::nullopt;
}

std::string ChannelReply::shownFrequency() const {
  return aroundPoint(text_, "##0");
}

bool ChannelReply::trunked() const {
  return mid(text_, 16, 2) == "TN";
}

bool ChannelReply::delay() const {
  return mid(text_, 19, 2) == "DN";
}

bool ChannelReply::lockout() const {
  return mid(text_, 22, 2) == "LN";
}

bool ChannelReply::line() const {
  return mid(text_, 28, 2) == "RN";
}

std::optional<int> ChannelReply::tone() const {
  return toInteger(mid(text_, 32, 2));
}

std::string TrunkIdReply::bank() const {
  return mid(text_, 4, 1);
}

std::string TrunkIdReply::slot() const {
  const std::string digit = format(mid(text_, 5, 1), "0");
  return digit == "0" ? "10" : digit;
}

std::string TrunkIdReply::id() const {
  return mid(text_, 7, 6);
}

std::string TrunkIdReply::place() const {
  return mid(text_, 4, 2);
}

bool IdLine::isWhole() const {
  return isId() && (saysNoId() || readsAsId(mid(text_, 6, 6)));
}

std::string IdLine::id() const {
  return mid(text_, 5, 7);
}

std::string TrunkTypeReply::bank() const {
  return mid(text_, 4, 1);
}

std::string TrunkTypeReply::word() const {
  return mid(text_, 6);
}

std::vector<std::string> listLines(std::string_view reply) {
  std::vector<std::string> lines;
  for (std::size_t end = reply.find('\r'); end != std::string_view::npos; end = reply.find('\r')) {
    lines.emplace_back(reply.substr(0, end));
    reply.remove_prefix(end + 1);
  }
  return lines;
}

bool listIsWhole(std::string_view reply) {
  return reply == "END" || reply.ends_with("\rEND");
}

bool endsLockouts(std::string_view reply) {
  return reply == "IL ------";
}

std::string lockoutEntry(std::string_view reply) {
  return mid(reply, 3);
}

std::optional<double> skippedFrequency(std::string_view entry) {
  const auto units = toReal(entry);
  return units ? std::optional(*units / kUnitsPerMegahertz) : std::nullopt;
}

std::string bankList(std::string_view reply) {
  return mid(reply, 3);
}

std::string bankLetters(std::string_view reply) {
  return mid(reply, 4);
}

std::string withDashes(std::string reply) {
  std::ranges::replace(reply, kWireDash, '-');
  return reply;
}

std::string priorityPlace(std::string_view reply) {
  return mid(reply, 4, 2);
}

bool isPriorityId(std::string_view reply, int group, int slot) {
  // The answer has the form of the request that sets it.
  return reply.starts_with(command::setPriorityId(group, slot));
}

std::optional<int> priorityChannelOf(std::string_view reply) {
  return toInteger(mid(reply, 5, 3));
}

std::optional<std::string> searchLimit(std::string_view reply) {
  return withFourDecimals(megahertzAt(reply, 4));
}

std::string searchedId(std::string_view reply) {
  return mid(reply, 9, 6);
}

bool saysNoId(std::string_view reply) {
  return searchedId(reply).empty() || reply.find('E') != std::string_view::npos;
}

bool answersSearch(std::string_view reply) {
  return saysNoId(reply) || readsAsId(searchedId(reply));
}

std::optional<std::string> heldId(std::string_view line) {
  const std::string tail = mid(line, 4);
  std::string id = mid(tail, 3, 6);
  return tail.starts_with('S') && readsAsId(id) ? std::optional(std::move(id)) : std::nullopt;
}

std::string modeOf(std::string_view reply) {
  return mid(reply, 1, 4);
}

bool isMode(std::string_view reply) {
  return reply.size() >= 4 && reply.starts_with(command::kMode) && isDigit(reply[2]) &&
         isDigit(reply[3]);
}

bool readsAsFrequency(std::string_view text) {
  const std::size_t point = text.find('.');
  return point >= 1 && point <= 3 && text.size() == point + 5 &&
         std::ranges::count_if(text, isDigit) == static_cast<std::ptrdiff_t>(text.size() - 1);
}

bool readsAsId(std::string_view field) {
  return field.size() == 6 && std::ranges::all_of(field, [](char c) {
           return isDigit(c) || c == '-' || c == ' ' || c == kWireDash;
         });
}

bool contains(ModeList modes, std::string_view mode) {
  return std::ranges::find(modes, mode) != modes.end();
}

}  // namespace tarnvex::link
