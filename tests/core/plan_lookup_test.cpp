#include "memory/plan_lookup.h"

#include <gtest/gtest.h>

namespace tarnvex::memory {
namespace {

TEST(PlanLookup, FindsChannelsByWholeTexts) {
  platform::Table channels("channels", 301, 8);
  const auto put = [&](int row, const char* frequency, const char* tag) {
    channels.setTextMatrix(row, 0, std::to_string(row));
    channels.setTextMatrix(row, 1, frequency);
    channels.setTextMatrix(row, 7, tag);
  };
  put(0, "Frequency", "Alpha Tag");
  put(3, "155.1150", "");
  put(4, "155.1150", "Fire");
  put(5, "155.1150", "Police");
  put(300, "29.0000", "Last");
  EXPECT_EQ(findChannel(channels, "155.1150"), 3);
  EXPECT_EQ(findChannel(channels, "29.0000"), 300);
  EXPECT_EQ(bankOfChannel(30), 0);
  EXPECT_EQ(bankOfChannel(31), 1);
  EXPECT_EQ(bankOfChannel(300), 9);
  for (const char* none : {"155.115", "155.11500", "Frequency", "Scanning"}) {
    EXPECT_EQ(findChannel(channels, none), std::nullopt) << none;
    EXPECT_EQ(findTag(channels, none), std::nullopt) << none;
  }
  // A row without a tag doesn't end the search.
  EXPECT_EQ(findTag(channels, "155.1150"), "Fire");
  EXPECT_EQ(findTag(channels, "155.1150", "5"), "Police");
  EXPECT_EQ(findTag(channels, "155.1150", "3"), std::nullopt);
  EXPECT_EQ(findTag(channels, "155.1150", "005"), std::nullopt);
}

TEST(PlanLookup, FindsTalkgroupsInTheirBankAndTheRowBeforeIt) {
  platform::Table talkgroups("talkgroups", 1001, 4);
  const auto put = [&](int row, const char* id, const char* tag) {
    talkgroups.setTextMatrix(row, 1, id);
    talkgroups.setTextMatrix(row, 2, tag);
  };
  put(500, "000500", "Before");
  put(501, "001111", "First");
  put(600, "001111", "Last");
  put(601, "001111", "Next bank");
  put(1000, "009999", "End");
  put(550, "002222", "Tag");
  put(560, "002222", "");
  EXPECT_EQ(findTalkgroupTag(talkgroups, 5, "001111"), "Last");
  EXPECT_EQ(findTalkgroupTag(talkgroups, 5, "000500"), "Before");
  EXPECT_EQ(findTalkgroupTag(talkgroups, 5, "002222"), "") << "the last match wins, tag or not";
  EXPECT_EQ(findTalkgroupTag(talkgroups, 5, "1111"), std::nullopt);
  EXPECT_EQ(findTalkgroupTag(talkgroups, 6, "001111"), "Next bank");
  EXPECT_EQ(findTalkgroupTag(talkgroups, 9, "009999"), "End");
}

}  // namespace
}  // namespace tarnvex::memory
