#include <gmock/gmock.h>

#include "poll_rig.h"

namespace tarnvex::shell {
namespace {

using testing::ElementsAre;

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
