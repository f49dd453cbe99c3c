#include "monitor/multiscan.h"

#include <gmock/gmock.h>

#include "poll_rig.h"

namespace tarnvex::monitor {
namespace {

using test::SavedSetting;
using testing::ElementsAre;

/// The exchange before each place.
std::string modes(int count, const std::string& mode = "MD00") {
  std::string all = "MD > " + mode;
  for (int i = 1; i < count; ++i) {
    all += "; MD > " + mode;
  }
  return all;
}
std::string trunked(const std::string& bank, const std::string& list) {
  return "; KEY13 > ; KEY21 " + bank + " > ; KEY00 > ; IS > " + list;
}
std::string conventional(const std::string& banks) {
  return "; SB " + banks + " > ; KEY00 > ";
}

struct MultiscanTest : testing::Test, test::Bc895Rig {
  void tickBoxes(std::initializer_list<int> banks) {
    for (const int bank : banks) {
      form.multiscan.MSBank[static_cast<std::size_t>(bank)].userClick();
    }
  }
  /// Ticks these boxes and switches Multiscan on, with nothing being received.
  void start(std::initializer_list<int> banks) {
    tickBoxes(banks);
    radio.expect(test::script("KEY00 > "));
    form.multiscan.Option5.userClick();
    radio.expectSpent();
    form.panel.Frequency.setCaption("Scanning");
  }
  void scan(const std::string& exchanges) {
    radio.expect(test::script(exchanges));
    gate.enterTimer(form.multiscan.timer);
    radio.expectSpent();
  }
  /// The cursor and the interval.
  [[nodiscard]] std::pair<int, int> place() const {
    return {state.BankCursor, form.multiscan.timer.interval()};
  }
};

TEST_F(MultiscanTest, WaitsWhileSomethingIsOnTheDisplay) {
  start({0});
  for (const char* text : {"155.1150", "", "Error", "scanning", "Scanning "}) {
    form.panel.Frequency.setCaption(text);
    scan("");
  }
}

TEST_F(MultiscanTest, AlternatesConventionalBanksWithEachTrunkedOne) {
  start({9, 0, 2, 11, 19});
  scan(modes(1) + conventional("ACJ"));
  EXPECT_EQ(place(), std::pair(9, 1000));
  scan(modes(2) + trunked("B", "IS B"));
  EXPECT_EQ(place(), std::pair(11, 1750));
  // If the radio is trunking on the way, Multiscan leaves that first.
  scan("MD > #; MD > MD09; KEY13 > ; " + modes(7) + trunked("J", "IS J"));
  EXPECT_EQ(place(), std::pair(19, 1750));
  scan(modes(1, "MD10") + conventional("ACJ"));
  EXPECT_EQ(place(), std::pair(9, 1000));
}

TEST_F(MultiscanTest, ReturnsToTheConventionalBanksThroughTenBlankPlaces) {
  start({4});
  scan(modes(1) + conventional("E"));
  scan(modes(11) + conventional("E"));
  EXPECT_EQ(place(), std::pair(9, 1000));
}

TEST_F(MultiscanTest, GoesRoundTheTrunkedBanksAlone) {
  start({12});
  scan(modes(12) + trunked("C", "IS C"));
  scan(modes(20) + trunked("C", "IS C"));
  EXPECT_EQ(place(), std::pair(12, 1750));
}

TEST_F(MultiscanTest, SwitchesItselfOffOnABankWithoutIds) {
  start({10});
  clock.offsetMilliseconds = 400;
  std::string course;
  const auto watching = form.panel.Frequency.changed.connect([&] {
    course += form.panel.Frequency.caption() + "@" + std::to_string(loop.now());
    course += state.EntryActive ? " " : "! ";
  });
  bool polled = false;
  loop.at(700, [&] { gate.enter([&] { polled = true; }); });
  scan(modes(10) + trunked("A", "NG") + "; KEY13 > ; KEY00 > ");
  // Each wait lasts until the second changes.
  EXPECT_EQ(course, "Error@0 @600 Error@1600 @2600 ");
  EXPECT_EQ(loop.now(), 3600);
  EXPECT_TRUE(polled);
  EXPECT_EQ(dialogs.beeps, 1);
  EXPECT_FALSE(state.EntryActive || form.multiscan.Option5.value() ||
               form.multiscan.timer.enabled());
  EXPECT_TRUE(form.multiscan.Option6.value() && form.multiscan.Option5.enabled());
  EXPECT_EQ(place(), std::pair(10, 1750));
}

TEST_F(MultiscanTest, MovesOnAtOnceWhenABoxIsClicked) {
  start({10});
  form.panel.Frequency.setCaption("155.1150");
  form.panel.Alpha.setCaption("Fire");
  radio.expect(test::script(modes(1) + conventional("A")));
  form.multiscan.MSBank[0].userClick();
  radio.expectSpent();
  EXPECT_EQ(form.panel.Frequency.caption() + form.panel.Alpha.caption(), "Scanning");
  EXPECT_THAT(settings.saved, ElementsAre(SavedSetting{"Multiscan", "10", "1"},
                                          SavedSetting{"Multiscan", "0", "1"}));
}

TEST_F(MultiscanTest, CannotBeOnWithoutABank) {
  EXPECT_FALSE(form.multiscan.Option5.enabled());
  form.multiscan.Option5.userClick();
  EXPECT_FALSE(form.multiscan.timer.enabled());
  start({0});
  // With the port closed, the last round must end.
  form.MSComm1->close();
  form.multiscan.MSBank[0].userClick();
  EXPECT_FALSE(form.multiscan.Option5.value() || form.multiscan.Option5.enabled() ||
               form.multiscan.timer.enabled());
  EXPECT_TRUE(form.multiscan.Option6.value());
  EXPECT_THAT(settings.saved, ElementsAre(SavedSetting{"Multiscan", "0", "1"},
                                          SavedSetting{"Multiscan", "0", "0"}));
}

TEST_F(MultiscanTest, EndsOnAClosedPortWithOneMessage) {
  start({10});
  scan("MD");
  EXPECT_EQ(dialogs.takeBoxes().size(), 1U);
  EXPECT_EQ(state.BankCursor, 10);
  form.multiscan.Option6.userClick();
  EXPECT_FALSE(form.multiscan.timer.enabled());
}

TEST_F(MultiscanTest, LeavesATransferAlone) {
  start({0, 10});
  state.TransferRunning = true;
  gate.enterTimer(form.multiscan.timer);
  form.multiscan.MSBank[3].userClick();
  form.multiscan.Option6.userClick();
  form.multiscan.Option5.userClick();
  EXPECT_EQ(radio.takeLog(), "KEY00") << "from the start, before the transfer";
  EXPECT_TRUE(form.multiscan.timer.enabled());
}

}  // namespace
}  // namespace tarnvex::monitor
