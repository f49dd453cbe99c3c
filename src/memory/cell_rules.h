#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarnvex::memory {

/// One of the plan's tables: `MSFlexGrid1` or `MSFlexGrid2`.
enum class PlanKind { Channels, Talkgroups };

/// The text of a cleared cell: "0.0000" for a frequency, "-----" for an ID, a blank for a channel's
/// flag.
std::string clearedCell(PlanKind kind, int col);

/// The cell's text for a field from outside, such as the clipboard, in its normal form: "162,45"
/// gives "162.4500", "x" gives "X". A blank field clears the cell. Nothing if the column can't hold
/// the field: a letter in a frequency, a tone that doesn't exist, a tag of more than `tagLimit`
/// characters, or one with a double quote, which the frequency file can't hold.
std::optional<std::string> cellText(PlanKind kind, int col, std::string_view field,
                                    std::size_t tagLimit);

}  // namespace tarnvex::memory
