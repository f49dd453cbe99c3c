// Enter in any question, at any place: nothing is destroyed.
#include <gmock/gmock.h>

#include "memory/file_fixture.h"
#include "shell/bc245_form.h"
#include "shell/bc895_form.h"
#include "shell/reception_log_form.h"
#include "support/world.h"

namespace tarnvex::shell {
namespace {

struct Destroyer {
  const char* title;
  std::function<void(MainForm&)> act;
};

void choose(platform::CommonDialog& dialog, const char* path) {
  // On the BC245XLT No shows the dialog again; the user then gives up.
  dynamic_cast<test::FakeCommonDialog&>(dialog).choices = {path, ""};
}

const Destroyer kDestroyers[] = {
    {"Confirm Overwrite",
     [](MainForm& form) {
       choose(*form.Dlg1, "/good.tvf");
       form.mnuNew();
     }},
    // The window's own file, which it couldn't read, or which another program has changed since.
    {"Confirm Overwrite",
     [](MainForm& form) {
       choose(*form.Dlg1, "/good.tvf");
       form.mnuSaveConv();
     }},
    {"Confirm Overwrite",
     [](MainForm& form) {
       form.hitLists.List1.add("151.6250 hit");
       form.hitLists.List1.userClick(0);
     }},
    {"Confirm Overwrite",
     [](MainForm& form) {
       form.hitLists.List2.add("#123456 hit");
       form.hitLists.List2.userClick(0);
     }},
    {"Confirm Scanner Reset", &MainForm::mnuReset},
    {"Confirm Delete",
     [](MainForm& form) {
       form.customSearch.saved.List3.setListIndex(0);
       form.customSearch.mnuSearchlist.mnuSLDelete.onClick();
     }},
    {"Confirm Clear", [](MainForm& form) { form.mnuReceptions(); }},
};

template <class Form>
void pressEnterInAll(const std::string& plan) {
  test::World world;
  world.store.piece = 4096;
  world.store.files["/good.tvf"] = world.store.files["/other.tvf"] = plan;
  world.settings.values = {{{"BC895", "LastFreqFile"}, "/good.tvf"},
                           {{"BC245", "LastFreqFile"}, "/good.tvf"}};
  world.store.files["/program/Searchlist.txt"] = "0,30,40,\"Low\"\r\n";
  world.radio.answerAll("OK");
  world.state.ModelKey = std::is_same_v<Form, Form4> ? "BC895" : "BC245";
  Form form(world.services, world.outside());
  form.load();
  form.Scantimer.setEnabled(false);
  form.MSFlexGrid1.setTextMatrix(1, 1, "155.1150");
  form.MSFlexGrid2.setTextMatrix(1, 1, "000123");
  world.dialogs.takeBoxes();
  world.radio.takeLog();
  world.dialogs.pressesEnter = true;
  world.store.files["/good.tvf"] += "changed";
  const auto files = world.store.files;
  for (const auto& [title, act] : kDestroyers) {
    SCOPED_TRACE(title);
    act(form);
    if (world.windows.receptionLog != nullptr) {
      world.windows.receptionLog->cmdClear.userClick();
    }
    const auto boxes = world.dialogs.takeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].title, title);
    EXPECT_EQ(world.store.files, files);
    EXPECT_EQ(form.MSFlexGrid1.textMatrix(1, 1), "155.1150");
    EXPECT_EQ(form.MSFlexGrid2.textMatrix(1, 1), "000123");
    EXPECT_EQ(world.radio.takeLog(), "");
    dynamic_cast<test::FakeCommonDialog&>(*form.Dlg1).choices.clear();
  }
  EXPECT_NE(world.windows.receptionLog, nullptr);
  // On the BC895XLT the file dialog itself asks.
  if constexpr (std::is_same_v<Form, Form2>) {
    choose(*form.Dlg1, "/other.tvf");
    form.mnuSaveConv();
    EXPECT_EQ(world.store.files, files);
    EXPECT_EQ(world.dialogs.takeBoxes().size(), 1U);
  }
}

TEST(Enter, DestroysNothing) {
  for (const std::string& plan : {test::clearedFile(), std::string("not a plan")}) {
    pressEnterInAll<Form4>(plan);
    pressEnterInAll<Form2>(plan);
  }
}

}  // namespace
}  // namespace tarnvex::shell
