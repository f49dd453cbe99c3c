#include "monitor/tag_finder.h"

#include "memory/memory_traits.h"
#include "platform/convert.h"

namespace tarnvex::monitor {
namespace {

using memory::ChannelRecord;
using memory::TalkgroupRecord;

constexpr int kBankRows = 100;

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
  std::optional<std::string> tag;
  for (int row = kBankRows * bank; row <= kBankRows * bank + kBankRows; ++row) {
    if (talkgroups.textMatrix(row, TalkgroupRecord::Id) == id) {
      tag = talkgroups.textMatrix(row, TalkgroupRecord::AlphaTag);
    }
  }
  return tag;
}

}  // namespace tarnvex::monitor
