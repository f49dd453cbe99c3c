#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tarnvex::memory {

/// Rows of fields, in the form in which programs exchange cells on the clipboard: tabs between the
/// fields, a line for each row. A field that holds a tab, a line end or begins with a double quote
/// is in double quotes, and double quotes in it are doubled.
struct PlanBlock {
  /// The fields of one line.
  struct Row {
    /// The first `kMostFields` at the most: no table has more columns.
    std::vector<std::string> fields;
    /// The number of fields in the text after these.
    std::size_t further = 0;
  };
  static constexpr std::size_t kMostFields = 16;

  std::vector<Row> rows;
  /// The number of rows in the text after these.
  std::size_t further = 0;
};

/// Splits a text into cells and keeps its first `most` rows. CR LF, CR and LF end a row; a line end
/// at the very end doesn't begin another one. A quote that is never closed is an ordinary
/// character. An empty text has no rows.
PlanBlock parseBlock(std::string_view text, std::size_t most);

/// Appends a field to a text of cells, in quotes if it needs them.
void appendField(std::string& text, std::string_view field);

}  // namespace tarnvex::memory
