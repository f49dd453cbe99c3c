#include "memory/channel_memory.h"

#include <gmock/gmock.h>

#include "plan_fixture.h"

namespace tarnvex::test {
namespace {

using link::bc245Model;
using link::bc895Model;
using memory::HitList;
using platform::Answer;
using platform::Table;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

std::vector<std::string> rowOf(const Table& table, int row) {
  std::vector<std::string> cells(static_cast<std::size_t>(table.cols()));
  for (int col = 0; std::string & cell : cells) {
    cell = table.textMatrix(row, col++);
  }
  return cells;
}

TEST(Layout, HeadingsWidthsAndLabels) {
  PlanFixture big(bc895Model());
  PlanFixture small(bc245Model());
  EXPECT_THAT(rowOf(big.channels, 0),
              ElementsAre("Ch.", "Frequency", "Trnk", "Dly", "L/O", "Line", "CTCSS", "Alpha Tag"));
  EXPECT_THAT(rowOf(small.talkgroups, 0),
              ElementsAre("Bank: Ch.", "Talkgroup ID", "Alpha Tag", "PRI"));
  EXPECT_EQ(big.channels.colWidth(6), 700);
  EXPECT_EQ(small.channels.colWidth(6), 0) << "kept but hidden";
  EXPECT_EQ(small.talkgroups.colWidth(3), 500);
  for (PlanFixture* on : {&big, &small}) {
    EXPECT_THAT(rowOf(on->channels, 300), ElementsAre("300", "", "", "", "", "", "", ""));
    EXPECT_THAT(rowOf(on->talkgroups, 1), ElementsAre("Bank A: A1", "", "", ""));
    EXPECT_EQ(on->talkgroups.textMatrix(10, 0), "Bank A: A10");
    EXPECT_EQ(on->talkgroups.textMatrix(111, 0), "Bank B: B1");
    EXPECT_EQ(on->talkgroups.textMatrix(1000, 0), "Bank J: J10");
  }
}

TEST(Cursor, NormalisesTheRowsAroundIt) {
  PlanFixture on(bc895Model());
  on.channels.setTextMatrix(9, 1, "155");
  on.channels.setTextMatrix(10, 1, "118.10006");
  on.channels.setTextMatrix(12, 1, "1.5.5");
  on.channels.setTextMatrix(13, 1, "29");
  on.changes(on.channels);
  on.channels.userMoveTo(10, 1);
  EXPECT_THAT(on.changes(on.channels), ElementsAre("9,1=155.0000", "10,1=118.1001", "11,1=0.0000"));
  on.channels.userMoveTo(13, 7);
  EXPECT_THAT(on.changes(on.channels), ElementsAre("13,1=29.0000", "14,1=0.0000"));
  on.channels.userMoveTo(1, 2);
  EXPECT_THAT(on.changes(on.channels), ElementsAre("1,1=0.0000", "2,1=0.0000"));
  on.channels.userMoveTo(300, 1);
  EXPECT_THAT(on.changes(on.channels), ElementsAre("299,1=0.0000", "300,1=0.0000"));
}

TEST(Cursor, NormalisesIdsButNotBelowRow300) {
  PlanFixture on(bc245Model());
  on.talkgroups.setTextMatrix(20, 1, "123");
  on.talkgroups.setTextMatrix(21, 1, "12-34");
  on.talkgroups.setTextMatrix(22, 1, "1234567");
  on.changes(on.talkgroups);
  on.talkgroups.userMoveTo(21, 2);
  EXPECT_THAT(on.changes(on.talkgroups), ElementsAre("20,1=000123"));
  on.talkgroups.userMoveTo(299, 1);
  EXPECT_THAT(on.changes(on.talkgroups), ElementsAre("298,1=-----", "299,1=-----", "300,1=-----"));
  on.talkgroups.userMoveTo(300, 1);
  EXPECT_THAT(on.changes(on.talkgroups), IsEmpty());
  on.talkgroups.userMoveTo(600, 1);
  EXPECT_THAT(on.changes(on.talkgroups), ElementsAre("599,1=-----", "600,1=-----"));
}

TEST(DoubleClick, TunesToTheChannelAndNothingElse) {
  PlanFixture on(bc895Model());
  on.channels.userMoveTo(7, 3);
  on.channels.userDoubleClick();
  on.talkgroups.userDoubleClick();
  EXPECT_THAT(on.sent, ElementsAre("MA007"));
}

TEST(Jump, PutsTheBankOnTopAndTheCursorInColumnOne) {
  PlanFixture on(bc895Model());
  std::vector<int> tops;
  int focused = 0;
  const auto seeTop = on.channels.scrollRequested.connect([&](int row) { tops.push_back(row); });
  const auto seeTops = on.talkgroups.scrollRequested.connect([&](int row) { tops.push_back(row); });
  const auto seeFocus = on.channels.focusRequested.connect([&] { ++focused; });
  on.plan.JumpToBank(on.channels, 9);
  EXPECT_THAT(PlanFixture::cursor(on.channels), Pair(271, 1));
  on.plan.JumpToBank(on.talkgroups, 3, 4);
  EXPECT_THAT(PlanFixture::cursor(on.talkgroups), Pair(341, 1));
  EXPECT_EQ(on.talkgroups.textMatrix(1000, 1), "-----") << "the cursor went to the end first";
  on.state.SwitchingScanners = true;
  on.plan.JumpToBank(on.channels, 0);
  EXPECT_THAT(PlanFixture::cursor(on.channels), Pair(1, 0));
  EXPECT_THAT(tops, ElementsAre(271, 341, 1));
  EXPECT_EQ(focused, 2);
}

TEST(StoredHit, FillsAnOpenRowAndMovesOn) {
  PlanFixture on(bc895Model());
  on.tabs.setTab(3);
  on.channels.userMoveTo(4, 6);
  for (int col = 2; col < 8; ++col) {
    on.channels.setTextMatrix(4, col, "old");
  }
  on.plan.StoreHit(HitList::Frequencies, "155.1150 - 2024-05-01 10:00:00 Hits: 1");
  EXPECT_THAT(rowOf(on.channels, 4), ElementsAre("4", "155.1150", " ", " ", " ", " ", "", ""));
  EXPECT_THAT(PlanFixture::cursor(on.channels), Pair(5, 6));
  EXPECT_EQ(on.tabs.tab(), 0);
  on.channels.userMoveTo(300, 1);
  on.plan.StoreHit(HitList::Frequencies, "29.5000 - x");
  EXPECT_EQ(on.channels.textMatrix(300, 1), "29.5000 ");
  EXPECT_THAT(PlanFixture::cursor(on.channels), Pair(300, 1));
  EXPECT_FALSE(on.state.MemoryModified);
}

TEST(StoredHit, TakesTheIdFromEachRadiosPosition) {
  for (const bool bc895 : {true, false}) {
    PlanFixture on(bc895 ? bc895Model() : bc245Model());
    on.talkgroups.setTextMatrix(1, 3, "X");
    on.plan.StoreHit(HitList::Talkgroups, bc895 ? "001234 - now" : " 001234 - now");
    EXPECT_THAT(rowOf(on.talkgroups, 1), ElementsAre("Bank A: A1", "001234", "", "X"));
    EXPECT_EQ(on.tabs.tab(), 1);
    EXPECT_THAT(PlanFixture::cursor(on.talkgroups), Pair(2, 1));
    on.talkgroups.userMoveTo(500, 1);
    on.plan.StoreHit(HitList::Talkgroups, "001234 - now");
    EXPECT_THAT(PlanFixture::cursor(on.talkgroups), Pair(500, 1));
  }
}

TEST(StoredHit, AsksBeforeItOverwrites) {
  PlanFixture on(bc895Model());
  on.channels.setText("118.1000");
  on.talkgroups.setText("12-34");
  on.changes(on.channels);
  on.changes(on.talkgroups);
  on.dialogs.answers = {Answer::No, Answer::No, Answer::Yes};
  on.plan.StoreHit(HitList::Frequencies, "155.1150 - x");
  on.plan.StoreHit(HitList::Talkgroups, "001234 - x");
  EXPECT_THAT(on.changes(on.channels), IsEmpty());
  EXPECT_THAT(on.changes(on.talkgroups), IsEmpty());
  on.plan.StoreHit(HitList::Frequencies, "155.1150 - x");
  EXPECT_EQ(on.channels.textMatrix(1, 1), "155.1150");
  const Box frequency{"118.1000 will be overwritten! Continue?", "Confirm Overwrite", 36};
  const Box id{"12-34 will be overwritten! Continue?", "Confirm Overwrite", 36};
  EXPECT_THAT(on.dialogs.takeBoxes(), ElementsAre(frequency, id, frequency));
  on.channels.setRow(0);
  on.talkgroups.setRow(0);
  on.plan.StoreHit(HitList::Frequencies, "155.1150 - x");
  on.plan.StoreHit(HitList::Talkgroups, "001234 - x");
  EXPECT_THAT(
      on.dialogs.boxes,
      ElementsAre(
          Box{"You must select an open cell to store this Frequency.", "Invalid Cell", 48},
          Box{"You must select an open cell to store this Talkgroup.", "Invalid Cell", 48}));
}

}  // namespace
}  // namespace tarnvex::test
