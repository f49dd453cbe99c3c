#pragma once

#include <array>
#include <string>

namespace tarnvex::memory {

/// One record of an APF file, which holds a list of frequencies for exchange with other programs. A
/// record has seven fields, each in double quotes. The enumerators index `fields`.
struct ApfRecord {
  /// The fields in their order in the file.
  enum Field : std::size_t {
    Blank,      ///< a single blank
    Channel,    ///< channel number
    Frequency,  ///< MHz
    Mode,       ///< "am " (with the blank) or "nfm"
    Delay,      ///< "d" or " "; anything but one blank means on
    Lockout,    ///< "l" or " "; anything but one blank means on
    AlphaTag,
    kFields
  };
  std::array<std::string, kFields> fields;

  [[nodiscard]] const std::string& at(Field field) const { return fields[field]; }
  /// The record as the dialogs show it, such as "118.1000 Tower".
  [[nodiscard]] std::string listed() const;
};

}  // namespace tarnvex::memory
