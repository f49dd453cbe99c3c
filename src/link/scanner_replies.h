#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// What the radio answers: the words, the modes and the position of every field. They are here and
/// nowhere else.
///
/// A reply is what `ScannerLink` returns. Positions count from 1, and a reply too short for a field
/// gives an empty text, or no number. The characters between fields are never looked at. On the
/// wire a frequency is MHz times 10000 as eight digits, a bank is a letter A to J, a channel three
/// digits.
namespace tarnvex::link {

/// Replies that mean something by themselves.
namespace reply {
inline constexpr std::string_view kError = "ERR";
inline constexpr std::string_view kFault = "FER";
/// No active channel, ID or scan list.
inline constexpr std::string_view kNothing = "NG";
inline constexpr std::string_view kSquelchOpen = "+";
inline constexpr std::string_view kMuteOn = "MUN";
inline constexpr std::string_view kLockoutOn = "LON";
inline constexpr std::string_view kDelayOn = "DLN";
inline constexpr std::string_view kToneSquelchOn = "CTN";
inline constexpr std::string_view kPriorityOn = "PRN";
/// A line that the BC245XLT streams in its ID modes begins with this.
inline constexpr std::string_view kIdLine = "ID";
/// Every line that either radio streams begins with this.
inline constexpr std::string_view kStreamedId = "ID ";
}  // namespace reply

/// The modes that the core distinguishes, as "MD" answers them.
namespace mode895 {
inline constexpr std::string_view kScan = "MD00";
inline constexpr std::string_view kManual = "MD01";
inline constexpr std::string_view kSearch = "MD02";
inline constexpr std::string_view kSearchHold = "MD03";
inline constexpr std::string_view kWeather = "MD04";
inline constexpr std::string_view kWeatherHold = "MD05";
inline constexpr std::string_view kTrunkSearch = "MD06";
inline constexpr std::string_view kIdSearch = "MD07";
inline constexpr std::string_view kIdHold = "MD08";
inline constexpr std::string_view kTrunkScan = "MD09";
inline constexpr std::string_view kTrunkManual = "MD10";
inline constexpr std::string_view kTrunkSearchQuiet = "MD12";
inline constexpr std::string_view kToneEntry = "MD13";
inline constexpr std::string_view kSend = "MD15";
inline constexpr std::string_view kAuto = "MD16";
/// The radio doesn't use this code.
inline constexpr std::string_view kUnassigned = "MD11";
/// Modes that work on trunked IDs.
inline constexpr std::array kIdModes{kIdSearch, kIdHold, kTrunkScan, kTrunkManual};
}  // namespace mode895

/// Where the trunked modes come twice, the first is on a Motorola system and the second on an EDACS
/// one.
namespace mode245 {
inline constexpr std::string_view kScan = "MD00";
inline constexpr std::string_view kManual = "MD01";
inline constexpr std::string_view kSearch = "MD02";
inline constexpr std::string_view kSearchHold = "MD03";
inline constexpr std::string_view kService = "MD04";
inline constexpr std::string_view kServiceHold = "MD05";
inline constexpr std::string_view kProgram = "MD06";
inline constexpr std::string_view kProgramEdacs = "MD07";
inline constexpr std::string_view kSelectBank = "MD08";
inline constexpr std::string_view kIdSearch = "MD09";
inline constexpr std::string_view kIdSearchEdacs = "MD15";
inline constexpr std::string_view kIdHold = "MD10";
inline constexpr std::string_view kIdHoldEdacs = "MD16";
inline constexpr std::string_view kTrunkScan = "MD11";
inline constexpr std::string_view kTrunkScanEdacs = "MD17";
inline constexpr std::string_view kTrunkManual = "MD12";
inline constexpr std::string_view kTrunkManualEdacs = "MD18";
inline constexpr std::string_view kTrunkIdle = "MD13";
inline constexpr std::string_view kTrunkIdleEdacs = "MD19";
inline constexpr std::string_view kTrunkSearch = "MD14";
inline constexpr std::string_view kTrunkSearchEdacs = "MD20";
/// Whether the mode shows that the radio is in a trunked bank in manual mode. Only then can IDs be
/// read and written.
bool holdsTrunkedBank(std::string_view mode);
}  // namespace mode245

/// What the BC245XLT answers to "SI".
class IdentityReply {
 public:
  explicit IdentityReply(std::string text) : text_(std::move(text)) {}
  /// A radio that doesn't know the command is a BC895XLT.
  [[nodiscard]] bool isError() const { return text_ == reply::kError; }
  /// A BC245XLT answers with its name, and only it does.
  [[nodiscard]] bool namesModel() const;
  /// Whether this is silence or one of the answers that a radio gives. Anything else is a stray
  /// line.
  [[nodiscard]] bool isKnown() const;
  [[nodiscard]] std::string model() const;
  [[nodiscard]] std::string serialNumber() const;
  /// The version times 100.
  [[nodiscard]] std::string firmware() const;
  /// Deliberate: the poll takes one more character of the model, and reads the serial number one
  /// place further on. The about box ends up with the poll's texts.
  [[nodiscard]] std::string polledModel() const;
  [[nodiscard]] std::string polledSerialNumber() const;

 private:
  std::string text_;
};

/// What "SG" answers: signal level and frequency. "WI" answers with the same frequency field, but
/// without `level`.
class SignalReply {
 public:
  explicit SignalReply(std::string text) : text_(std::move(text)) {}
  [[nodiscard]] std::optional<int> level() const;
  /// The frequency as a number. Nothing if it isn't one.
  [[nodiscard]] std::optional<double> megahertz() const;
  /// The frequency in the form of the channel table, "0.0000". Nothing if it isn't a number.
  [[nodiscard]] std::optional<std::string> tableFrequency() const;
  /// The frequency's digits with a point between them, without leading zeros.
  [[nodiscard]] std::string shownFrequency() const;

 private:
  std::string text_;
};

/// What "MA" answers of the current channel, and the reading form of "PM" of any other; the latter
/// has no `isNothing` and no `number`.
class ChannelReply {
 public:
  explicit ChannelReply(std::string text) : text_(std::move(text)) {}
  [[nodiscard]] bool isNothing() const { return text_ == reply::kNothing; }
  /// The channel number, 1 to 300. Nothing for any other text.
  [[nodiscard]] std::optional<int> number() const;
  [[nodiscard]] std::string shownFrequency() const;
  [[nodiscard]] bool trunked() const;
  [[nodiscard]] bool delay() const;
  [[nodiscard]] bool lockout() const;
  [[nodiscard]] bool line() const;
  /// Index into `ToneTable`.
  [[nodiscard]] std::optional<int> tone() const;

 private:
  std::string text_;
};

/// What "IC" answers of the current trunked ID.
class TrunkIdReply {
 public:
  explicit TrunkIdReply(std::string text) : text_(std::move(text)) {}
  [[nodiscard]] bool isNothing() const { return text_ == reply::kNothing; }
  [[nodiscard]] std::string bank() const;
  /// The slot as shown, "1" to "10"; the radio sends 0 for 10. Empty if the reply is too short.
  [[nodiscard]] std::string slot() const;
  /// Six characters.
  [[nodiscard]] std::string id() const;
  /// Group letter and slot digit, as sent.
  [[nodiscard]] std::string place() const;

 private:
  std::string text_;
};

/// A line that the BC245XLT sends by itself in its ID modes.
class IdLine {
 public:
  explicit IdLine(std::string text) : text_(std::move(text)) {}
  [[nodiscard]] bool empty() const { return text_.empty(); }
  /// Any other line is a stray one.
  [[nodiscard]] bool isId() const { return text_.starts_with(reply::kIdLine); }
  /// Whether the line is complete: it has an ID, or says that there is none.
  [[nodiscard]] bool isWhole() const;
  [[nodiscard]] bool saysNoId() const { return text_.find('E') != std::string::npos; }
  /// Seven characters: the ID and the blank before it.
  [[nodiscard]] std::string id() const;

 private:
  std::string text_;
};

/// What "TB" answers.
class TrunkTypeReply {
 public:
  explicit TrunkTypeReply(std::string text) : text_(std::move(text)) {}
  [[nodiscard]] std::string bank() const;
  /// The type's word, up to the end of the reply: see trunking/system_type.h.
  [[nodiscard]] std::string word() const;

 private:
  std::string text_;
};

/// The lines in the answer to the list forms of "SS" and "IL" on a BC895XLT, without the closing
/// line. If the answer breaks off, its last complete line is the last one.
std::vector<std::string> listLines(std::string_view reply);
/// Whether such an answer has its closing line.
bool listIsWhole(std::string_view reply);
/// Whether an answer to `readLockout` marks the end of the list.
bool endsLockouts(std::string_view reply);
/// The entry in an answer to `readSkip` or `readLockout`, and in a line of a list.
std::string lockoutEntry(std::string_view reply);
/// An entry of a list of skipped frequencies in MHz. Nothing if it isn't a number.
std::optional<double> skippedFrequency(std::string_view entry);
/// The bank letters in the answer to "SB" or "IS", with the blank before them.
std::string bankList(std::string_view reply);
/// The bank letters in the answer to "SB" or "IS".
std::string bankLetters(std::string_view reply);
/// The BC245XLT sends "-" as this.
inline constexpr char kWireDash = '\xFE';
/// A reply of the BC245XLT with `kWireDash` replaced by "-".
std::string withDashes(std::string reply);
/// Group letter and slot digit of the priority ID in the answer to "PI ", empty if there is none.
std::string priorityPlace(std::string_view reply);
/// Whether the answer to "PI " names that slot.
bool isPriorityId(std::string_view reply, int group, int slot);
/// The priority channel in the answer to "PC ".
std::optional<int> priorityChannelOf(std::string_view reply);
/// The limit in the answer to "LL" or "LU", as "0.0000". Nothing if it isn't a number.
std::optional<std::string> searchLimit(std::string_view reply);
/// The six characters of the ID in the answer to "IDN" in ID search; empty if the reply is too
/// short.
std::string searchedId(std::string_view reply);
/// Whether the answer to "IDN" in ID search says that no ID is active.
bool saysNoId(std::string_view reply);
/// Whether an answer to "IDN" in ID search can be used: it says that no ID is active, or it holds
/// an ID.
bool answersSearch(std::string_view reply);
/// The six characters of the ID in a line streamed in ID hold; nothing if the line holds no active
/// ID.
std::optional<std::string> heldId(std::string_view line);
/// The mode at the start of an answer to "MD", which may have more text after it.
std::string modeOf(std::string_view reply);
/// Whether an answer to "MD" begins with a mode.
bool isMode(std::string_view reply);

using ModeList = std::span<const std::string_view>;
bool contains(ModeList modes, std::string_view mode);

/// Whether a text is a frequency as it is shown: up to three digits, the point, four digits.
bool readsAsFrequency(std::string_view text);
/// Whether a field of a reply is an ID or marks an empty slot: six digits, dashes or blanks.
bool readsAsId(std::string_view field);

}  // namespace tarnvex::link
