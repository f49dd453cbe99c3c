#include "memory/plan_lookup.h"

#include <algorithm>

#include "memory/plan_records.h"
#include "platform/convert.h"

namespace tarnvex::memory {
namespace {

constexpr int kBankRows = 100;

/// The tag of the last row from `first` to `last` with a matching ID.
template <class Matches>
std::optional<std::string> lastTag(const platform::Table& talkgroups, int first, int last,
                                   Matches matches) {
  std::optional<std::string> tag;
  for (int row = first; row <= last; ++row) {
    if (matches(talkgroups.textMatrix(row, TalkgroupRecord::Id))) {
      tag = talkgroups.textMatrix(row, TalkgroupRecord::AlphaTag);
    }
  }
  return tag;
}

}  // namespace

int bankOfChannel(int channel) {
  const double quotient = channel / 30.0;
  const auto bank = static_cast<int>(platform::roundHalfEven(quotient));
  return bank < quotient ? bank : bank - 1;
}

std::optional<int> findChannel(const platform::Table& channels, std::string_view frequency) {
  for (int row = 1; row <= ChannelRecord::kRows; ++row) {
    if (channels.textMatrix(row, ChannelRecord::Frequency) == frequency) {
      return row;
    }
  }
  return std::nullopt;
}

std::optional<int> findChannel(const platform::Table& channels, double megahertz) {
  for (int row = 1; row <= ChannelRecord::kRows; ++row) {
    if (platform::toReal(channels.textMatrix(row, ChannelRecord::Frequency)) == megahertz) {
      return row;
    }
  }
  return std::nullopt;
}

std::optional<std::string> findTag(const platform::Table& channels, std::string_view frequency) {
  for (int row = 1; row <= ChannelRecord::kRows; ++row) {
    const std::string& tag = channels.textMatrix(row, ChannelRecord::AlphaTag);
    if (channels.textMatrix(row, ChannelRecord::Frequency) == frequency && !tag.empty()) {
      return tag;
    }
  }
  return std::nullopt;
}

std::optional<std::string> findTag(const platform::Table& channels, std::string_view frequency,
                                   std::string_view channel) {
  for (int row = 1; row <= ChannelRecord::kRows; ++row) {
    const std::string& tag = channels.textMatrix(row, ChannelRecord::AlphaTag);
    if (channels.textMatrix(row, ChannelRecord::Frequency) == frequency &&
        channels.textMatrix(row, ChannelRecord::Number) == channel && !tag.empty()) {
      return tag;
    }
  }
  return std::nullopt;
}

std::optional<std::string> findTalkgroupTag(const platform::Table& talkgroups, int bank,
                                            std::string_view id) {
  return lastTag(talkgroups, kBankRows * bank, kBankRows * bank + kBankRows,
                 [id](const std::string& held) { return held == id; });
}

std::optional<std::string> findTalkgroupTag(const platform::Table& talkgroups, int bank,
                                            std::span<const std::string> forms) {
  return lastTag(
      talkgroups, kBankRows * bank + 1, kBankRows * bank + kBankRows,
      [forms](const std::string& held) { return std::ranges::find(forms, held) != forms.end(); });
}

}  // namespace tarnvex::memory
