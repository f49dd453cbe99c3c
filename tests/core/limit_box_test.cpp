#include "search/limit_box.h"

#include <gtest/gtest.h>

#include "poll_rig.h"

namespace tarnvex::search {
namespace {

struct LimitBoxTest : testing::Test, test::Bc895Rig {
  std::string focused;
  platform::Connection upper =
      form.customSearch.Ulimit.focusRequested.connect([this] { focused += "Ulimit"; });
  platform::Connection next =
      form.customSearch.Command4.focusRequested.connect([this] { focused += "Command4"; });
};

TEST_F(LimitBoxTest, SendsALimitWithinTheRadiosRange) {
  const std::tuple<bool, const char*, const char*> cases[] = {
      {true, "29", "LL00290000"}, {true, "155.115", "LL01551150"},  {true, "28.9", nullptr},
      {true, "", nullptr},        {true, "1.2.3", nullptr},         {false, "956", "LU09560000"},
      {false, "956.1", nullptr},  {false, "29.00005", "LU00290001"}};
  for (const auto& [lower, text, sent] : cases) {
    SCOPED_TRACE(text);
    auto& box = lower ? form.customSearch.LLimit : form.customSearch.Ulimit;
    auto& editing = lower ? state.LowerLimitEditing : state.UpperLimitEditing;
    focused.clear();
    dialogs.beeps = 0;
    editing = true;
    box.setText(text);
    if (sent != nullptr) {
      radio.expect({{sent, "OK"}, {"KEY00", "OK"}});
    }
    EXPECT_FALSE(box.userKey('\r')) << "the key is swallowed";
    radio.expectSpent();
    EXPECT_FALSE(editing) << "the poll may write to the box again";
    EXPECT_EQ(dialogs.beeps, sent == nullptr ? 1 : 0);
    EXPECT_EQ(focused, sent == nullptr ? "" : lower ? "Ulimit" : "Command4");
  }
}

TEST_F(LimitBoxTest, BlocksThePollOnlyForKeysThatItAccepts) {
  for (const char key : std::string("0159.\b")) {
    state.LowerLimitEditing = false;
    EXPECT_TRUE(form.customSearch.LLimit.userKey(key)) << key;
    EXPECT_TRUE(state.LowerLimitEditing);
  }
  EXPECT_FALSE(state.UpperLimitEditing);
  for (const char key : std::string("a-, \t\xE4")) {
    for (const bool editing : {false, true}) {
      dialogs.beeps = 0;
      state.UpperLimitEditing = editing;
      EXPECT_FALSE(form.customSearch.Ulimit.userKey(key)) << key;
      EXPECT_EQ(dialogs.beeps, 1);
      EXPECT_EQ(state.UpperLimitEditing, editing);
    }
  }
}

}  // namespace
}  // namespace tarnvex::search
