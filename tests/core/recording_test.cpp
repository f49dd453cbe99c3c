#include <gmock/gmock.h>

#include "poll_rig.h"

namespace tarnvex::monitor {
namespace {

using test::Box;
using testing::ElementsAre;
using testing::IsEmpty;
using Log = std::vector<std::string>;

const Log kStarts = {"file /program/Fire-2031-05-06 07.08.09.wav", "Open", "Record"};
const Log kStops = {"Stop", "Save", "Close"};

/// Runs a tick after one that has left this on the display. Returns the calls of the media control.
template <class Rig>
Log tickWith(Rig& rig, const char* shown, const char* mode) {
  rig.form.panel.Frequency.setCaption(shown);
  rig.form.panel.mode.setCaption(mode);
  rig.poll("MD99");
  return rig.media.takeLog();
}

struct State {
  const char* shown;
  const char* mode;
  bool reception;
};

/// Every state of the display, with the box ticked or not and a recording running or not.
template <class Rig>
void expectStates(const std::vector<State>& states) {
  for (const auto& [shown, mode, reception] : states) {
    for (const bool ticked : {false, true}) {
      for (const bool running : {false, true}) {
        SCOPED_TRACE(std::string(shown) + " " + mode + (ticked ? " ticked" : "") +
                     (running ? " running" : ""));
        Rig rig;
        rig.form.panel.Alpha.setCaption("Fire");
        rig.form.recording.chkRecord.setValue(ticked);
        rig.state.Recording = running;
        const bool starts = reception && ticked && !running;
        const bool stops = !reception && running;
        EXPECT_EQ(tickWith(rig, shown, mode), starts ? kStarts : stops ? kStops : Log{});
        EXPECT_EQ(rig.state.Recording, starts || (running && !stops));
      }
    }
  }
}

TEST(Recording, FollowsTheDisplay) {
  expectStates<test::Bc895Rig>({{"155.1150", "MD00", true},
                                {"Searching", "MD02", true},
                                {"888.8888", "MD00", true},
                                {"", "MD00", true},
                                {"155.1150", "MD12", false},
                                {"Initializing", "FM", false},
                                {"Scanning", "MD00", false}});
  expectStates<test::Bc245Rig>({{"155.1150", "MD00", true},
                                {"Searching", "MD02", true},
                                {"155.1150", "MD12", true},
                                {"155.1150", "MD20", true},
                                {"155.1150", "MD14", false},
                                {"888.8888", "FM", false},
                                {"Scanning", "MD00", false}});
}

TEST(Recording, GoesOnToTheEndOfItsReceptionUntickedOrNot) {
  test::Bc895Rig rig;
  rig.form.panel.Alpha.setCaption("Fire");
  rig.form.recording.chkRecord.setValue(true);
  EXPECT_EQ(tickWith(rig, "155.1150", "MD00"), kStarts);
  rig.form.recording.chkRecord.setValue(false);
  EXPECT_THAT(tickWith(rig, "46.0125", "MD00"), IsEmpty());
  EXPECT_EQ(tickWith(rig, "Scanning", "MD00"), kStops);
  EXPECT_THAT(tickWith(rig, "155.1150", "MD00"), IsEmpty());
}

TEST(Recording, NamesTheFileByTagOrFrequencyAndTime) {
  const std::string time = "2031-05-06 07:08:09";
  const std::pair<std::string, std::string> cases[] = {
      {"", "155.1150"},
      {"Fire/EMS: a\\b", "Fire-EMS. a-b"},
      {"..", ".."},
      {"Caf\xE9 \x80", "Caf\xE9 \x80"},
      {std::string("a\0b\tc\x7F", 6), "a b c "},
      {std::string(300, 'x'), std::string(70, 'x')}};
  for (const auto& [tag, name] : cases) {
    EXPECT_EQ(recordingName(tag, "155.1150", time), name + "-2031-05-06 07.08.09.wav");
  }
}

TEST(Recording, ReportsAFailureOnceAndLetsThePollGoOn) {
  test::Bc895Rig rig;
  rig.form.recording.chkRecord.setValue(true);
  rig.media.error = "No sound";
  tickWith(rig, "155.1150", "MD00");
  rig.dialogs.whileOpen = [&] {
    rig.radio.expect(test::opening("MD99"));
    rig.gate.enterTimer(rig.form.Scantimer);
    rig.gate.yield();
    rig.radio.expectSpent();
  };
  EXPECT_EQ(tickWith(rig, "Scanning", "MD00"), kStops);
  EXPECT_THAT(rig.dialogs.boxes, ElementsAre(Box{"No sound", "Audio Record Error Occurred", 48}));
  EXPECT_FALSE(rig.form.recording.chkRecord.value());
  EXPECT_THAT(tickWith(rig, "155.1150", "MD00"), IsEmpty());
}

TEST(Recording, ShowsItsTimeWhileTheSoundReachesTheFile) {
  test::Bc895Rig rig;
  auto& recording = rig.form.recording;
  recording.chkRecord.setValue(true);
  rig.media.recording = false;
  tickWith(rig, "155.1150", "MD00");
  EXPECT_FALSE(recording.light.visible()) << "the file isn't open yet";
  rig.media.recording = true;
  // Without another tick: one may last as long as an ID is held.
  for (const auto& [seconds, shown] : {std::pair{7, "REC 0:07"}, {65, "REC 1:05"}}) {
    rig.clock.offsetMilliseconds += seconds * 1000 - rig.clock.milliseconds();
    rig.gate.enterTimer(recording.lightTimer);
    EXPECT_TRUE(recording.light.visible());
    EXPECT_EQ(recording.light.caption(), shown);
  }
  rig.media.recording = false;
  rig.gate.enterTimer(recording.lightTimer);
  EXPECT_FALSE(recording.light.visible()) << "the disk is full";
  EXPECT_TRUE(rig.state.Recording) << "the message comes at the end";
  tickWith(rig, "Scanning", "MD00");
  EXPECT_FALSE(recording.lightTimer.enabled());
}

TEST(Recording, SaysWhatIsMissingWhileTheBoxIsTicked) {
  test::Bc895Rig rig;
  auto& recording = rig.form.recording;
  recording.chkRecord.userClick();
  ASSERT_EQ(rig.media.looks.size(), 1U);
  EXPECT_FALSE(recording.missing.visible());
  rig.media.looks[0]("No sound server");
  EXPECT_TRUE(recording.missing.visible());
  EXPECT_EQ(recording.missing.caption(), "No sound server");
  recording.chkRecord.userClick();
  EXPECT_FALSE(recording.missing.visible());
  rig.media.looks[0]("No sound server");
  EXPECT_FALSE(recording.missing.visible()) << "a late answer";
}

TEST(Recording, IsReleasedOnlyByTheWindowOfTheBc895xlt) {
  test::Bc895Rig first;
  first.form.unload();
  EXPECT_THAT(first.media.log, ElementsAre("Close"));
  test::Bc245Rig second;
  second.form.unload();
  EXPECT_THAT(second.media.log, IsEmpty());
}

}  // namespace
}  // namespace tarnvex::monitor
