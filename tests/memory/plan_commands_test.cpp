// The file commands, edits and undo in any order.
#include <gmock/gmock.h>

#include <random>
#include <tuple>

#include "file_fixture.h"
#include "memory/plan_editor.h"

namespace tarnvex::test {
namespace {

using platform::Answer;

/// One command of a user who knows no order.
void act(FileFixture& on, memory::PlanEditor& editor, int command, int row) {
  const std::string text = std::to_string(row * 31);
  switch (command) {
    case 0:
      return on.file.NewPlan();
    case 1:
      return on.file.OpenPlan();
    case 2:
      return on.file.SavePlan();
    case 3:
      return on.file.OpenBackup();
    case 4:
      return editor.clear(on.channels, {row, 1, row, 7}, "Cut");
    case 5: {
      const auto step = on.plan.history().step("Import");
      on.state.MemoryModified = true;
      on.channels.setTextMatrix(row, 7, text);
      return;
    }
    case 6:
      std::ignore = editor.paste(on.channels, {row, 7, row, 7}, text);
      return;
    case 7:
      editor.redo();
      return;
    default:
      editor.undo();
  }
}

/// A cleared plan with its IDs in normal form, so that the cursor changes nothing.
std::string emptyPlan() {
  std::string plan = clearedFile();
  constexpr std::string_view kBlank = R"("","","")";
  for (std::size_t at = 0; (at = plan.find(kBlank, at)) != std::string::npos;) {
    plan.replace(at, kBlank.size(), R"("-----","","")");
  }
  return plan;
}

/// Whatever the commands do and undo takes back: a plan that counts as saved is in its file.
TEST(PlanCommands, LeaveAPlanThatCountsAsSavedInItsFile) {
  FileFixture on;
  memory::PlanEditor editor(on.plan);
  std::mt19937 random(20261121);
  const auto any = [&](int from, int to) {
    return std::uniform_int_distribution(from, to)(random);
  };
  const std::string paths[] = {"a.tvf", "b.tvf", "c.tvf"};
  for (const std::string& path : paths) {
    on.store.files[path] = emptyPlan();
  }
  on.store.files["backup.tvf"] = fullFile("\r\n");
  on.startWith("a.tvf", emptyPlan());
  for (int round = 0; round < 500; ++round) {
    on.Dlg1.choices.assign(3, paths[any(0, 2)]);
    on.backupDialog.choices = {"backup.tvf"};
    on.dialogs.answers.assign(6, any(0, 3) == 0 ? Answer::No : Answer::Yes);
    act(on, editor, any(0, 9), any(1, 300));
    on.Dlg1.choices.clear();
    on.backupDialog.choices.clear();
    on.dialogs.answers.clear();
    on.file.WritePlanToFile("probe.tvf");
    ASSERT_TRUE(on.state.MemoryModified ||
                on.store.files[on.plan.history().file()] == on.store.files["probe.tvf"])
        << "round " << round;
  }
}

}  // namespace
}  // namespace tarnvex::test
