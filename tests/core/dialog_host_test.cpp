#include "shell/dialog_host.h"

#include <gmock/gmock.h>

#include "shell/about_form.h"
#include "support/world.h"

namespace tarnvex::shell {
namespace {

using testing::ElementsAre;

TEST(DialogHost, ShowsADialogOnceAndOnlyWhenItIsLoaded) {
  test::World world;
  DialogHost host(world.gate, world.windows);
  const auto make = [&] { return std::make_shared<frmAbout>(world.state); };
  const std::function<void(frmAbout&)> askAgain = [&](frmAbout&) {
    EXPECT_EQ(host.show<frmAbout>(make, true), nullptr);
  };
  auto* form = host.show<frmAbout>(make, true, askAgain);
  EXPECT_THAT(world.windows.takeCalls(), ElementsAre("raiseDialog", "openDialog modal"));
  form->Command1.userClick();
  EXPECT_THAT(world.windows.takeCalls(), ElementsAre("closeDialog"));

  // The main window closes while the form asks.
  const std::function<void(frmAbout&)> leave = [&](frmAbout&) { host.leave(); };
  EXPECT_EQ(host.show<frmAbout>(make, false, leave), nullptr);
  EXPECT_THAT(world.windows.takeCalls(), ElementsAre("closeDialog"));
}

}  // namespace
}  // namespace tarnvex::shell
