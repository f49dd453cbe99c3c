#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tarnvex::memory {

/// Rows of fields, as programs exchange cells on the clipboard: tabs between the fields, a line for
/// each row. A field that holds a tab, a line end or begins with a double quote is in double
/// quotes, and double quotes in it are doubled.
struct PlanBlock {
  std::vector<std::vector<std::string>> rows;
  /// Rows of the text that follow these.
  std::size_t further = 0;
};

/// Takes a text of cells apart, and keeps its first `most` rows. CR LF, CR and LF end a row, and a
/// line end at the very end begins no row. A quote that is never closed is one of the text. The
/// empty text has no rows.
PlanBlock parseBlock(std::string_view text, std::size_t most);

/// Adds a field to a text of cells, in quotes where it needs them.
void appendField(std::string& text, std::string_view field);

}  // namespace tarnvex::memory
