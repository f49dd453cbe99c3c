#include <gmock/gmock.h>

#include "poll_rig.h"

namespace tarnvex::shell {
namespace {

using testing::ElementsAre;

TEST(QuickViewForm, OpensWhereItWasLeftForEachRadioSeparately) {
  test::Bc895Rig first;
  first.form.mnuQV();
  auto* small = first.windows.quickView;
  EXPECT_EQ(small->place().x, 12360) << "the bottom right corner";
  EXPECT_EQ(small->place().y, 7800);
  small->userMove({-150, 22.5});
  small->userClose();
  EXPECT_EQ(first.settings.getSetting("BC895", "QVLeft", ""), "-150");
  EXPECT_EQ(first.settings.getSetting("BC895", "QVTop", ""), "22.5");
  first.form.mnuQV();
  EXPECT_EQ(first.windows.quickView->place().x, -150);

  test::Bc245Rig second;
  second.settings.saveSetting("BC895", "QVLeft", "1");
  second.settings.saveSetting("BC245", "QVLeft", "never");
  second.settings.saveSetting("BC245", "QVTop", "300");
  second.form.mnuQV();
  small = second.windows.quickView;
  EXPECT_EQ(small->window.caption(), "Quick View - BC245xlt");
  EXPECT_EQ(small->place().x, 0) << "what can't be read is ignored";
  EXPECT_EQ(small->place().y, 300);
  second.form.panel.light(true);
  EXPECT_EQ(small->background().backColor(), second.form.panel.lighton.backColor());
}

TEST(QuickViewForm, ClosesBeforeItsMainWindow) {
  test::Bc245Rig rig;
  rig.form.mnuQV();
  rig.windows.takeCalls();
  rig.state.SwitchingScanners = true;
  rig.state.MemoryModified = true;
  rig.dialogs.answers = {platform::Answer::No};
  rig.dialogs.whileOpen = [&] {
    EXPECT_EQ(rig.windows.quickView, nullptr);
    EXPECT_FALSE(rig.form.linkControls.Command3.enabled() ||
                 rig.form.linkControls.Option1.enabled());
    rig.form.mnuQV();
  };
  rig.form.unload();
  EXPECT_THAT(rig.windows.takeCalls(), ElementsAre("showMain", "closeQuickView"));
}

}  // namespace
}  // namespace tarnvex::shell
