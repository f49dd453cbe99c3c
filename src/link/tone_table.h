#pragma once

#include <array>
#include <optional>
#include <string>

namespace tarnvex::link {

/// The texts of the CTCSS tones. The index is the radio's tone number, 0 to 39; 0 and 39 are blank.
const std::array<std::string, 40>& ToneTable();
/// The text of a tone number, or null without a number or for one that isn't in the table.
const std::string* toneText(std::optional<int> number);

}  // namespace tarnvex::link
