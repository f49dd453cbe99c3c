#include <gmock/gmock.h>

#include "monitor/hit_capture.h"
#include "poll_rig.h"

namespace tarnvex::monitor {
namespace {

using testing::ElementsAre;

constexpr const char* kTagged = "S018 F01551150";
constexpr const char* kUntagged = "S018 F00460125";

struct HitsTest : testing::Test, test::Bc895Rig {
  /// A tick of a search on this frequency.
  void search(bool open, const std::string& signal = kTagged, bool skips = false,
              const std::string& mode = "MD02") {
    tick(test::opening(mode, signal) +
         ((open ? "SQ > +" : "SQ > -") +
          std::string(open && mode != "MD12" ? "; SG > " + signal : "") +
          (skips ? "; KEY09 > OK" : "")));
  }
};

TEST_F(HitsTest, CountEachOpeningOnceIfThereIsATag) {
  for (int i = 0; i < 10; ++i) {
    search(true);
  }
  EXPECT_THAT(form.hitLists.List1.items(),
              ElementsAre("155.1150 - 2031-05-06 07:08:09 Hits: 1(Fire)"));
  clock.text = "later";
  search(true);
  for (int opening = 2; opening <= 11; ++opening) {
    search(false);
    search(true);
    search(true);
  }
  EXPECT_THAT(form.hitLists.List1.items(), ElementsAre("155.1150 - later Hits: 11(Fire)"));
  search(false, kUntagged);
  search(true, kUntagged);
  clock.text = "last";
  search(false, kUntagged);
  search(true, kUntagged);
  EXPECT_THAT(form.hitLists.List1.items(),
              ElementsAre("155.1150 - later Hits: 11(Fire)", "46.0125 - last Hits: 1"))
      << "without a tag the time is fresh and the count stays";
}

TEST_F(HitsTest, CarryTheLastTagOntoAFrequencyThatFollowsAtOnce) {
  search(true);
  search(true, kUntagged);
  EXPECT_THAT(form.hitLists.List1.items(),
              ElementsAre("155.1150 - 2031-05-06 07:08:09 Hits: 1(Fire)",
                          "46.0125 - 2031-05-06 07:08:09 Hits: 1(Fire)"));
}

TEST_F(HitsTest, DoNotComeFromAQuietMode) {
  search(true, kTagged, false, "MD12");
  EXPECT_EQ(form.hitLists.List1.count(), 0);
  state.HitCounted = true;
  search(true, kTagged, false, "MD12");
  EXPECT_FALSE(state.HitCounted);
}

TEST_F(HitsTest, MatchAnywhereInALineAndInEveryLine) {
  form.hitLists.List1.add("46.0125 - then Hits: 4(like 155.1150)");
  form.hitLists.List1.add("155.1150 - then Hits: 2(Fire)");
  form.hitLists.List1.add("155.1151 - then Hits: 3(Near)");
  form.hitLists.List1.add("155.1150 - then Hits: x(Fire)");
  search(true);
  const std::string now = "155.1150 - 2031-05-06 07:08:09 Hits: ";
  EXPECT_THAT(form.hitLists.List1.items(),
              ElementsAre(now + "5(Fire)", now + "3(Fire)", "155.1151 - then Hits: 3(Near)",
                          now + "1(Fire)"));
}

TEST_F(HitsTest, KeepTheCountInMisleadingLines) {
  for (const auto& [line, count] : {std::pair{"46.0125 - (then) Hits: 4(Lake)", "1"},
                                    {"46.0125 - Hits: 32767(Lake)", "32768"},
                                    {"46.0125 - Hits: 32768(Lake)", "1"},
                                    {"46.0125", "1"}}) {
    platform::ListBox hits{"hits"};
    hits.add(line);
    state.HitCounted = false;
    EXPECT_TRUE(captureFrequency(hits, "46.0125", "Lake", clock, state));
    EXPECT_THAT(hits.items(),
                ElementsAre("46.0125 - 2031-05-06 07:08:09 Hits: " + std::string(count) + "(Lake)"))
        << line;
  }
}

TEST_F(HitsTest, AreSkippedOnceKnown) {
  search(true);
  radio.expect(test::script("KEY09 > OK"));
  form.hitLists.chkSkip.userClick();
  search(true, kTagged, true);
  // With the squelch closed the plan decides, for what was on the display.
  search(false, kTagged, true);
  search(false, kUntagged, true);
  search(false, kUntagged, false);
  search(true, kUntagged, false);
  search(true, kUntagged, true);
  state.EntryActive = true;
  poll("MD02");
  state.EntryActive = false;
  form.hitLists.chkSkip.userClick();
  search(true);
}

TEST_F(HitsTest, AreEnteredOnceForEachId) {
  EXPECT_FALSE(captureId(form.hitLists.List2, "001234", "Patrol", clock));
  clock.text = "later";
  EXPECT_TRUE(captureId(form.hitLists.List2, "001234", "Other", clock));
  EXPECT_FALSE(captureId(form.hitLists.List2, "12-345", "", clock));
  EXPECT_TRUE(captureId(form.hitLists.List2, "-345", "", clock)) << "anywhere in the line";
  EXPECT_THAT(form.hitLists.List2.items(),
              ElementsAre("001234 - 2031-05-06 07:08:09 (Patrol)", "12-345 - later "));
}

TEST_F(HitsTest, AreClearedByTheirButtons) {
  form.hitLists.List1.add("a");
  form.hitLists.List2.add("b");
  state.HitCounted = true;
  form.hitLists.Command1.userClick();
  EXPECT_EQ(form.hitLists.List1.count() * 10 + form.hitLists.List2.count(), 1);
  form.hitLists.Command2.userClick();
  EXPECT_EQ(form.hitLists.List2.count(), 0);
  EXPECT_TRUE(state.HitCounted);
}

}  // namespace
}  // namespace tarnvex::monitor
