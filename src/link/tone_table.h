#pragma once

#include <array>
#include <string>

namespace tarnvex::link {

/// The texts of the CTCSS tones. The index is the radio's tone number, 0 to 39; 0 and 39 are blank.
const std::array<std::string, 40>& ToneTable();

}  // namespace tarnvex::link
