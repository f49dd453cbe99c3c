#include <gmock/gmock.h>

#include "memory/plan_records.h"
#include "plan_fixture.h"

namespace tarnvex::test {
namespace {

using link::bc245Model;
using link::bc895Model;
using testing::ElementsAre;
using testing::Pair;

/// The result of typing in one cell of a new plan.
struct KeyCase {
  const char* name;
  bool talkgroups;
  int col;
  const char* before;
  const char* keys;
  const char* after;
  int beeps;
  bool modified;
  bool editing;
};

class CellKeys : public testing::TestWithParam<KeyCase> {
 protected:
  static void check(const link::RadioModel& model, bool modified) {
    const KeyCase& given = GetParam();
    PlanFixture on(model);
    platform::Table& table = given.talkgroups ? on.talkgroups : on.channels;
    table.userMoveTo(1, given.col);
    table.setText(given.before);
    on.state.CellEditActive = false;
    on.changes(table);
    PlanFixture::type(table, given.keys);
    EXPECT_EQ(table.text(), given.after);
    EXPECT_THAT(on.changes(table), testing::SizeIs(given.before == table.text() ? 0 : 1));
    EXPECT_EQ(on.dialogs.beeps, given.beeps);
    EXPECT_EQ(on.state.MemoryModified, modified);
    EXPECT_EQ(on.state.CellEditActive, given.editing);
    EXPECT_THAT(PlanFixture::cursor(table), Pair(1, given.col));
  }
};

TEST_P(CellKeys, OnTheBc895) {
  check(bc895Model(), GetParam().modified);
}

TEST_P(CellKeys, OnTheBc245) {
  // In its talkgroups every key except the quote marks the plan as changed.
  const bool onlyQuotes = std::string(GetParam().keys) == "\"\"";
  check(bc245Model(), GetParam().talkgroups ? !onlyQuotes : GetParam().modified);
}

const KeyCase kKeyCases[] = {
    {"FirstDigitReplaces", false, 1, "155.0000", "1", "1", 0, false, true},
    {"LaterDigitsAppendAndMark", false, 1, "155.0000", "15.5", "15.5", 0, true, true},
    {"BackspaceCutsWithoutEditing", false, 1, "155.0000", "\b\b", "155.00", 0, false, false},
    {"OtherKeysAreIgnored", false, 1, "155.0000", "a- x", "155.0000", 0, false, false},
    {"QuoteBeepsBeforeItMarks", false, 1, "", "1\"", "1", 1, false, true},
    {"FlagOffAgain", false, 5, " ", "Xx ", " ", 0, false, false},
    {"Tone", false, 6, "67.0", "71.9", "71.9", 0, true, true},
    {"TagBackspaceEdits", false, 7, "Fire", "\b\b", "Fi", 0, true, true},
    {"IdReplacesAndAppends", true, 1, "-----", "12-3", "12-3", 0, true, true},
    {"PriorityOff", true, 3, "X", " ", " ", 0, false, true},
    {"PriorityIgnoresOthers", true, 3, "X", "y\b", "X", 0, false, false},
    {"QuotesInATalkgroup", true, 1, "-----", "\"\"", "-----", 2, false, false},
};
INSTANTIATE_TEST_SUITE_P(Cells, CellKeys, testing::ValuesIn(kKeyCases),
                         [](const auto& info) { return info.param.name; });

TEST(GridKeys, ATagEndsAtThirtyCharactersOnTheBc895Alone) {
  const std::string tag(30, 'a');
  for (const bool limited : {true, false}) {
    PlanFixture on(limited ? bc895Model() : bc245Model());
    for (platform::Table* table : {&on.channels, &on.talkgroups}) {
      table->userMoveTo(1, table == &on.channels ? 7 : 2);
      PlanFixture::type(*table, tag + "bc");
      EXPECT_EQ(table->text(), limited ? tag : tag + "bc");
    }
    EXPECT_EQ(on.dialogs.beeps, limited ? 4 : 0);
  }
}

TEST(GridKeys, ANewFrequencyInheritsFromTheRowAbove) {
  PlanFixture on(bc895Model());
  const char* above[] = {"X", " ", "X", "X", "103.5", "Fire"};
  for (int col = 2; col < 8; ++col) {
    on.channels.setTextMatrix(6, col, above[col - 2]);
    on.channels.setTextMatrix(8, col, "own");
  }
  on.channels.userMoveTo(7, 1);
  on.changes(on.channels);
  PlanFixture::type(on.channels, "1");
  EXPECT_THAT(on.changes(on.channels),
              ElementsAre("7,1=1", "7,2=X", "7,3= ", "7,4=X", "7,5=X", "7,6=103.5", "7,7=Fire"));
  // Every accepted key copies again, but not Backspace. An existing tag stays.
  on.channels.setTextMatrix(7, 3, "X");
  on.channels.setTextMatrix(7, 7, "Own");
  PlanFixture::type(on.channels, "\b");
  EXPECT_EQ(on.channels.textMatrix(7, 3), "X");
  PlanFixture::type(on.channels, "5");
  EXPECT_EQ(on.channels.textMatrix(7, 3), " ");
  EXPECT_EQ(on.channels.textMatrix(7, 7), "Own");
  // Above row 1 there are only headings.
  on.channels.userMoveTo(1, 1);
  on.changes(on.channels);
  PlanFixture::type(on.channels, "1");
  EXPECT_THAT(on.changes(on.channels), ElementsAre("1,1=1"));
}

TEST(GridKeys, EnterWalksTheTable) {
  using Cell = std::pair<int, int>;
  const std::tuple<bool, bool, Cell, Cell> cases[] = {
      {true, false, {1, 1}, {1, 2}},      {true, false, {1, 7}, {2, 1}},
      {false, false, {299, 7}, {300, 1}}, {false, false, {300, 7}, {300, 1}},
      {true, true, {1, 1}, {1, 2}},       {true, true, {1, 2}, {2, 1}},
      {true, true, {9, 3}, {10, 1}},      {true, true, {500, 2}, {500, 1}},
      {true, true, {700, 2}, {700, 1}},   {false, true, {1, 2}, {1, 3}},
      {false, true, {500, 3}, {501, 1}},  {false, true, {1000, 3}, {1000, 1}},
  };
  for (const auto& [bc895, talkgroups, from, to] : cases) {
    PlanFixture on(bc895 ? bc895Model() : bc245Model());
    platform::Table& table = talkgroups ? on.talkgroups : on.channels;
    table.userMoveTo(from.first, from.second);
    PlanFixture::type(table, "\r");
    EXPECT_EQ(PlanFixture::cursor(table), to) << "from " << from.first << "," << from.second;
    EXPECT_FALSE(on.state.MemoryModified);
  }
}

TEST(GridKeys, EnterMarksThePlanAfterAKeyButNotInTheTalkgroupsOfTheBc245) {
  for (const bool bc895 : {true, false}) {
    PlanFixture on(bc895 ? bc895Model() : bc245Model());
    PlanFixture::type(on.channels, "1\r");
    EXPECT_TRUE(std::exchange(on.state.MemoryModified, false));
    EXPECT_FALSE(on.state.CellEditActive);
    PlanFixture::type(on.talkgroups, "1");
    EXPECT_EQ(std::exchange(on.state.MemoryModified, false), !bc895);
    PlanFixture::type(on.talkgroups, "\r");
    EXPECT_EQ(on.state.MemoryModified, bc895);
    EXPECT_FALSE(on.state.CellEditActive);
  }
}

TEST(GridKeys, AGroupHasOnePriority) {
  for (const int home : {1, 5, 10, 996, 1000}) {
    PlanFixture on(bc895Model());
    const int first = (home - 1) / 10 * 10 + 1;
    for (int row = 1; row <= 1000; ++row) {
      on.talkgroups.setTextMatrix(row, 3, row == home ? " " : "X");
    }
    on.talkgroups.userMoveTo(home, 3);
    PlanFixture::type(on.talkgroups, "x");
    for (int row = 1; row <= 1000; ++row) {
      const bool others = row < first || row > first + 9;
      ASSERT_EQ(on.talkgroups.textMatrix(row, 3), others || row == home ? "X" : "") << row;
    }
    EXPECT_THAT(PlanFixture::cursor(on.talkgroups), Pair(home, 3));
    // The cursor has moved through the group: the IDs are normalised, and the edit has ended.
    EXPECT_EQ(on.talkgroups.textMatrix(first, 1), "-----");
    EXPECT_EQ(on.talkgroups.textMatrix(0, 1), "Talkgroup ID");
    EXPECT_FALSE(on.state.CellEditActive);
    PlanFixture::type(on.talkgroups, "\r");
    EXPECT_FALSE(on.state.MemoryModified);
  }
}

}  // namespace
}  // namespace tarnvex::test
