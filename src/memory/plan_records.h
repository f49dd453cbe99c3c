#pragma once

#include <string>

namespace tarnvex::memory {

/// One row of `MSFlexGrid1`, a conventional channel; the values are its columns. Every field is
/// text. Rows 1 to 300, in ten banks of 30.
struct ChannelRecord {
  enum Column : int {
    Number,     ///< "1" to "300"
    Frequency,  ///< MHz, "155.1150"; "0.0000" is an empty channel; blank until the cursor came by
    Trunk,      ///< "X" for a frequency of a trunked bank, else " "
    Delay,      ///< "X" or " "
    Lockout,    ///< "X" or " "
    Line,       ///< "X" or " "
    Ctcss,      ///< a text of `ToneTable()` or blank; what was typed isn't checked
    AlphaTag,   ///< the user's own text
    kColumns
  };
  static constexpr int kRows = 300;
};

/// One row of `MSFlexGrid2`, a talkgroup slot; the values are its columns. Every field is text.
/// Rows 1 to 1000: ten banks of ten groups of ten slots.
struct TalkgroupRecord {
  enum Column : int {
    Slot,      ///< "Bank A: A1" to "Bank J: J10"
    Id,        ///< "-----" if empty, six digits, or a text with a "-"; blank until visited
    AlphaTag,  ///< the user's own text
    Priority,  ///< "X", " " or blank
    kColumns
  };
  static constexpr int kRows = 1000;
};

/// The row of `MSFlexGrid1` at which a bank (0 to 9) begins.
constexpr int bankRow(int bank) {
  return 30 * bank + 1;
}

/// The channels of a bank (0 to 9), such as "31 to 60".
inline std::string bankRange(int bank) {
  return std::to_string(bankRow(bank)) + " to " + std::to_string(bankRow(bank + 1) - 1);
}

/// The row of `MSFlexGrid2` at which a group (0 to 9) of a bank (0 to 9) begins.
constexpr int groupRow(int bank, int group) {
  return 100 * bank + 10 * group + 1;
}

}  // namespace tarnvex::memory
