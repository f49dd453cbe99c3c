#include "memory/apf_dialogs.h"

#include <gmock/gmock.h>

#include <memory>

#include "memory_store.h"
#include "plan_fixture.h"
#include "support/fake_common_dialog.h"

namespace tarnvex::test {
namespace {

using link::bc895Model;
using memory::Form7;
using memory::Form8;
using testing::ElementsAre;
using testing::IsEmpty;

const Box kInvalidChannel{"Invalid channel number selected.", "Invalid Entry", 48};
const Box kNoneSelected{"No frequencies were selected.", "No Frequencies Selected", 48};

Box importError(const std::string& description) {
  return {"The following error occurred while import this apf file: " + description +
              ". This file may be corrupt, or not a standard APF file.",
          "Import Error", 48};
}

/// The plan and one of the two dialogs.
template <class Form>
struct ApfFixture : PlanFixture {
  ApfFixture()
      : PlanFixture(bc895Model()),
        form({files, dialog, plan}),
        seeClosed(form.closed.connect([this] { ++closed; })) {}

  void openWith(const std::string& path) {
    dialog.choices = {path};
    form.Command1.userClick();
  }
  void select(const std::vector<int>& entries) {
    for (int i = 0; i < form.List1.count(); ++i) {
      form.List1.setSelected(i, std::ranges::find(entries, i) != entries.end());
    }
  }

  MemoryStore store;
  platform::SequentialFiles files{store};
  FakeCommonDialog dialog;
  int closed = 0;
  Form form;
  platform::Connection seeClosed;
};

using Import = ApfFixture<Form7>;
using Export = ApfFixture<Form8>;

const std::string kThree =
    "\" \",\"12\",\"118.1\",\"am \",\"d\",\" \",\"Tower\"\r\n"
    "\" \",\"40\",\"155.115\",\"nfm\",\" \",\"l\",\"Fire, east\"\r\n"
    "\" \",\"7\",\"none\",\"nfm\",\"\",\"x\",\"\"\r\n";

TEST(ApfImport, OpensWithTheFileDialogAndListsTheFile) {
  Import on;
  on.store.files["a.apf"] = kThree;
  EXPECT_FALSE(on.form.Command3.enabled());
  on.dialog.choices = {"a.apf"};
  on.form.load();
  EXPECT_THAT(on.dialog.shown,
              ElementsAre(ShownDialog{platform::FileDialogKind::Open, "", "APF Files (*.apf)|*.apf",
                                      "Select APF File"}));
  EXPECT_THAT(on.form.List1.items(), ElementsAre("118.1000 Tower", "155.1150 Fire, east", "none "));
  EXPECT_TRUE(on.form.Command3.enabled());
  on.form.Command2.userClick();
  EXPECT_TRUE(on.form.List1.selected(0) && on.form.List1.selected(2));
  EXPECT_EQ(on.form.List1.listIndex(), 0);
  on.form.Command4.userClick();
  EXPECT_EQ(on.closed, 1);
}

TEST(ApfImport, WritesTheSelectedRecordsToConsecutiveRows) {
  Import on;
  on.store.files["a.apf"] = kThree;
  on.openWith("a.apf");
  for (int col = 1; col < 8; ++col) {
    on.channels.setTextMatrix(20, col, "old");
  }
  on.changes(on.channels);
  on.select({0, 2});
  on.form.Text1.setText("20");
  on.form.Command3.userClick();
  EXPECT_THAT(on.changes(on.channels), ElementsAre("20,1=118.1", "20,3=X", "20,4= ", "20,7=Tower",
                                                   "21,1=none", "21,3=X", "21,4=X"));
  EXPECT_TRUE(on.state.MemoryModified);
  EXPECT_EQ(on.closed, 1);
  // What doesn't fit is dropped without a message.
  on.form.Command2.userClick();
  on.form.Text1.setText("299");
  on.form.Command3.userClick();
  EXPECT_EQ(on.channels.textMatrix(300, 1), "155.115");
  EXPECT_EQ(on.closed, 2);
}

TEST(ApfImport, RefusesStartChannelsAndAnEmptySelection) {
  Import on;
  on.store.files["a.apf"] = kThree;
  on.openWith("a.apf");
  on.form.Command3.userClick();
  EXPECT_THAT(on.dialogs.takeBoxes(), ElementsAre(kNoneSelected));
  for (const char* text : {"0", "301", "", "99999"}) {
    on.form.Text1.setText(text);
    on.form.Command3.userClick();
  }
  EXPECT_THAT(on.dialogs.boxes, ElementsAre(kInvalidChannel, kInvalidChannel,
                                            importError("Type mismatch"), importError("Overflow")));
  EXPECT_EQ(on.closed, 0);
  // If the plan had changes before, importing nothing is enough to close the dialog.
  on.state.MemoryModified = true;
  on.form.Text1.setText("1");
  on.form.Command3.userClick();
  EXPECT_EQ(on.closed, 1);
  std::string passed;
  for (const char key : std::string("/059:\b\r -.a")) {
    passed += on.form.Text1.userKey(key) ? std::string(1, key) : "";
  }
  EXPECT_EQ(passed, "059\b");
  EXPECT_EQ(on.dialogs.beeps, 7);
}

TEST(ApfImport, AFailureKeepsTheRowsWrittenAndFreesTheNumber) {
  Import on;
  on.store.files["a.apf"] = kThree;
  on.openWith("a.apf");
  on.store.files["a.apf"] = kThree.substr(0, kThree.size() / 2);
  on.form.Command2.userClick();
  on.form.Command3.userClick();
  EXPECT_THAT(on.dialogs.takeBoxes(), ElementsAre(importError("Input past end of file")));
  EXPECT_EQ(on.channels.textMatrix(1, 7), "Tower");
  EXPECT_TRUE(on.state.MemoryModified);
  EXPECT_EQ(on.closed, 0);
  on.store.files.erase("a.apf");
  on.form.Command3.userClick();
  EXPECT_THAT(on.dialogs.takeBoxes(), ElementsAre(importError("File not found")));
  // While the window loads, a bad file gives no message.
  on.dialog.choices = {"a.apf", std::nullopt};
  on.form.load();
  on.form.Command1.userClick();
  EXPECT_THAT(on.form.List1.items(), IsEmpty());
  EXPECT_THAT(on.dialogs.boxes, ElementsAre(importError("File not found")));
}

TEST(ApfExport, ListsThePlanAndNumbersOnFromTheFile) {
  Export on;
  on.channels.setTextMatrix(7, 1, "155.1150");
  on.channels.setTextMatrix(7, 7, "Fire");
  on.store.files["a.apf"] = kThree;
  on.form.load();
  EXPECT_EQ(on.form.List1.count(), 300);
  EXPECT_EQ(on.form.List1.item(6), "7 155.1150-Fire");
  EXPECT_THAT(on.dialog.shown, IsEmpty());
  on.openWith("a.apf");
  EXPECT_EQ(on.form.List1.item(300), "118.1000 Tower");
  EXPECT_EQ(on.form.Text1.text(), "8") << "the last number plus one, not the highest";
  EXPECT_EQ(on.form.window.caption(), "Export APF File - a.apf");
  EXPECT_TRUE(on.form.Command3.enabled());
  // If a number has no successor, the box stays as it was.
  for (const char* last : {"x", "32767", ""}) {
    on.store.files["a.apf"] = std::string("\" \",\"") + last + "\",\"\",\"\",\"\",\"\",\"\"\n";
    on.openWith("a.apf");
    EXPECT_EQ(on.form.Text1.text(), "8") << last;
  }
  on.openWith("new.apf");
  EXPECT_EQ(on.form.Text1.text(), "1");
}

TEST(ApfExport, AppendsTheSelectedChannels) {
  Export on;
  on.plan.clear();
  on.channels.setTextMatrix(5, 1, "118.1");
  on.channels.setTextMatrix(5, 3, "X");
  on.channels.setTextMatrix(5, 4, " ");
  on.channels.setTextMatrix(5, 7, "Tower");
  on.form.load();
  on.openWith("new.apf");
  on.select({0, 4, 8});
  on.form.Command3.userClick();
  const std::string first =
      "\" \",\"1\",\"0.0000\",\"nfm\",\" \",\"l\",\"\"\r\n"
      "\" \",\"2\",\"118.1\",\"am \",\"d\",\" \",\"Tower\"\r\n"
      "\" \",\"3\",\"0.0000\",\"am \",\" \",\"l\",\"\"\r\n";
  EXPECT_EQ(on.store.files["new.apf"], first);
  EXPECT_EQ(on.closed, 1);
  on.openWith("new.apf");
  // An entry of the file isn't a channel, so the record before it is written again.
  on.select({4, 301});
  on.form.Command3.userClick();
  EXPECT_EQ(on.store.files["new.apf"],
            first +
                "\" \",\"4\",\"118.1\",\"am \",\"d\",\" \",\"Tower\"\r\n"
                "\" \",\"5\",\"118.1\",\"am \",\"d\",\" \",\"Tower\"\r\n");
}

TEST(ApfExport, TheModeFollowsTheFrequencyAndThenSticks) {
  const std::pair<std::vector<std::string>, std::string> cases[] = {
      {{"108", "137", "200", "400", "", "x"}, "nnnnnn"},
      {{"108.0001"}, "a"},
      {{"136.9999"}, "a"},
      {{"200.0001"}, "a"},
      {{"399.9999"}, "a"},
      {{"155.0", "118.1", "155.0"}, "naa"},
  };
  for (const auto& [frequencies, modes] : cases) {
    Export on;
    on.form.load();
    std::vector<int> entries;
    std::string expected;
    for (const std::string& frequency : frequencies) {
      const auto i = entries.size();
      entries.push_back(static_cast<int>(i));
      on.channels.setTextMatrix(static_cast<int>(i + 1), 1, frequency);
      expected += "\" \",\"" + std::to_string(i + 1) + "\",\"" + frequency +
                  (modes[i] == 'a' ? "\",\"am \"" : "\",\"nfm\"") + ",\" \",\" \",\"\"\r\n";
    }
    on.openWith("new.apf");
    on.select(entries);
    on.form.Command3.userClick();
    EXPECT_EQ(on.store.files["new.apf"], expected);
  }
}

TEST(ApfExport, ABlankNumberAndAFullDiskGiveNoMessage) {
  Export on;
  on.form.load();
  on.openWith("new.apf");
  on.form.Text1.setText("");
  on.select({0, 1});
  on.form.Command3.userClick();
  EXPECT_EQ(
      on.store.files["new.apf"],
      "\" \",\"\",\"\",\"nfm\",\" \",\" \",\"\"\r\n\" \",\"1\",\"\",\"nfm\",\" \",\" \",\"\"\r\n");
  on.store.full = true;
  on.form.Command3.userClick();
  EXPECT_EQ(on.closed, 2);
  EXPECT_FALSE(on.files.open(1, "new.apf", platform::OpenMode::Input));
  EXPECT_FALSE(on.state.MemoryModified);
}

}  // namespace
}  // namespace tarnvex::test
