#include "monitor/tag_finder.h"

#include "platform/convert.h"

namespace tarnvex::monitor {
namespace {

constexpr int kChannels = 300;
constexpr int kBankRows = 100;
constexpr int kNumberColumn = 0;
constexpr int kFrequencyColumn = 1;
constexpr int kTagColumn = 7;
constexpr int kIdColumn = 1;
constexpr int kIdTagColumn = 2;

}  // namespace

int bankOfChannel(int channel) {
  const double quotient = channel / 30.0;
  const auto bank = static_cast<int>(platform::roundHalfEven(quotient));
  return bank < quotient ? bank : bank - 1;
}

std::optional<int> findChannel(const platform::Table& channels, std::string_view frequency) {
  for (int row = 1; row <= kChannels; ++row) {
    if (channels.textMatrix(row, kFrequencyColumn) == frequency) {
      return row;
    }
  }
  return std::nullopt;
}

std::optional<std::string> findTag(const platform::Table& channels, std::string_view frequency) {
  for (int row = 1; row <= kChannels; ++row) {
    const std::string& tag = channels.textMatrix(row, kTagColumn);
    if (channels.textMatrix(row, kFrequencyColumn) == frequency && !tag.empty()) {
      return tag;
    }
  }
  return std::nullopt;
}

std::optional<std::string> findTag(const platform::Table& channels, std::string_view frequency,
                                   std::string_view channel) {
  for (int row = 1; row <= kChannels; ++row) {
    const std::string& tag = channels.textMatrix(row, kTagColumn);
    if (channels.textMatrix(row, kFrequencyColumn) == frequency &&
        channels.textMatrix(row, kNumberColumn) == channel && !tag.empty()) {
      return tag;
    }
  }
  return std::nullopt;
}

std::optional<std::string> findTalkgroupTag(const platform::Table& talkgroups, int bank,
                                            std::string_view id) {
  std::optional<std::string> tag;
  for (int row = kBankRows * bank; row <= kBankRows * bank + kBankRows; ++row) {
    if (talkgroups.textMatrix(row, kIdColumn) == id) {
      tag = talkgroups.textMatrix(row, kIdTagColumn);
    }
  }
  return tag;
}

}  // namespace tarnvex::monitor
