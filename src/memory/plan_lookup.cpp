#include "memory/plan_lookup.h"

#include <algorithm>

#include "memory/plan_records.h"
#include "platform/convert.h"

namespace tarnvex::memory {
namespace {

constexpr int kBankRows = 100;

/// The first channel with a matching frequency.
template <class Matches>
std::optional<int> firstChannel(const platform::Table& channels, Matches matches) {
  for (int row = 1; row <= ChannelRecord::kRows; ++row) {
    if (matches(channels.textMatrix(row, ChannelRecord::Frequency))) {
      return row;
    }
  }
  return std::nullopt;
}

/// The first tag of the matching rows that have one.
template <class Matches>
std::optional<std::string> firstTag(const platform::Table& channels, Matches matches) {
  for (int row = 1; row <= ChannelRecord::kRows; ++row) {
    const std::string& tag = channels.textMatrix(row, ChannelRecord::AlphaTag);
    if (!tag.empty() && matches(row)) {
      return tag;
    }
  }
  return std::nullopt;
}

/// The last row from `first` to `last` with a matching ID.
template <class Matches>
std::optional<int> lastRow(const platform::Table& talkgroups, int first, int last,
                           Matches matches) {
  std::optional<int> found;
  for (int row = first; row <= last; ++row) {
    if (matches(talkgroups.textMatrix(row, TalkgroupRecord::Id))) {
      found = row;
    }
  }
  return found;
}

std::optional<std::string> tagOf(const platform::Table& talkgroups, std::optional<int> row) {
  return row ? std::optional(talkgroups.textMatrix(*row, TalkgroupRecord::AlphaTag)) : std::nullopt;
}

}  // namespace

int bankOfChannel(int channel) {
  const double quotient = channel / 30.0;
  const auto bank = static_cast<int>(platform::roundHalfEven(quotient));
  return bank < quotient ? bank : bank - 1;
}

std::optional<int> findChannel(const platform::Table& channels, std::string_view frequency) {
  return firstChannel(channels, [=](const std::string& held) { return held == frequency; });
}

std::optional<int> findChannel(const platform::Table& channels, double megahertz) {
  return firstChannel(channels,
                      [=](const std::string& held) { return platform::toReal(held) == megahertz; });
}

std::optional<std::string> findTag(const platform::Table& channels, std::string_view frequency) {
  return firstTag(channels, [&](int row) {
    return channels.textMatrix(row, ChannelRecord::Frequency) == frequency;
  });
}

std::optional<std::string> findTag(const platform::Table& channels, std::string_view frequency,
                                   std::string_view channel) {
  return firstTag(channels, [&](int row) {
    return channels.textMatrix(row, ChannelRecord::Frequency) == frequency &&
           channels.textMatrix(row, ChannelRecord::Number) == channel;
  });
}

std::optional<std::string> findTalkgroupTag(const platform::Table& talkgroups, int bank,
                                            std::string_view id) {
  return tagOf(talkgroups, lastRow(talkgroups, kBankRows * bank, kBankRows * bank + kBankRows,
                                   [id](const std::string& held) { return held == id; }));
}

std::optional<int> findTalkgroup(const platform::Table& talkgroups, int bank,
                                 std::span<const std::string> forms) {
  return lastRow(
      talkgroups, kBankRows * bank + 1, kBankRows * bank + kBankRows,
      [forms](const std::string& held) { return std::ranges::find(forms, held) != forms.end(); });
}

std::optional<std::string> findTalkgroupTag(const platform::Table& talkgroups, int bank,
                                            std::span<const std::string> forms) {
  return tagOf(talkgroups, findTalkgroup(talkgroups, bank, forms));
}

}  // namespace tarnvex::memory
