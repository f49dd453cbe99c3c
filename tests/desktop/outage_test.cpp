// The line fails while the program runs, and comes back.
#include <gtest/gtest.h>

#include <QElapsedTimer>

#include "desktop/program_rig.h"
#include "desktop/turn_counter.h"

namespace tarnvex::test {
namespace {

constexpr const char* kSilence = "Scanner Not Responding";

struct Outage {
  const char* name;
  const char* model;
  /// The radio's mode, and what the panel then shows.
  const char* mode;
  const char* shown;
  /// What happens to the line. `first`, if it isn't empty, happens a moment earlier.
  const char* first;
  const char* loss;
  const char* repair;
};

void PrintTo(const Outage& outage, std::ostream* out) {
  *out << outage.name;
}

class OutageTest : public testing::TestWithParam<Outage> {
 protected:
  /// True after a while in which nothing may happen.
  std::function<bool()> quietFor(int milliseconds) {
    return [this, milliseconds] {
      if (milliseconds == 0) {
        return true;
      }
      if (!counter) {
        counter = std::make_unique<TurnCounter>();
        clock.start();
        cpu = clockOfProcess();
      }
      if (clock.elapsed() < milliseconds) {
        return false;
      }
      EXPECT_LT(counter->turns(), 4 * milliseconds) << "a busy loop";
      EXPECT_LT(clockOfProcess() - cpu, 0.3 * milliseconds / 1000) << "a busy processor";
      counter.reset();
      return true;
    };
  }
  /// The program's processor time, in seconds.
  static double clockOfProcess() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

  /// True once the main window of the radio shows a line.
  std::function<bool()> shows(const char* line) {
    return [this, line] { return home() && rig.shows(line); };
  }
  [[nodiscard]] bool home() const {
    return rig.form() != nullptr &&
           rig.isBc895() == (GetParam().model == std::string_view("bc895"));
  }

  ProgramRig rig{{"--baud", "0", "--scene", "quiet", "--model", GetParam().model}};
  std::unique_ptr<TurnCounter> counter;
  QElapsedTimer clock;
  double cpu = 0;
};

TEST_P(OutageTest, GivesOneNoticeStaysQuietAndConnectBringsItBack) {
  const Outage& outage = GetParam();
  const auto lost = [this] {
    return rig.box() == nullptr && !rig.form()->Scantimer.enabled() &&
           !rig.form()->MSComm1->portOpen();
  };
  std::vector<Step> steps = {{"polling", shows("Frequency: Scanning"),
                              [&] { rig.radio.say(QByteArray("mode ") + outage.mode); }}};
  for (int round = 1; round <= 2; ++round) {
    const QByteArray first = outage.first;
    steps.insert(steps.end(),
                 {{"in the mode", shows(outage.shown),
                   [this, first] {
                     if (!first.isEmpty()) {
                       rig.radio.say(first);
                     }
                   }},
                  {"a moment", quietFor(first.isEmpty() ? 0 : 200),
                   [this, &outage] { rig.radio.say(outage.loss); }},
                  {"the notice", rig.boxShows(kSilence)},
                  {"quiet after the notice", quietFor(300), [this] { rig.press(QMessageBox::Ok); }},
                  {"the link is given up", lost},
                  {"quiet after it", quietFor(300),
                   [this, &outage, round] {
                     EXPECT_EQ(rig.silences, round);
                     rig.radio.say(outage.repair);
                     // Once it answers, it is plugged in, with another terminal under the same
                     // name.
                     EXPECT_NE(rig.radio.ask("mode"), "");
                     rig.connectAgain();
                   }},
                  {"back", [this] { return home() && !rig.program.state.CurrentMode.empty(); },
                   [&outage, this] { rig.radio.say(QByteArray("mode ") + outage.mode); }}});
  }
  rig.play(steps);
  EXPECT_EQ(rig.silences, 2);
}

INSTANTIATE_TEST_SUITE_P(
    Outages, OutageTest,
    testing::Values(
        Outage{"SilenceInAScan", "bc895", "MD00", "Frequency: Scanning", "", "silence on",
               "silence off"},
        Outage{"SilenceInAnIdSearch", "bc895", "MD07", "Frequency: - -   - - -", "", "silence on",
               "silence off"},
        Outage{"UnpluggedInAScan", "bc895", "MD00", "Frequency: Scanning", "", "hangup", "replug"},
        Outage{"UnpluggedInAnExchange", "bc895", "MD00", "Frequency: Scanning", "silence on",
               "hangup", "silence off\nreplug"},
        Outage{"UnpluggedInAnIdSearch", "bc895", "MD07", "Frequency: - -   - - -", "", "hangup",
               "replug"},
        Outage{"UnpluggedInAnIdHold", "bc895", "MD08", "Hold: HOLD", "", "hangup", "replug"},
        Outage{"HandheldSilentInAScan", "bc245", "MD00", "Frequency: Scanning", "", "silence on",
               "silence off"},
        Outage{"HandheldUnpluggedInASearch", "bc245", "MD02", "Search: SEARCH", "", "hangup",
               "replug"},
        Outage{"HandheldUnpluggedInATrunkedScan", "bc245", "MD11", "Trunk: TRUNK", "", "hangup",
               "replug"}),
    [](const auto& info) { return info.param.name; });

TEST(StartWithoutARadio, LeadsToTheOtherWindowAndConnectCorrectsIt) {
  ProgramRig rig;
  rig.radio.say("hangup");
  rig.play({{"a window", [&] { return rig.form() != nullptr; }},
            {"polling without an answer",
             [&] { return rig.form()->Scantimer.enabled() && !rig.form()->MSComm1->portOpen(); },
             [&] {
               EXPECT_FALSE(rig.isBc895());
               rig.radio.say("replug");
               EXPECT_EQ(rig.radio.ask("mode"), "MD00");
               rig.connectAgain();
             }},
            {"the right window", rig.bc895("Frequency: Scanning")}});
  EXPECT_EQ(rig.silences, 0) << "a missing port stays closed without a message";
}

TEST(StartWithAStrayByte, LeavesTheSplashInTime) {
  ProgramRig rig;
  rig.radio.say("cut 2");
  rig.play({{"the right window", rig.bc895("Frequency: Scanning")}});
  EXPECT_EQ(rig.silences, 0);
}

}  // namespace
}  // namespace tarnvex::test
