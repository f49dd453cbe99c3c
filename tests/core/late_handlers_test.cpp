// Handlers that wait in a question while their window goes: the radio is exchanged, or the user
// leaves. What the user answered comes too late.
#include <gmock/gmock.h>

#include "shell/application.h"
#include "support/world.h"

namespace tarnvex::shell {
namespace {

using platform::Answer;
using testing::IsEmpty;

std::string planOf(const std::string& tag) {
  std::string text;
  for (int row = 1; row <= 300; ++row) {
    text += "\"" + std::to_string(row) + "\",\"155.0000\",\" \",\" \",\" \",\" \",\"\",\"" + tag +
            "\"\r\n";
  }
  for (int row = 1; row <= 1000; ++row) {
    text += "\"slot\",\"000123\",\"" + tag + "\",\"\"\r\n";
  }
  return text;
}

struct Late {
  const char* name;
  /// Which of the questions is open when the window goes, counted from 1.
  int question;
  bool modified;
  std::function<void(MainForm&)> begin;
  /// What the user says before the window goes.
  std::vector<Answer> answers = {};
  std::vector<std::string> choices = {};
  std::deque<std::string> lines = {};
};

struct LateRig : test::World {
  Application application{services, windows};
  bool bc895 = true;
  int questions = 0;
  std::function<void()> go;
  int goesAt = 0;
  /// Backups as the window went.
  std::size_t kept = 0;

  LateRig() {
    store.piece = 4096;
    store.files["/bc895.tvf"] = planOf("bc895");
    store.files["/bc245.tvf"] = planOf("bc245");
    store.files["/good.tvf"] = planOf("good");
    store.files["/program/Searchlist.txt"] = "0,30,40,\"Low\"\r\n";
    store.files["/good.apf"] = "\" \",\"1\",\"118.1\",\"am \",\"d\",\" \",\"Tower\"\r\n";
    settings.values = {{{"BC895", "LastFreqFile"}, "/bc895.tvf"},
                       {{"BC245", "LastFreqFile"}, "/bc245.tvf"}};
    dialogs.whileOpen = [this] { asked(); };
    onDialog = [this](test::FakeCommonDialog& dialog) {
      dialog.whileOpen = [this] { asked(); };
      for (const std::string& choice : choices) {
        dialog.choices.emplace_back(choice);
      }
    };
  }
  std::vector<std::string> choices;

  /// To the window's own dialogs, which exist already.
  void giveChoices(MainForm& form) {
    for (platform::CommonDialog* dialog : {form.Dlg1.get(), form.backupDialog.get()}) {
      dynamic_cast<test::FakeCommonDialog&>(*dialog).choices.assign(choices.begin(), choices.end());
    }
  }
  void answerAs(bool desk) {
    bc895 = desk;
    radio.answerAll("OK", {{"SI", desk ? "ERR" : "SIBC245XLT 0123456789 0215"},
                           {"MD", desk ? "MD00" : "MD13"},
                           {"MA", "NG"},
                           {"FI", "FIF"}});
  }
  void start(bool desk) {
    answerAs(desk);
    application.start();
    gate.enterTimer(windows.splash->Timer1);
    gate.enterTimer(application.mainForm()->Scantimer);
  }
  void asked() {
    if (++questions == goesAt) {
      choices.clear();
      giveChoices(*application.mainForm());
      go();
      windows.takeCalls();
      dialogs.takeBoxes();
      radio.takeLog();
      kept = backups.kept.size();
    }
  }
  void exchange() {
    if (state.MemoryModified) {
      dialogs.answers = {Answer::No};
    }
    answerAs(!bc895);
    gate.enterTimer(application.mainForm()->Scantimer);
    gate.yield();
  }
  void leave() {
    dialogs.answers = {Answer::Yes};
    if (state.MemoryModified) {
      dialogs.answers.push_back(Answer::No);
    }
    application.mainForm()->requestUnload();
  }

  void run(const Late& late, const std::function<void()>& leaves) {
    MainForm* form = application.mainForm();
    choices = late.choices;
    giveChoices(*form);
    form->MSFlexGrid1.setRow(2);
    state.MemoryModified = late.modified;
    dialogs.answers.assign(late.answers.begin(), late.answers.end());
    dialogs.lines = late.lines;
    windows.takeCalls();
    radio.takeLog();
    store.files["/bc895.tvf"] += "\r\n";
    store.files["/bc245.tvf"] += "\r\n";
    const auto files = store.files;
    questions = 0;
    goesAt = late.question;
    go = leaves;
    gate.enter([&] { late.begin(*form); });
    EXPECT_GE(questions, late.question) << "the question was asked";
    EXPECT_EQ(store.files, files);
    EXPECT_EQ(backups.kept.size(), kept);
    choices.clear();
    EXPECT_THAT(dialogs.boxes, IsEmpty()) << "asked after the window had gone";
    EXPECT_THAT(windows.takeCalls(), IsEmpty());
    EXPECT_EQ(radio.takeLog(), "") << "sent to the other radio";
  }
};

search::CustomSearch& searchOf(MainForm& form) {
  form.customSearch.saved.List3.setListIndex(0);
  return form.customSearch;
}

/// The file dialog's own choice counts as made: the user has pressed its button.
const std::vector<Late> kLate = {
    {"New, save changes?", 1, true, &MainForm::mnuNew, {Answer::Yes}, {"/good.tvf"}},
    {"New, saving", 2, true, &MainForm::mnuNew, {Answer::Yes}, {"/good.tvf", "/good.tvf"}},
    {"New, which file?", 1, false, &MainForm::mnuNew, {}, {"/good.tvf"}},
    {"New, a new file", 1, false, &MainForm::mnuNew, {}, {"/fresh.tvf"}},
    {"New, overwrite?", 2, false, &MainForm::mnuNew, {Answer::Yes}, {"/good.tvf"}},
    {"Open, which file?", 1, false, &MainForm::mnuOpenConv, {}, {"/good.tvf"}},
    {"Open, save changes?", 1, true, &MainForm::mnuOpenConv, {Answer::No}, {"/good.tvf"}},
    {"Save", 1, true, &MainForm::mnuSaveConv, {}, {"/good.tvf"}},
    {"Save, changed by another program",
     2,
     true,
     [](MainForm& form) {
       dynamic_cast<test::FakeCommonDialog&>(*form.Dlg1).choices = {std::nullopt};
       form.mnuSaveConv();
     },
     {Answer::Yes}},
    {"Open Backup", 1, false, &MainForm::mnuOpenBackup, {}, {"/good.tvf"}},
    {"Import", 1, false, &MainForm::mnuImport, {}, {"/good.apf"}},
    {"Reset", 1, false, &MainForm::mnuReset, {Answer::Yes}},
    {"Save Search As",
     1,
     false,
     [](MainForm& form) { form.customSearch.Command4.userClick(); },
     {},
     {},
     {"Fresh"}},
    {"Delete Search",
     1,
     false,
     [](MainForm& form) { searchOf(form).mnuSearchlist.mnuSLDelete.onClick(); },
     {Answer::Yes}},
    {"Choose Search, Yes",
     1,
     false,
     [](MainForm& form) { searchOf(form).mnuSearchlist.mnuSLSearch.onClick(); },
     {Answer::Yes}},
    {"Choose Search, No",
     1,
     false,
     [](MainForm& form) { searchOf(form).mnuSearchlist.mnuSLSearch.onClick(); },
     {Answer::No}},
    {"Store a hit",
     1,
     false,
     [](MainForm& form) {
       form.hitLists.List1.add("151.6250 hit");
       form.hitLists.List1.userClick(0);
     },
     {Answer::Yes}},
};

TEST(LateHandlers, DoNothingAfterAnExchangeOfRadios) {
  LateRig on;
  on.start(true);
  for (const bool desk : {true, false}) {
    for (const Late& late : kLate) {
      SCOPED_TRACE(std::string(late.name) + (desk ? " BC895XLT" : " BC245XLT"));
      if (on.bc895 != desk) {
        on.state.MemoryModified = false;
        on.answerAs(desk);
        on.gate.enterTimer(on.application.mainForm()->Scantimer);
      }
      on.gate.enterTimer(on.application.mainForm()->Scantimer);
      MainForm* old = on.application.mainForm();
      on.run(late, [&on] { on.exchange(); });
      ASSERT_NE(on.application.mainForm(), old);
      const std::string shown = desk ? "bc245" : "bc895";
      EXPECT_EQ(on.application.mainForm()->MSFlexGrid1.textMatrix(300, 7), shown);
      EXPECT_EQ(on.application.mainForm()->MSFlexGrid2.textMatrix(1000, 2), shown);
      EXPECT_EQ(on.application.mainForm()->window.caption(), "Tarnvex - /" + shown + ".tvf");
    }
  }
}

TEST(LateHandlers, SaveNoSettingAfterAnExchangeOfRadios) {
  LateRig on;
  on.start(true);
  on.dialogs.colours = {0xFF00};
  on.goesAt = 1;
  on.go = [&on] {
    on.exchange();
    on.settings.saved.clear();
  };
  on.gate.enter([&on] { dynamic_cast<Form4&>(*on.application.mainForm()).chooseDisplayColour(); });
  EXPECT_FALSE(on.bc895);
  EXPECT_THAT(on.settings.saved, IsEmpty());
}

TEST(LateHandlers, DoNothingAfterTheUserHasLeft) {
  for (const Late& late : kLate) {
    SCOPED_TRACE(late.name);
    LateRig on;
    on.start(true);
    on.run(late, [&on] { on.leave(); });
    EXPECT_TRUE(on.gate.ended());
  }
}

}  // namespace
}  // namespace tarnvex::shell
