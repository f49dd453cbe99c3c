// The live panel on a radio that goes through its modes.
#include <gtest/gtest.h>

#include "desktop/program_rig.h"

namespace tarnvex::test {
namespace {

/// The radio's built-in memory as far as these tests listen to it.
void fillPlan(shell::MainForm& form) {
  form.MSFlexGrid1.setTextMatrix(1, 1, "155.1150");
  form.MSFlexGrid1.setTextMatrix(1, 7, "Fire dispatch");
  for (const auto& [row, frequency] : {std::pair{32, "857.2125"},
                                       {33, "858.2125"},
                                       {34, "859.2125"},
                                       {35, "860.2125"},
                                       {36, "851.0875"}}) {
    form.MSFlexGrid1.setTextMatrix(row, 1, frequency);
  }
  form.MSFlexGrid2.setTextMatrix(101, 1, "001616");
  form.MSFlexGrid2.setTextMatrix(101, 2, "Police north");
}

class PanelLife : public testing::Test {
 protected:
  /// Holds once all these lines show, and none of those indicators.
  std::function<bool()> all(std::vector<std::string> lines, std::vector<std::string> dark = {}) {
    return [this, lines, dark] {
      return rig.isBc895() &&
             std::ranges::all_of(lines, [&](const auto& line) { return rig.shows(line); }) &&
             std::ranges::none_of(dark, [&](const auto& line) { return rig.shows(line); });
    };
  }
  std::function<void()> say(const QByteArray& line) {
    return [this, line] { rig.radio.say(line); };
  }
  /// Nothing on the air, and the radio in another mode.
  std::function<void()> tune(const QByteArray& mode) { return say("scene quiet\nmode " + mode); }

  ProgramRig rig;
};

TEST_F(PanelLife, FollowsTheRadioThroughItsModes) {
  rig.play({
      {"scanning, nothing on the air", all({"Frequency: Scanning", "Scan: SCAN"}, {"MHZ: MHz"}),
       [this] {
         fillPlan(*rig.form());
         rig.radio.say("reception 1 600");
       }},
      {"a reception",
       all({"Frequency: 155.1150", "Alpha: Fire dispatch", "Channel: P  1", "Scan: SCAN",
            "MHZ: MHz", "Delay: DELAY"}),
       tune("MD01")},
      {"manual", all({"Frequency: 155.1150", "Bankltr: A"}, {"Scan: SCAN"}), tune("MD02")},
      {"search", all({"Search: SEARCH"}, {"Scan: SCAN", "Channel: P  1", "Frequency: Scanning"}),
       tune("MD04")},
      {"weather", all({"Wx: WX"}, {"Search: SEARCH"}), tune("MD15")},
      {"send", all({"Frequency: Send", "Bankltr: A B C D E F G H I J"}), tune("MD09")},
      {"trunked scan", all({"Frequency: Scanning", "Trunk: TRUNK", "Scan: SCAN"}, {"Wx: 0"}),
       say("talk 001616 600")},
      {"a talkgroup", all({"Frequency: 1616", "Alpha: Police north", "Channel: 1"}), tune("MD07")},
      {"ID search", all({"Frequency: - -   - - -", "Search: SEARCH"}, {"Scan: SCAN"}),
       say("talk 001616 600")},
      {"an ID found", all({"Frequency: 1616", "Alpha: Police north"}), tune("MD08")},
      {"ID hold", all({"Hold: HOLD", "Search: SEARCH"}), say("talk 001616 600")},
      {"the held ID speaks", all({"Frequency: 001616", "Alpha: Police north"}), tune("MD00")},
      {"scanning again", all({"Frequency: Scanning", "Scan: SCAN"}, {"Hold: HOLD"}),
       [this] {
         EXPECT_GE(rig.form()->hitLists.List2.count(), 1) << "the found ID is a hit";
         auto* drawn = rig.program.windows.mainWindow()->findChild<desktop::RadioPanel*>("panel");
         ASSERT_NE(drawn, nullptr);
         EXPECT_TRUE(drawn->displayText().contains("Scanning"));
       }},
      {"the poll goes on", rig.polled()},
  });
  EXPECT_EQ(rig.silences, 0);
}

/// A spoilt answer to "SI" is the word of another radio: the windows may be exchanged, and back.
TEST_F(PanelLife, SurvivesSpoiltRepliesAndComesBackInStep) {
  const auto scanning = all({"Frequency: Scanning", "Scan: SCAN"});
  std::vector<Step> steps = {{"scanning", scanning}};
  for (const char* fault :
       {"delay 60 5", "split", "join", "wrong-length 5", "wrong-length -3", "cut 1", "garble 3",
        "garble 30", "8bit 3", "8bit 30", "stray C001 F01551150 TN", "stray X"}) {
    steps.push_back({std::string("before ") + fault, rig.polled(), say(fault)});
    steps.push_back({std::string("after ") + fault, rig.polled(), say("reception 1 600")});
    steps.push_back({"in step", all({"Frequency: 155.1150", "Channel: P  1"}), tune("MD00")});
    steps.push_back({"in step again", scanning});
  }
  rig.play(steps);
  EXPECT_EQ(rig.silences, 0);
}

TEST_F(PanelLife, CanBeLeftFromWithinTheIdSearch) {
  rig.play({{"scanning", rig.bc895("Frequency: Scanning"), tune("MD07")},
            {"ID search", rig.bc895("Frequency: - -   - - -")}});
}

TEST_F(PanelLife, CanBeLeftFromWithinTheIdHold) {
  rig.play({{"scanning", rig.bc895("Frequency: Scanning"), tune("MD08")},
            {"ID hold", rig.bc895("Hold: HOLD")}});
}

}  // namespace
}  // namespace tarnvex::test
