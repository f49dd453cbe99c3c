// The radio is exchanged while the program runs.
#include <gtest/gtest.h>

#include <QApplication>
#include <filesystem>

#include "desktop/program_rig.h"

namespace tarnvex::test {
namespace {

auto openHandles() {
  const std::filesystem::directory_iterator handles("/proc/self/fd");
  return std::distance(begin(handles), end(handles));
}

int mainWindows() {
  int count = 0;
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    count += dynamic_cast<desktop::MainWindow*>(widget) != nullptr ? 1 : 0;
  }
  return count;
}

TEST(Switch, ExchangesTheWindowsAgainAndAgainAndLosesNothing) {
  ProgramRig rig;
  const auto bc245 = [&rig] {
    return rig.form() != nullptr && !rig.isBc895() && rig.program.state.ModelKey == "BC245" &&
           rig.form()->Scantimer.enabled();
  };
  std::ptrdiff_t handles = 0;
  std::vector<Step> steps = {
      {"a BC895XLT", rig.bc895("Frequency: Scanning"), [&] { handles = openHandles(); }}};
  for (int round = 0; round < 6; ++round) {
    steps.insert(steps.end(),
                 {{"still there", rig.polled(), [&] { rig.radio.say("become bc245"); }},
                  {"a BC245XLT", bc245},
                  {"its poll", rig.polled(),
                   [&] {
                     EXPECT_EQ(rig.program.windows.mainWindow()->objectName(), "Form2");
                     EXPECT_EQ(rig.program.state.ModelKey, "BC245");
                     rig.radio.say("become bc895");
                   }},
                  {"a BC895XLT again", rig.bc895("Frequency: Scanning")},
                  {"all tidied up",
                   [&] {
                     return mainWindows() == 1 && openHandles() <= handles &&
                            QApplication::overrideCursor() == nullptr;
                   },
                   [&] {
                     EXPECT_EQ(rig.program.windows.mainWindow()->objectName(), "Form4");
                     EXPECT_EQ(openHandles(), handles);
                   }}});
  }
  rig.play(steps);
  EXPECT_EQ(rig.silences, 0);
}

TEST(Switch, HappensOutOfAnIdLoopOnceTheModeIsLeft) {
  ProgramRig rig;
  rig.play(
      {{"scanning", rig.bc895("Frequency: Scanning"), [&] { rig.radio.say("mode MD07"); }},
       {"ID search", rig.bc895("Frequency: - -   - - -"), [&] { rig.radio.say("become bc245"); }},
       {"the other window", [&] { return rig.form() != nullptr && !rig.isBc895(); },
        [&] { rig.radio.say("become bc895"); }},
       {"home", [&] { return rig.isBc895() && rig.form()->Scantimer.enabled(); }}});
}

}  // namespace
}  // namespace tarnvex::test
