#pragma once

#include <string>
#include <string_view>

namespace tarnvex::memory {

/// The columns of `MSFlexGrid1`. A row is a conventional channel. Every field is text. Rows 1 to
/// 300 are ten banks of 30.
struct ChannelRecord {
  /// From left to right.
  enum Column : int {
    Number,     ///< "1" to "300"
    Frequency,  ///< MHz, "155.1150"; "0.0000" if empty; blank until the cursor has been near
    Trunk,      ///< "X" for a frequency of a trunked bank, else " "
    Delay,      ///< "X" or " "
    Lockout,    ///< "X" or " "
    Line,       ///< "X" or " "
    Ctcss,      ///< a text of `ToneTable()` or blank; typed text isn't checked
    AlphaTag,   ///< the user's own text
    kColumns
  };
  static constexpr int kRows = 300;
};

/// The columns of `MSFlexGrid2`. A row is a talkgroup slot. Every field is text. Rows 1 to 1000 are
/// ten banks of ten groups of ten slots.
struct TalkgroupRecord {
  /// From left to right.
  enum Column : int {
    Slot,  ///< "Bank A: A1" to "Bank J: J10"
    Id,  ///< "-----" if empty, six digits, or text with a "-"; blank until the cursor has been near
    AlphaTag,  ///< the user's own text
    Priority,  ///< "X", " " or blank
    kColumns
  };
  static constexpr int kRows = 1000;
};

/// Whether the text of an ID stands for none, as "-----" does.
constexpr bool meansNoId(std::string_view id) {
  return id.find("--") != std::string_view::npos;
}

/// The first row of a bank (0 to 9) in `MSFlexGrid1`.
constexpr int bankRow(int bank) {
  return 30 * bank + 1;
}

/// The channels of a bank (0 to 9), such as "31 to 60".
inline std::string bankRange(int bank) {
  return std::to_string(bankRow(bank)) + " to " + std::to_string(bankRow(bank + 1) - 1);
}

/// The first row of a group (0 to 9) of a bank (0 to 9) in `MSFlexGrid2`.
constexpr int groupRow(int bank, int group) {
  return 100 * bank + 10 * group + 1;
}

}  // namespace tarnvex::memory
