// Paste, delete and cut as values, and the history that undoes them.
#include "memory/plan_editor.h"

#include <gmock/gmock.h>

#include "plan_fixture.h"
#include "support/plan_bytes.h"

namespace tarnvex::test {
namespace {

using link::bc245Model;
using link::bc895Model;
using memory::CellRange;
using platform::Table;

/// A plan with an editor, and its bytes.
struct Editing : PlanFixture {
  explicit Editing(const link::RadioModel& model = bc895Model()) : PlanFixture(model) {
    plan.clear();
  }

  std::string paste(Table& table, CellRange cells, std::string_view text) {
    return editor.paste(table, cells, text).value_or("");
  }
  [[nodiscard]] static std::string rowOf(const Table& table, int row) {
    std::string cells;
    for (int col = 1; col < table.cols(); ++col) {
      cells += table.textMatrix(row, col) + "|";
    }
    return cells;
  }
  [[nodiscard]] std::string bytes() const { return bytesOf({&channels, &talkgroups}); }

  memory::PlanEditor editor{plan};
};

CellRange at(int row, int col) {
  return {row, col, row, col};
}

TEST(Paste, WritesTheFieldsThatFitTheirColumns) {
  struct Case {
    const char* text;
    const char* row;
    const char* told;
  };
  const std::string full = "155.1150|X|X| |X|67.0|old|";
  const Case cases[] = {
      {"162,4500\tx\t\tX\t \t71,9\tnew", "162.4500|X| |X| |71.9|new|", ""},
      {"29", "29.0000|X|X| |X|67.0|old|", ""},
      {"\t\t\t\t\t\t", "0.0000| | | | |||", ""},
      {" 852.5 \tX", "852.5000|X|X| |X|67.0|old|", ""},
      {"1x\t1\ty\tz\tw\t66.0\tta\"g", full.c_str(),
       "Row 5, Frequency: \"1x\"\nRow 5, Trnk: \"1\"\nRow 5, Dly: \"y\"\nRow 5, L/O: \"z\"\n"
       "Row 5, Line: \"w\"\nRow 5, CTCSS: \"66.0\"\nRow 5, Alpha Tag: \"ta\"g\""},
      {"-1", full.c_str(), "Row 5, Frequency: \"-1\""},
      {"1.162,45", full.c_str(), "Row 5, Frequency: \"1.162,45\""},
      {"10000", full.c_str(), "Row 5, Frequency: \"10000\""},
      {"30\t\t\t\t\t\t\"two\tparts\r\nof \"\"one\"", "30.0000| | | | ||old|",
       "Row 5, Alpha Tag: \"two parts  of \"one\""},
      {"30\tX\tX\t\tX\t67.0\t\"a\tb\nc\"\tmore\tmore", "30.0000|X|X| |X|67.0|a b c|",
       "Row 5: 2 fields beyond the last column"},
      {"\"open\tX", full.c_str(), "Row 5, Frequency: \"\"open\""},
      {"31\tX\tX\t\tX\t67\t1234567890123456789012345678901", "31.0000|X|X| |X|67.0|old|",
       "Row 5, Alpha Tag: \"1234567890123456789012345678901\""},
  };
  for (const auto& [text, row, told] : cases) {
    SCOPED_TRACE(text);
    Editing on;
    for (int col = 1; const char* cell : {"155.1150", "X", "X", " ", "X", "67.0", "old"}) {
      on.channels.setTextMatrix(5, col++, cell);
    }
    // The selection decides whether the text is a single value or a block of one row.
    const std::string message = on.paste(on.channels, at(5, 1), text);
    EXPECT_EQ(Editing::rowOf(on.channels, 5), row);
    EXPECT_EQ(message, told[0] == '\0'
                           ? ""
                           : "Not everything could be pasted. Left out:\n\n" + std::string(told));
    EXPECT_EQ(on.state.MemoryModified, Editing::rowOf(on.channels, 5) != full);
    EXPECT_EQ(Editing::rowOf(on.channels, 4), "0.0000| | |X| |||") << "nothing is inherited";
  }
}

TEST(Paste, FillsASelectionAndStopsAtTheTablesEnd) {
  Editing on;
  EXPECT_EQ(on.paste(on.channels, {3, 2, 5, 3}, "x\n"), "");
  for (int row = 3; row <= 5; ++row) {
    EXPECT_EQ(Editing::rowOf(on.channels, row), "0.0000|X|X|X| |||");
  }
  std::string rows;
  for (int row = 0; row < 2000; ++row) {
    rows += std::to_string(row) + "\t\t\t\r\n";
  }
  EXPECT_EQ(on.paste(on.channels, at(299, 1), rows),
            "Not everything could be pasted. Left out:\n\n1998 rows beyond row 300");
  EXPECT_EQ(Editing::rowOf(on.channels, 300), "1.0000| | | | |||");
  const std::string bad = on.paste(on.talkgroups, at(1, 1), rows + "x");
  EXPECT_THAT(bad, testing::HasSubstr("1001 rows beyond row 1000"));
}

TEST(Paste, KeepsOnePriorityAGroup) {
  Editing on(bc245Model());
  on.talkgroups.setTextMatrix(1, 3, "X");
  on.talkgroups.setTextMatrix(11, 3, "X");
  on.talkgroups.setTextMatrix(13, 3, "X");
  const std::string two = on.editor.copy(on.talkgroups, {11, 1, 20, 3});
  EXPECT_EQ(on.paste(on.talkgroups, at(2, 1), "123\tfire\tX\n12-034\tpolice\tx\n1234567\tems"),
            "Not everything could be pasted. Left out:\n\n"
            "Row 4 (Bank A: A4), Talkgroup ID: \"1234567\"");
  EXPECT_EQ(Editing::rowOf(on.talkgroups, 1), "|||");
  EXPECT_EQ(Editing::rowOf(on.talkgroups, 2), "000123|fire||");
  EXPECT_EQ(Editing::rowOf(on.talkgroups, 3), "12-034|police|X|");
  EXPECT_EQ(Editing::rowOf(on.talkgroups, 4), "|ems||");
  const std::string before = on.bytes();
  on.paste(on.talkgroups, at(11, 1), two);
  EXPECT_EQ(on.bytes(), before) << "copying doesn't change the cells";
}

TEST(Delete, ClearsCellsByTheirColumns) {
  Editing on;
  on.paste(on.channels, at(2, 1), "155\tX\tX\tX\tX\t67\ttag");
  on.paste(on.talkgroups, at(2, 1), "123\ttag\tX");
  on.state.MemoryModified = false;
  on.editor.clear(on.channels, {1, 1, 2, 7}, "Delete");
  EXPECT_EQ(Editing::rowOf(on.channels, 2), "0.0000| | | | |||");
  EXPECT_TRUE(on.state.MemoryModified);
  on.editor.clear(on.talkgroups, {2, 1, 2, 3}, "Cut");
  EXPECT_EQ(Editing::rowOf(on.talkgroups, 2), "-----|||");
  EXPECT_EQ(on.editor.undoName(), "Cut");
}

TEST(Paste, PassesOverRowsThatTheWindowHides) {
  Editing on;
  for (int row = 1; row <= 6; ++row) {
    on.channels.setTextMatrix(row, 7, std::to_string(row));
  }
  const auto hides = [](int row) { return row == 2 || row == 3; };
  const auto tags = [&] {
    std::string all;
    for (int row = 1; row <= 6; ++row) {
      all += on.channels.textMatrix(row, 7) + "|";
    }
    return all;
  };
  const CellRange cells{1, 7, 5, 7, hides};
  const std::string copied = on.editor.copy(on.channels, cells);
  EXPECT_EQ(copied, "1\n4\n5\n");
  EXPECT_EQ(on.paste(on.channels, cells, copied), "");
  EXPECT_EQ(tags(), "1|2|3|4|5|6|");
  on.paste(on.channels, cells, "x");
  EXPECT_EQ(tags(), "x|2|3|x|x|6|");
  on.editor.clear(on.channels, cells, "Delete");
  EXPECT_EQ(tags(), "|2|3|||6|");
  on.paste(on.channels, cells, on.editor.copy(on.channels, {4, 7, 5, 7}));
  EXPECT_EQ(tags(), "|2|3|||6|") << "a column of blanks keeps its length";
  EXPECT_EQ(on.editor.copy(on.channels, {4, 7, 5, 7}), "\n\n");
}

TEST(History, TakesTypingInACellAsOneStep) {
  Editing on;
  const std::string start = on.bytes();
  on.channels.userMoveTo(7, 1);
  PlanFixture::type(on.channels, "15x5");
  EXPECT_TRUE(on.state.MemoryModified);
  PlanFixture::type(on.channels, "\r");
  PlanFixture::type(on.channels, "x x");
  const std::string typed = on.bytes();
  EXPECT_EQ(on.editor.undoName(), "Mark");
  std::vector<std::string> names;
  while (!on.editor.undoName().empty()) {
    names.push_back(on.editor.undoName());
    EXPECT_TRUE(on.editor.undo());
  }
  EXPECT_THAT(names, testing::ElementsAre("Mark", "Mark", "Mark", "Typing"));
  EXPECT_EQ(on.bytes(), start);
  EXPECT_FALSE(on.state.MemoryModified);
  EXPECT_EQ(PlanFixture::cursor(on.channels), std::pair(7, 1));
  EXPECT_FALSE(on.editor.undo());
  while (on.editor.redo()) {
  }
  EXPECT_EQ(on.bytes(), typed);
  EXPECT_TRUE(on.state.MemoryModified);
  // The cell's normal form, which Enter brings about, belongs to the typing.
  EXPECT_EQ(on.channels.textMatrix(7, 1), "155.0000");
}

TEST(History, KnowsWhenThePlanIsAsInItsFile) {
  Editing on;
  on.editor.clear(on.channels, {1, 4, 1, 4}, "Delete");
  on.state.MemoryModified = false;
  on.plan.history().saved();
  on.editor.clear(on.channels, {2, 4, 2, 4}, "Delete");
  on.editor.undo();
  EXPECT_FALSE(on.state.MemoryModified);
  on.editor.undo();
  EXPECT_TRUE(on.state.MemoryModified) << "this isn't what was saved";
  on.editor.redo();
  EXPECT_FALSE(on.state.MemoryModified);
  on.editor.redo();
  EXPECT_TRUE(on.state.MemoryModified);
}

TEST(History, KeepsStepsOfAnySizeWithinItsMemory) {
  Editing on;
  const std::string start = on.bytes();
  std::string plans[2];
  for (int row = 0; row < 1000; ++row) {
    for (int plan = 0; plan < 2; ++plan) {
      plans[plan] += std::to_string(row + plan) +
                     "\ttag of thirty characters: " + std::to_string(1000 + row * 7 + plan) + "\n";
    }
  }
  for (int step = 0; step < 201; ++step) {
    on.paste(on.talkgroups, at(1, 1), plans[step % 2]);
  }
  int undone = 0;
  while (on.editor.undo()) {
    ++undone;
  }
  EXPECT_EQ(undone, 201);
  EXPECT_EQ(on.bytes(), start);
  // Half a megabyte per step.
  for (int step = 0; step < 300; ++step) {
    const auto scope = on.plan.history().step("Paste");
    on.channels.setTextMatrix(1, 7, std::string(500'000, static_cast<char>('a' + step % 26)));
  }
  for (undone = 0; on.editor.undo(); ++undone) {
  }
  EXPECT_GT(undone, 60);
  EXPECT_LT(undone, 200);
}

}  // namespace
}  // namespace tarnvex::test
