#include "memory/plan_block.h"

#include <optional>
#include <utility>

namespace tarnvex::memory {
namespace {

constexpr char kQuote = '"';
constexpr std::string_view kEnds = "\t\r\n";

/// Returns the quoted field that begins at `position`, and moves `position` past its closing quote.
/// Nothing if the quote is never closed.
std::optional<std::string> takeQuoted(std::string_view text, std::size_t& position) {
  std::string field;
  std::size_t at = position + 1;
  for (;;) {
    const std::size_t quote = text.find(kQuote, at);
    if (quote == std::string_view::npos) {
      return std::nullopt;
    }
    field += text.substr(at, quote - at);
    at = quote + 1;
    if (at == text.size() || text[at] != kQuote) {
      position = at;
      return field;
    }
    field += kQuote;
    ++at;
  }
}

std::string takeField(std::string_view text, std::size_t& position) {
  std::string field;
  if (position < text.size() && text[position] == kQuote) {
    field = takeQuoted(text, position).value_or(std::string());
  }
  const std::size_t end = std::min(text.find_first_of(kEnds, position), text.size());
  field += text.substr(position, end - position);
  position = end;
  return field;
}

PlanBlock::Row takeRow(std::string_view text, std::size_t& position) {
  PlanBlock::Row row;
  row.fields.push_back(takeField(text, position));
  while (position < text.size() && text[position] == '\t') {
    std::string field = takeField(text, ++position);
    if (row.fields.size() < PlanBlock::kMostFields) {
      row.fields.push_back(std::move(field));
    } else {
      ++row.further;
    }
  }
  return row;
}

}  // namespace

PlanBlock parseBlock(std::string_view text, std::size_t most) {
  PlanBlock block;
  for (std::size_t position = 0; position < text.size();) {
    PlanBlock::Row row = takeRow(text, position);
    if (block.rows.size() < most) {
      block.rows.push_back(std::move(row));
    } else {
      ++block.further;
    }
    position += text.substr(position).starts_with("\r\n") ? 2 : 1;
  }
  return block;
}

void appendField(std::string& text, std::string_view field) {
  if (field.find_first_of(kEnds) == std::string_view::npos && !field.starts_with(kQuote)) {
    text += field;
    return;
  }
  text += kQuote;
  for (const char character : field) {
    text.append(character == kQuote ? 2 : 1, character);
  }
  text += kQuote;
}

}  // namespace tarnvex::memory
