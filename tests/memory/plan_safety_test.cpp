// No command on files costs the user a plan: what can be taken back, what is asked, what is kept.
#include <gmock/gmock.h>

#include "file_fixture.h"

namespace tarnvex::test {
namespace {

using platform::Answer;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(PlanSafety, AsksBeforeItReplacesAFileThatItCouldNotRead) {
  for (const bool opened : {false, true}) {
    FileFixture on;
    const std::string cut = fullFile("\n").substr(0, 700);
    on.store.files["cut.tvf"] = cut;
    if (opened) {
      on.Dlg1.choices = {"cut.tvf"};
      on.file.OpenPlan();
      on.files.close(1);
    } else {
      on.settings.values[{"BC895", "LastFreqFile"}] = "cut.tvf";
      on.file.loadLastPlan();
    }
    on.dialogs.boxes.clear();
    on.dialogs.answers = {Answer::No, Answer::Yes};
    on.Dlg1.choices = {std::nullopt, std::nullopt, std::nullopt};
    on.file.SavePlan();
    EXPECT_EQ(on.store.files["cut.tvf"], cut);
    on.file.SavePlan();
    EXPECT_NE(on.store.files["cut.tvf"], cut);
    ASSERT_EQ(on.backups.kept.size(), 1U);
    EXPECT_EQ(on.backups.kept[0].second, cut);
    on.file.SavePlan();
    const Box question{
        "cut.tvf could not be read completely when it was opened. Replace it with the tables' "
        "content?",
        "Confirm Overwrite", 36};
    EXPECT_THAT(on.dialogs.boxes, ElementsAre(question, question)) << "asked until it is whole";
  }
}

TEST(PlanSafety, TwoProgramsOnOneFileLoseNeithersPlan) {
  FileFixture mine;
  FileFixture other;
  mine.store.files["a.tvf"] = clearedFile();
  mine.settings.values[{"BC895", "LastFreqFile"}] = "a.tvf";
  mine.file.loadLastPlan();
  other.channels.setTextMatrix(1, 7, "theirs");
  other.Dlg1.choices = {"a.tvf"};
  other.file.SavePlan();
  const std::string theirs = other.store.files["a.tvf"];
  mine.store.files["a.tvf"] = theirs;
  mine.channels.setTextMatrix(1, 7, "mine");
  mine.Dlg1.choices = {std::nullopt, std::nullopt, std::nullopt};
  mine.dialogs.answers = {Answer::No, Answer::Yes};
  mine.file.SavePlan();
  EXPECT_EQ(mine.store.files["a.tvf"], theirs);
  mine.file.SavePlan();
  const Box question{"a.tvf was changed by another program since it was opened. Replace it?",
                     "Confirm Overwrite", 36};
  EXPECT_THAT(mine.dialogs.takeBoxes(), ElementsAre(question, question));
  EXPECT_THAT(mine.backups.kept, ElementsAre(testing::Pair("a.tvf", theirs)));
  mine.file.SavePlan();
  EXPECT_THAT(mine.dialogs.boxes, IsEmpty()) << "what it wrote itself is known";
  EXPECT_EQ(mine.backups.kept.size(), 1U) << "the same bytes need no copy";
}

TEST(PlanSafety, OpeningAnotherFileWithTheSamePlanIsAStep) {
  FileFixture on;
  on.store.files["copy.tvf"] = on.store.files["backup.tvf"] = fullFile("\r\n");
  on.startWith("a.tvf", clearedFile());
  on.backupDialog.choices = {"backup.tvf"};
  on.Dlg1.choices = {"copy.tvf"};
  on.dialogs.answers = {Answer::No};
  on.file.OpenBackup();
  on.file.OpenPlan();
  on.plan.history().undo();
  on.plan.history().undo();
  EXPECT_EQ(on.window.caption(), "Tarnvex - a.tvf");
  EXPECT_FALSE(on.state.MemoryModified) << "it is that file's plan";
}

struct NotSaved {
  const char* name;
  std::function<void(FileFixture&)> prepare;
  std::vector<Answer> answers;
  /// Before the words about the backup; blank for no message.
  std::string told;
};

const std::vector<NotSaved> kNotSaved = {
    {"Cancel without a file",
     [](FileFixture& on) {
       on.Dlg1.FileName.clear();
       on.Dlg1.choices = {std::nullopt};
     },
     {Answer::Yes},
     "The plan was not saved."},
    {"No, another program has changed it",
     [](FileFixture& on) {
       on.store.files["a.tvf"] += "more";
       on.Dlg1.choices = {"a.tvf"};
     },
     {Answer::Yes, Answer::No},
     "The plan was not saved."},
    {"No, it could not be read",
     [](FileFixture& on) {
       on.store.files["cut.tvf"] = "1,2";
       on.Dlg1.choices = {"cut.tvf", "cut.tvf"};
       on.file.OpenPlan();
       on.files.close(1);
       on.dialogs.boxes.clear();
     },
     {Answer::Yes, Answer::No},
     "The plan was not saved."},
    {"a full disk",
     [](FileFixture& on) {
       on.store.full = true;
       on.Dlg1.choices = {"a.tvf"};
     },
     {Answer::Yes},
     "An error occurred while saving the file: Disk full"},
    {"No", [](FileFixture&) {}, {Answer::No}, ""},
};

TEST(PlanSafety, APlanThatIsNotSavedAtTheExitIsKept) {
  for (const auto& [name, prepare, answers, told] : kNotSaved) {
    for (const bool fails : {false, true}) {
      SCOPED_TRACE(std::string(name) + (fails ? ", and no backup" : ""));
      FileFixture on;
      on.startWith("a.tvf", clearedFile());
      prepare(on);
      on.channels.setTextMatrix(1, 7, "edited");
      on.state.MemoryModified = true;
      on.backups.failure = fails ? platform::Failure("Permission denied") : std::nullopt;
      on.dialogs.answers.assign(answers.begin(), answers.end());
      on.file.offerToSaveAtExit();
      const std::string place =
          fails ? "\n\nThe plan could not be kept as a backup either: Permission denied"
                : kKept + "backup " + std::to_string(on.backups.kept.size());
      ASSERT_FALSE(on.dialogs.boxes.empty());
      EXPECT_EQ(on.dialogs.boxes.back().text, told.empty() ? kSaveChanges.text : told + place);
      ASSERT_EQ(on.backups.kept.empty(), fails);
      EXPECT_TRUE(fails || on.backups.kept.back().second.find("edited") != std::string::npos);
    }
  }
}

TEST(PlanSafety, AfterABrokenOffNewASaveStillAsks) {
  FileFixture on(link::bc245Model());
  on.store.files["mine.tvf"] = clearedFile();
  on.store.files["other.tvf"] = "somebody's";
  on.settings.values[{"BC245", "LastFreqFile"}] = "mine.tvf";
  on.file.loadLastPlan();
  on.Dlg1.choices = {"other.tvf", std::nullopt, ""};
  on.dialogs.answers = {Answer::No, Answer::No};
  on.file.NewPlan();
  on.file.SavePlan();
  EXPECT_THAT(on.dialogs.boxes, ElementsAre(kOverwriteNew, kOverwriteSave));
  EXPECT_EQ(on.store.files["other.tvf"], "somebody's");
  EXPECT_EQ(on.Dlg1.OwnFile, "mine.tvf");
}

TEST(PlanSafety, ADamagedBackupTakesNothingAlong) {
  FileFixture on;
  on.store.files["damaged.tvf"] = clearedFile().substr(0, 9000);
  on.store.files["empty.tvf"] = "";
  on.startWith("mine.tvf", fullFile("\n"));
  on.backupDialog.choices = {"empty.tvf", "damaged.tvf"};
  on.file.OpenBackup();
  EXPECT_FALSE(on.state.MemoryModified) << "nothing was read";
  on.file.OpenBackup();
  EXPECT_TRUE(on.state.MemoryModified);
  on.plan.history().undo();
  EXPECT_FALSE(on.state.MemoryModified);
  on.dialogs.boxes.clear();
  on.Dlg1.choices = {std::nullopt};
  on.file.SavePlan();
  EXPECT_THAT(on.dialogs.boxes, IsEmpty());
  EXPECT_EQ(on.store.files["mine.tvf"], fullFile("\r\n"));
}

TEST(PlanSafety, WhatCannotBeReadIsNotReplacedInSilence) {
  FileFixture on;
  on.store.files["a.tvf"] = "unreadable";
  on.store.readable = 0;
  on.Dlg1.choices = {"a.tvf"};
  on.file.SavePlan();
  ASSERT_EQ(on.dialogs.boxes.size(), 1U);
  EXPECT_TRUE(on.dialogs.boxes[0].text.starts_with("The old plan could not be kept as a backup: "));
}

TEST(PlanSafety, ABackupThatFailsStopsNoSaveAndIsToldOnce) {
  FileFixture on;
  on.store.files["a.tvf"] = "old";
  on.backups.failure = "Permission denied";
  on.Dlg1.FileName = "a.tvf";
  on.Dlg1.choices = {std::nullopt, std::nullopt};
  on.file.SavePlan();
  EXPECT_NE(on.store.files["a.tvf"], "old");
  on.store.files["a.tvf"] += "more";
  on.dialogs.answers = {Answer::Yes};
  on.file.SavePlan();
  on.file.keepPlan();
  EXPECT_THAT(on.dialogs.boxes,
              ElementsAre(Box{"The old plan could not be kept as a backup: Permission denied. This "
                              "message won't be shown again.",
                              "Backup", 48},
                          testing::_));
}

}  // namespace
}  // namespace tarnvex::test
