// All ways to change the plan, in any order, in a main window with a radio.
#include <gmock/gmock.h>

#include <random>
#include <set>
#include <tuple>

#include "memory/apf_dialogs.h"
#include "memory/bank_dialog.h"
#include "platform/convert.h"
#include "shell/bc245_form.h"
#include "shell/bc895_form.h"
#include "support/plan_bytes.h"
#include "support/world.h"

namespace tarnvex::test {
namespace {

using memory::CellRange;
using platform::Table;

/// A user who knows no order.
struct Hands : World {
  struct Operation {
    std::function<void()> act;
    int often;
    /// How often it comes among those that mark the plan as changed.
    int oftenAmongMarking;
  };

  explicit Hands(bool bc895) : key(bc895 ? "BC895" : "BC245") {
    state.ModelKey = key;
    settings.values[{key, "LastFreqFile"}] = "/a.tvf";
    store.piece = 1 << 16;
    radio.answer = [this](std::string_view command) {
      return std::vector<Piece>{{reply(std::string(command)) + "\r"}};
    };
    bc895 ? open<shell::Form4>() : open<shell::Form2>();
    radio.whileWaiting = [this] { meddle(); };
    form->hitLists.List1.add("155.1150 - hit");
    form->hitLists.List2.add("#123456 - hit");
    writeFiles();
    onDialog = [](FakeCommonDialog& dialog) { dialog.choices = {"/list.apf"}; };
    choose({"/a.tvf"}, {});
    form->mnuOpenConv();
  }
  template <class Form>
  void open() {
    auto made = std::make_unique<Form>(services, outside());
    made->panel.mode.setCaption("MD09");
    form = std::move(made);
    form->load();
  }
  /// The plan is in a form in which the cursor changes nothing.
  void writeFiles() {
    for (int row = 1; row <= 1000; ++row) {
      form->MSFlexGrid2.setTextMatrix(row, 1, "-----");
      for (int col = 1; col < 8; ++col) {
        form->MSFlexGrid1.setTextMatrix(
            row, col, col > 1 ? "X" : platform::format(100 + row * 0.0125, "0.0000"));
      }
    }
    const std::string plan = bytes();
    std::string backup = plan;
    std::ranges::replace(backup, 'X', ' ');
    store.files = {{"/a.tvf", plan},
                   {"/b.tvf", plan},
                   {"/backup.tvf", backup},
                   {"/damaged.tvf", backup.substr(0, 9000)},
                   {"/list.apf", "\" \",\"1\",\"118.1000\",\"am \",\"d\",\" \",\"Tower\"\r\n"}};
  }
  [[nodiscard]] std::string bytes() const {
    return bytesOf({&form->MSFlexGrid1, &form->MSFlexGrid2});
  }
  /// The plan's file, as the caption says and the next start finds it.
  std::string file() {
    const std::string path = settings.values[{key, "LastFreqFile"}];
    EXPECT_EQ(form->window.caption(), "Tarnvex - " + path);
    return path;
  }

  std::string reply(const std::string& command) {
    if (command.starts_with("PM")) {
      return command + " 0" + std::to_string(any(1'000'000, 9'999'999)) + " TN DN LN AN RN C05";
    }
    if (command.starts_with("IC")) {
      return command + " " + std::to_string(any(100'000, 999'999));
    }
    // Mostly trunking, on a frequency of the plan.
    const double frequency =
        platform::toReal(form->MSFlexGrid1.textMatrix(any(1, 300), 1)).value_or(0);
    return command == "SG"             ? "S020 F" + platform::format(frequency * 1e4, "00000000")
           : command == "MD"           ? (any(0, 5) == 0 ? "MD00" : "MD12")
           : command.starts_with("PI") ? command + std::to_string(any(0, 9))
                                       : "OK";
  }

  int any(int from, int to) { return std::uniform_int_distribution(from, to)(random); }
  Table& table() { return any(0, 1) == 0 ? form->MSFlexGrid1 : form->MSFlexGrid2; }
  CellRange cells(const Table& table) {
    const int top = any(1, table.rows() - 1);
    const int left = any(1, table.cols() - 1);
    return {top, left, std::min(top + any(0, 5), table.rows() - 1), any(left, table.cols() - 1)};
  }
  void choose(std::deque<std::optional<std::string>> plans,
              std::deque<std::optional<std::string>> copies) {
    dynamic_cast<FakeCommonDialog&>(*form->Dlg1).choices = std::move(plans);
    dynamic_cast<FakeCommonDialog&>(*form->backupDialog).choices = std::move(copies);
  }

  void type() {
    const std::string keys = "0123456789.-xX \b\rab\"";
    table().userKey(keys[static_cast<std::size_t>(any(0, static_cast<int>(keys.size()) - 1))]);
  }
  void move() {
    Table& moved = table();
    moved.userMoveTo(any(1, moved.rows() - 1), any(0, moved.cols() - 1));
  }
  void paste() {
    const char* const blocks[] = {"155,5\tX\t\t \tx\t67.0\ttag",  "1\n2\n3", "X",   "",
                                  "123\tfire\tX\n124\tpolice\tX", "a\tb",    "\t\t"};
    Table& into = table();
    std::ignore = form->planEditor().paste(into, cells(into), blocks[any(0, 6)]);
  }
  void clear() {
    Table& of = table();
    form->planEditor().clear(of, cells(of), "Delete");
  }
  void undo() {
    if (form->planEditor().undoName() != "Start") {
      form->planEditor().undo();
    }
  }
  /// The user goes on editing while a transfer waits for the radio.
  void meddle() {
    if (meddles && any(0, 30) == 0) {
      kOperations[static_cast<std::size_t>(any(0, 5))].act();
    }
  }
  void import() {
    form->mnuImport();
    auto& dialog = *static_cast<memory::ApfForm*>(windows.dialogs.back());
    dialog.Text1.setText(std::to_string(any(1, 300)));
    dialog.Command2.userClick();
    dialog.Command3.userClick();
  }
  void download(void (shell::MainForm::*command)()) {
    (form.get()->*command)();
    // The BC895XLT has no dialog for IDs.
    if (!windows.dialogs.empty()) {
      auto& dialog = *static_cast<memory::BankDialog*>(windows.dialogs.back());
      dialog.List1.setSelected(any(0, 9), true);
      dialog.Command1.userClick();
    }
  }
  void onFile(void (shell::MainForm::*command)()) {
    const std::string path = any(0, 1) == 0 ? "/a.tvf" : "/b.tvf";
    // Whoever wants to save does so at last.
    choose({path, file(), path}, {any(0, 1) == 0 ? "/backup.tvf" : "/damaged.tvf"});
    answer(8);
    (form.get()->*command)();
    choose({}, {});
    dialogs.answers.clear();
  }
  void answer(int boxes) {
    while (boxes-- > 0) {
      dialogs.answers.push_back(any(0, 3) == 0 ? platform::Answer::No : platform::Answer::Yes);
    }
  }
  void storeHit() {
    answer(1);
    (any(0, 1) == 0 ? form->hitLists.List1 : form->hitLists.List2).userClick(0);
    dialogs.answers.clear();
  }

  /// The first six also come while a transfer waits.
  const std::vector<Operation> kOperations = {
      {[this] { type(); }, 500, 0},
      {[this] { move(); }, 200, 0},
      {[this] { paste(); }, 120, 20},
      {[this] { clear(); }, 40, 10},
      {[this] { undo(); }, 40, 20},
      {[this] { form->planEditor().redo(); }, 20, 10},
      {[this] { form->Combo2.userChoose(any(0, 9)); }, 10, 0},
      {[this] { storeHit(); }, 30, 0},
      {[this] { import(); }, 10, 10},
      {[this] { download(&shell::MainForm::mnuDownload); }, 5, 5},
      {[this] { download(&shell::MainForm::mnuOwnloadTrunk); }, 5, 5},
      {[this] { onFile(&shell::MainForm::mnuNew); }, 3, 10},
      {[this] { onFile(&shell::MainForm::mnuOpenConv); }, 3, 10},
      {[this] { onFile(&shell::MainForm::mnuOpenBackup); }, 3, 10},
      {[this] { onFile(&shell::MainForm::mnuSaveConv); }, 3, 10},
  };
  void act(int Operation::*often) {
    std::vector<int> weights;
    for (const Operation& operation : kOperations) {
      weights.push_back(operation.*often);
    }
    std::discrete_distribution<std::size_t> which(weights.begin(), weights.end());
    gate.enter(kOperations[which(random)].act);
  }

  const char* key;
  std::mt19937 random{20261121};
  std::unique_ptr<shell::MainForm> form;
  bool meddles = true;
};

TEST(RandomEdits, AreUndoneAndRedoneByteForByte) {
  for (const bool bc895 : {true, false}) {
    Hands user(bc895);
    auto& editor = user.form->planEditor();
    // What undo and redo bring back. The bytes are compared at every twentieth step.
    const auto seen = [&user](std::size_t step) {
      return std::tuple(user.state.MemoryModified, user.file(),
                        step % 20 == 0 ? user.bytes() : std::string());
    };
    const std::string start = user.bytes();
    editor.clear(user.form->MSFlexGrid1, {1, 1, 300, 7}, "Start");
    for (int operation = 0; operation < 10'000; ++operation) {
      user.act(&Hands::Operation::often);
    }
    editor.clear(user.form->MSFlexGrid1, {1, 1, 300, 7}, "End");
    std::vector<decltype(seen(0))> steps;
    std::set<std::string> names;
    do {
      names.insert(editor.undoName());
      steps.push_back(seen(steps.size()));
    } while (editor.undo());
    EXPECT_THAT(names, testing::ElementsAre("", "Delete", "Download", "End", "Import", "Mark",
                                            "New", "Open", "Open Backup", "Paste", "Start",
                                            "Stored Hit", "Typing"));
    EXPECT_GT(steps.size(), 1000U);
    EXPECT_GT(user.radio.log.size(), 3000U) << "the downloads ask the radio";
    EXPECT_TRUE(user.bytes() == start);
    std::size_t step = steps.size() - 1;
    for (; editor.redo(); --step) {
      ASSERT_TRUE(seen(step - 1) == steps[step - 1]) << step;
    }
    EXPECT_EQ(step, 0U);
  }
}

/// Typed keys and stored hits don't always mark the plan as changed. All others do.
TEST(RandomEdits, LeaveAPlanThatCountsAsSavedInItsFile) {
  for (const bool bc895 : {true, false}) {
    Hands user(bc895);
    user.meddles = false;
    for (int round = 0; round < 250; ++round) {
      const auto before = user.store.files;
      user.backups.kept.clear();
      user.act(&Hands::Operation::oftenAmongMarking);
      for (const auto& [path, old] : before) {
        EXPECT_TRUE(user.store.files[path] == old ||
                    std::ranges::count(user.backups.kept, std::pair(path, old)) == 1)
            << path << " was replaced without a backup";
      }
      std::string saved = user.store.files[user.file()];
      std::string plan = user.bytes();
      // The cursor writes "-----" into blank IDs.
      std::erase(saved, '-');
      std::erase(plan, '-');
      ASSERT_TRUE(user.state.MemoryModified || saved == plan) << "round " << round;
    }
  }
}

}  // namespace
}  // namespace tarnvex::test
