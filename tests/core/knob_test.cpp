#include "monitor/knob.h"

#include <gtest/gtest.h>

#include "poll_rig.h"

namespace tarnvex::monitor {
namespace {

struct KnobTest : testing::Test, test::Bc895Rig {
  /// The index of the one mark that is visible.
  [[nodiscard]] int mark() const {
    int found = -1;
    for (int i = 0; i < PanelState::kKnobMarks; ++i) {
      const auto at = static_cast<std::size_t>(i);
      if (form.panel.KnobMark[at].visible()) {
        EXPECT_EQ(found, -1) << "two marks";
        found = i;
      }
    }
    return found;
  }
};

TEST_F(KnobTest, TurnsAStepATickWhileItIsHeld) {
  EXPECT_EQ(mark(), 0);
  form.pressKnob(true);
  for (int step = 1; step <= 14; ++step) {
    const int turns = loop.turns();
    poll("MD15", "KEY07 > OK");
    EXPECT_EQ(mark(), step % 13);
    EXPECT_EQ(loop.turns() - turns, 1 + (step - 1) % 13) << "a yield for each mark that is dark";
  }
  form.releaseKnob(true);
  poll("MD15");
  form.pressKnob(false);
  for (int step = 0; step >= -3; --step) {
    poll("MD15", "KEY08 > OK");
    EXPECT_EQ(mark(), (step + 13) % 13);
  }
  form.pressKnob(true);
  const int before = mark();
  poll("MD15", "KEY07 > OK; KEY08 > OK");
  EXPECT_EQ(mark(), before) << "up first, then down";
}

TEST_F(KnobTest, TurnsAStepForAPressShorterThanATick) {
  form.pressKnob(true);
  form.releaseKnob(true);
  form.pressKnob(false);
  form.releaseKnob(false);
  poll("MD15", "KEY07 > OK; KEY08 > OK");
  poll("MD15");
}

TEST_F(KnobTest, ForgetsAPressFromAnIdLoopOrFromBeforeThePoll) {
  const auto press = [this] {
    form.pressKnob(true);
    form.releaseKnob(true);
    form.pressKnob(false);
    form.releaseKnob(false);
  };
  loop.onTurn(2, press);
  poll("MD08", "IDN > ; MD > MD00; IDF > ");
  form.Scantimer.setEnabled(false);
  press();
  form.Scantimer.setEnabled(true);
  poll("MD15");
  EXPECT_EQ(mark(), 0);
}

TEST_F(KnobTest, LeavesScanningFirstInEveryTick) {
  form.pressKnob(true);
  form.pressKnob(false);
  for (int i = 0; i < 2; ++i) {
    poll("MD00", "CT > CTF; SB > SB A; PR > PRF; MA > NG; KEY01 > ; KEY07 > ; KEY01 > ; KEY08 > ");
  }
}

TEST_F(KnobTest, TurnsInUnknownModesAndAfterTheIdLoops) {
  form.pressKnob(false);
  poll("MD14", "KEY08 > ");
  poll("", "KEY08 > ");
  poll("MD08", "IDN > ; MD > MD00; IDF > ; KEY01 > ; KEY08 > ");
  EXPECT_EQ(mark(), 10);
}

}  // namespace
}  // namespace tarnvex::monitor
