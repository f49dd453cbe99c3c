#include <gmock/gmock.h>

#include <algorithm>
#include <iterator>

#include "file_fixture.h"

namespace tarnvex::test {
namespace {

using link::bc245Model;
using link::bc895Model;
using platform::Answer;
using platform::FileDialogKind;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(FrequencyFile, NewYieldsAClearedPlanOnDisk) {
  FileFixture on;
  on.channels.setTextMatrix(300, 7, "old");
  on.talkgroups.setTextMatrix(1000, 3, "X");
  on.Dlg1.choices = {"/plans/new.tvf"};
  on.file.NewPlan();
  EXPECT_EQ(on.store.files["/plans/new.tvf"], clearedFile());
  EXPECT_EQ(on.channels.textMatrix(300, 7) + on.talkgroups.textMatrix(1000, 3), "");
  EXPECT_EQ(on.window.caption(), "Tarnvex - /plans/new.tvf");
  EXPECT_THAT(on.settings.saved,
              ElementsAre(SavedSetting{"BC895", "LastFreqFile", "/plans/new.tvf"}));
  EXPECT_THAT(on.Dlg1.shown, ElementsAre(ShownDialog{FileDialogKind::Open, "",
                                                     "Tarnvex Frequency Files(*.tvf)|*.tvf",
                                                     "New Frequency File"}));
}

TEST(FrequencyFile, OpenAndSaveRoundTripByteForByteOnBothRadios) {
  const std::string stored = fullFile("\r\n");
  for (const std::string& content : {stored, fullFile("\n"), stored + "\"more\",2\r\n"}) {
    for (const auto* model : {&bc895Model(), &bc245Model()}) {
      FileFixture on(*model);
      on.store.files["a.tvf"] = content;
      on.state.MemoryModified = true;
      on.channels.userMoveTo(40, 7);
      on.dialogs.answers = {Answer::No};
      on.Dlg1.choices = {"a.tvf", "b.tvf"};
      on.file.OpenPlan();
      EXPECT_TRUE(on.state.MemoryModified) << "loading doesn't clear the flag";
      EXPECT_EQ(PlanFixture::cursor(on.channels), std::pair(1, 1));
      EXPECT_EQ(on.channels.textMatrix(300, 0), "300/0");
      on.file.SavePlan();
      EXPECT_EQ(on.store.files["b.tvf"], stored);
      EXPECT_FALSE(on.state.MemoryModified);
      EXPECT_EQ(on.window.caption(), "Tarnvex - b.tvf");
      EXPECT_THAT(on.settings.saved,
                  ElementsAre(SavedSetting{std::string(model->key), "LastFreqFile", "a.tvf"},
                              SavedSetting{std::string(model->key), "LastFreqFile", "b.tvf"}));
      EXPECT_THAT(on.dialogs.takeBoxes(), ElementsAre(kSaveChanges));
    }
  }
}

TEST(FrequencyFile, ACutFileLeavesTheRowsReadSoFarWhereverItIsCut) {
  const std::string content = fullFile("\r\n");
  // A row counts as read from the first character of its last field. An open quote ends with the
  // file.
  std::vector<std::size_t> counts;
  for (int row = 1; row <= 1300; ++row) {
    counts.push_back(content.find("," + quoted(row, row <= 300 ? 7 : 3)) + 2);
  }
  // Cut at every byte of the first lines, of the border between the tables and of the last line.
  const std::size_t border = content.find("\"301/0\"");
  for (const std::size_t from : {std::size_t{0}, border - 60, content.size() - 60}) {
    for (std::size_t cut = from; cut < from + 60; ++cut) {
      FileFixture on;
      on.store.files["a.tvf"] = content.substr(0, cut);
      const auto failure = on.file.LoadPlanFromFile("a.tvf");
      const auto rows = std::ranges::upper_bound(counts, cut) - counts.begin();
      EXPECT_EQ(failure.has_value(), rows < 1300) << cut;
      // The last field of the last row may be blank, as it was before.
      const auto filled = (std::ssize(on.changes(on.channels)) + 1) / 8 +
                          (std::ssize(on.changes(on.talkgroups)) + 1) / 4;
      ASSERT_EQ(filled, rows) << cut;
    }
  }
}

TEST(FrequencyFile, AFailedReadLeavesTheFileNumberTaken) {
  FileFixture on;
  on.store.files["short.tvf"] = "\"1\",\"155.0000\",\"\",\"\",\"\",\"\",\"\",\"first\"\r\n\"2\"";
  on.channels.setTextMatrix(2, 7, "kept");
  on.Dlg1.choices = {"none.tvf", "short.tvf", "short.tvf", std::nullopt};
  on.file.OpenPlan();
  on.file.OpenPlan();
  EXPECT_EQ(on.channels.textMatrix(1, 7), "first");
  EXPECT_EQ(on.channels.textMatrix(2, 7), "kept");
  on.file.OpenPlan();
  on.state.MemoryModified = true;
  on.file.SavePlan();
  EXPECT_FALSE(on.state.MemoryModified) << "cleared before the write";
  EXPECT_THAT(
      on.dialogs.boxes,
      ElementsAre(failed("File not found"), failed("Input past end of file"),
                  failed("File already open"), failed("File already open" + kKept + "backup 2")));
  EXPECT_EQ(on.window.caption(), "Tarnvex");
  EXPECT_THAT(on.settings.saved, IsEmpty());
}

TEST(FrequencyFile, AFailedWriteKeepsTheOldFileAndTakesTheNumber) {
  FileFixture on;
  on.store.files["a.tvf"] = "old";
  on.store.full = true;
  on.Dlg1.choices = {"a.tvf", "no/b.tvf", "c.tvf"};
  on.dialogs.answers = {Answer::Yes};
  on.channels.setTextMatrix(5, 7, "tag");
  on.file.NewPlan();
  EXPECT_EQ(on.channels.textMatrix(5, 7), "") << "the plan is cleared before the write";
  on.store.full = false;
  on.file.SavePlan();
  EXPECT_THAT(on.files.write(1, {"more"}), testing::Optional(std::string("Disk full")));
  on.files.close(1);
  EXPECT_EQ(on.store.files["a.tvf"], "old");
  on.file.SavePlan();
  EXPECT_EQ(on.store.files["c.tvf"].size(), clearedFile().size());
  EXPECT_THAT(on.dialogs.boxes, ElementsAre(kOverwriteNew, failed("Disk full"),
                                            failed("File already open" + kKept + "backup 2")));
}

TEST(FrequencyFile, CancelMeansTheFileInUse) {
  FileFixture on;
  on.Dlg1.choices = {std::nullopt, std::nullopt, std::nullopt};
  on.changes(on.channels);
  on.file.NewPlan();
  on.file.OpenPlan();
  on.file.SavePlan();
  EXPECT_THAT(on.changes(on.channels), IsEmpty());
  EXPECT_THAT(on.store.files, IsEmpty()) << "without a name, Cancel stops the command";
  on.Dlg1.FileName = "a.tvf";
  on.Dlg1.choices = {std::nullopt, std::nullopt, std::nullopt};
  on.dialogs.answers = {Answer::No};
  on.file.SavePlan();
  on.channels.setTextMatrix(1, 7, "typed since");
  on.file.NewPlan();
  EXPECT_EQ(on.channels.textMatrix(1, 7), "typed since");
  on.file.OpenPlan();
  EXPECT_EQ(on.channels.textMatrix(1, 7), "") << "loaded again";
  EXPECT_THAT(on.dialogs.boxes, ElementsAre(kOverwriteNew));
}

TEST(FrequencyFile, OnlyTheBc245AsksBeforeSavingOverAnotherFile) {
  FileFixture big;
  big.store.files["b.tvf"] = "old";
  big.Dlg1.choices = {"b.tvf"};
  big.file.SavePlan();
  EXPECT_THAT(big.dialogs.boxes, IsEmpty());

  FileFixture small(bc245Model());
  small.store.files = {{"a.tvf", "old"}, {"b.tvf", "old"}};
  small.Dlg1.FileName = "a.tvf";
  small.plan.history().setFile("a.tvf");
  small.Dlg1.choices = {"a.tvf"};
  small.file.SavePlan();
  EXPECT_THAT(small.dialogs.boxes, IsEmpty());
  // The name is compared with that before the command: after No, Cancel asks about the same file.
  small.Dlg1.choices = {"b.tvf", std::nullopt, "a.tvf"};
  small.dialogs.answers = {Answer::No, Answer::No};
  small.file.SavePlan();
  EXPECT_EQ(small.store.files["b.tvf"], "old");
  small.Dlg1.choices = {"b.tvf", ""};
  small.dialogs.answers = {Answer::No};
  small.file.SavePlan();
  EXPECT_EQ(small.window.caption(), "Tarnvex - a.tvf");
  small.Dlg1.choices = {"b.tvf", "new.tvf"};
  small.dialogs.answers = {Answer::Yes};
  small.file.SavePlan();
  small.file.SavePlan();
  EXPECT_NE(small.store.files["b.tvf"], "old");
  EXPECT_EQ(small.window.caption(), "Tarnvex - new.tvf");
  EXPECT_THAT(small.dialogs.boxes,
              ElementsAre(kOverwriteSave, kOverwriteSave, kOverwriteSave, kOverwriteSave));
}

TEST(FrequencyFile, YesToSavingChangesCountsAsSavedEvenIfSavingFails) {
  FileFixture on;
  on.state.MemoryModified = true;
  on.dialogs.answers = {Answer::Yes};
  on.Dlg1.choices = {std::nullopt, std::nullopt};
  on.file.OpenPlan();
  EXPECT_FALSE(on.state.MemoryModified);
  on.file.offerToSave();
  EXPECT_THAT(on.dialogs.takeBoxes(), ElementsAre(kSaveChanges));
  on.state.MemoryModified = true;
  on.dialogs.answers = {Answer::No};
  on.Dlg1.choices = {"new.tvf"};
  on.file.NewPlan();
  EXPECT_TRUE(on.state.MemoryModified) << "a new plan doesn't clear it";
}

TEST(FrequencyFile, StartUpLoadsTheLastFileOfTheRadioWithoutAMessage) {
  FileFixture none;
  none.file.loadLastPlan();
  EXPECT_EQ(none.window.caption(), "Tarnvex - Untitled");

  FileFixture gone(bc245Model());
  gone.settings.values[{"BC245", "LastFreqFile"}] = "gone.tvf";
  gone.file.loadLastPlan();
  EXPECT_EQ(gone.window.caption(), "Tarnvex - gone.tvf");
  EXPECT_EQ(gone.Dlg1.FileName, "gone.tvf");
  EXPECT_THAT(gone.changes(gone.channels), IsEmpty());

  FileFixture cut;
  cut.settings.values[{"BC895", "LastFreqFile"}] = "a.tvf";
  cut.store.files["a.tvf"] = fullFile("\n").substr(0, 700);
  cut.file.loadLastPlan();
  EXPECT_EQ(cut.channels.textMatrix(1, 7), "1/7");
  EXPECT_EQ(cut.channels.textMatrix(200, 7), "");
  cut.Dlg1.choices = {"b.tvf"};
  cut.file.SavePlan();
  EXPECT_THAT(cut.dialogs.boxes, IsEmpty()) << "the file number is free after start-up";
  EXPECT_THAT(cut.settings.saved, ElementsAre(SavedSetting{"BC895", "LastFreqFile", "b.tvf"}));
}

}  // namespace
}  // namespace tarnvex::test
