#include "memory/cell_rules.h"

#include <algorithm>

#include "link/tone_table.h"
#include "memory/plan_records.h"
#include "platform/convert.h"

namespace tarnvex::memory {
namespace {

using Cell = std::optional<std::string>;

constexpr std::string_view kBlanks = " \t\r\n";
/// On the wire a frequency has four digits before the point.
constexpr double kFrequencyEnd = 10000;
constexpr std::size_t kMostIdDigits = 6;
constexpr std::size_t kLongestId = 10;
/// Far longer than any real tag.
constexpr std::size_t kLongestTag = 1000;

/// Reads digits with a point or a comma before the decimals. A sign or an exponent isn't allowed.
std::optional<double> toDecimal(std::string_view field) {
  std::string number(field);
  std::ranges::replace(number, ',', '.');
  if (number.find_first_not_of("0123456789.") != std::string::npos) {
    return std::nullopt;
  }
  return platform::toReal(number);
}

Cell frequencyText(std::string_view field) {
  const auto megahertz = toDecimal(field);
  return megahertz && *megahertz < kFrequencyEnd ? Cell(platform::format(*megahertz, "##0.0000"))
                                                 : std::nullopt;
}

Cell toneText(std::string_view field) {
  const auto hertz = toDecimal(field);
  const std::string text = hertz ? platform::format(*hertz, "0.0") : std::string();
  return hertz && std::ranges::find(link::ToneTable(), text) != link::ToneTable().end()
             ? Cell(text)
             : std::nullopt;
}

Cell flagText(std::string_view field) {
  return field == "X" || field == "x" ? Cell("X") : std::nullopt;
}

Cell idText(std::string_view field) {
  const bool dashed = field.find('-') != std::string_view::npos;
  if (field.find_first_not_of("0123456789-") != std::string_view::npos ||
      field.size() > (dashed ? kLongestId : kMostIdDigits)) {
    return std::nullopt;
  }
  return dashed ? std::string(field) : platform::format(field, "000000");
}

/// Line ends and tabs, which a spreadsheet's cell may contain, become blanks.
Cell tagText(std::string_view field, std::size_t limit) {
  std::string tag(field);
  std::ranges::replace_if(
      tag, [](char c) { return c == '\t' || c == '\r' || c == '\n'; }, ' ');
  const bool bad = std::ranges::any_of(
      tag, [](char c) { return c == '"' || static_cast<unsigned char>(c) < ' '; });
  return bad || tag.size() > std::min(limit, kLongestTag) ? std::nullopt : Cell(std::move(tag));
}

}  // namespace

std::string clearedCell(PlanKind kind, int col) {
  if (kind == PlanKind::Talkgroups) {
    return col == TalkgroupRecord::Id ? "-----" : "";
  }
  if (col == ChannelRecord::Frequency) {
    return "0.0000";
  }
  return col >= ChannelRecord::Trunk && col <= ChannelRecord::Line ? " " : "";
}

Cell cellText(PlanKind kind, int col, std::string_view field, std::size_t tagLimit) {
  const std::string_view value = platform::trimmed(field, kBlanks);
  if (value.empty()) {
    return clearedCell(kind, col);
  }
  const bool channels = kind == PlanKind::Channels;
  if (col == (channels ? static_cast<int>(ChannelRecord::AlphaTag) : TalkgroupRecord::AlphaTag)) {
    return tagText(field, tagLimit);
  }
  if (!channels) {
    return col == TalkgroupRecord::Id ? idText(value) : flagText(value);
  }
  if (col == ChannelRecord::Frequency) {
    return frequencyText(value);
  }
  return col == ChannelRecord::Ctcss ? toneText(value) : flagText(value);
}

}  // namespace tarnvex::memory
