// The live panel, with a radio that goes through its modes.
#include <gtest/gtest.h>

#include <regex>

#include "desktop/program_rig.h"

namespace tarnvex::test {
namespace {

/// The part of the radio's built-in memory that these tests receive.
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
  /// True once all these lines are shown and none of the `dark` indicators.
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
  /// Whether a table marks this row as received.
  [[nodiscard]] bool marks(const char* table, int row) const {
    const auto* view = rig.program.windows.mainWindow()->findChild<QTableView*>(table);
    return view->model()->index(row - 1, 1).data(Qt::BackgroundRole).isValid();
  }
  /// Clears the air and sets the radio's mode.
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
      {"a talkgroup", all({"Frequency: 1616", "Alpha: Police north", "Channel: 1"})},
      {"its row", [this] { return marks("MSFlexGrid2", 101); },
       [this] {
         EXPECT_FALSE(marks("MSFlexGrid1", 1)) << "the slot isn't a channel";
         rig.radio.say("scene quiet\nmode MD07");
       }},
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

/// Faults that a line may have.
constexpr const char* kFaults[] = {"delay 60 5",
                                   "split",
                                   "join",
                                   "wrong-length 5",
                                   "wrong-length -3",
                                   "cut 1",
                                   "garble 3",
                                   "garble 30",
                                   "8bit 3",
                                   "8bit 30",
                                   "extra id",
                                   "extra echo",
                                   "stray C001 F01551150 TN",
                                   "stray X"};

class SpoiltLine : public testing::TestWithParam<const char*> {
 protected:
  /// Every conventional hit begins with a frequency, every trunked one with an ID.
  void expectTrueHits() {
    const std::regex frequency("[0-9]{1,4}\\.[0-9]{4}( .*)?");
    const std::regex id(".?[0-9-]{4,7}( .*)?");
    for (const auto& [list, kind] :
         {std::pair{&rig.form()->hitLists.List1, &frequency}, {&rig.form()->hitLists.List2, &id}}) {
      for (const std::string& hit : list->items()) {
        EXPECT_TRUE(std::regex_match(hit, *kind)) << hit;
      }
    }
  }

  ProgramRig rig{{"--baud", "0", "--scene", "quiet", "--model", GetParam()}};
};

/// No fault of these can turn an answer into another radio's identity.
TEST_P(SpoiltLine, ComesBackInStepAndAddsNoFalseHits) {
  const auto shown = [this](const char* line) {
    return [this, line] {
      return rig.form() != nullptr && rig.isBc895() == (GetParam() == std::string_view("bc895")) &&
             rig.shows(line);
    };
  };
  std::vector<Step> steps = {{"scanning", shown("Frequency: Scanning")}};
  for (const char* fault : kFaults) {
    const std::string name = fault;
    steps.insert(
        steps.end(),
        {{"before " + name, rig.polled(),
          [this, fault] { rig.radio.say(QByteArray("mode MD02\n") + fault); }},
         {"after " + name, rig.polled(), [this] { rig.radio.say("mode MD00\nreception 1 600"); }},
         {"in step after " + name, shown("Frequency: 155.1150"),
          [this] {
            expectTrueHits();
            rig.radio.say("scene quiet\nmode MD00");
          }},
         {"scanning after " + name, shown("Frequency: Scanning")}});
  }
  rig.play(steps);
  EXPECT_EQ(rig.silences, 0);
  EXPECT_EQ(rig.mainWindows, 1) << "no exchange of windows";
}

INSTANTIATE_TEST_SUITE_P(Radios, SpoiltLine, testing::Values("bc895", "bc245"),
                         [](const auto& info) { return std::string(info.param); });

TEST_F(PanelLife, CanBeClosedWithinTheIdSearch) {
  rig.play({{"scanning", rig.bc895("Frequency: Scanning"), tune("MD07")},
            {"ID search", rig.bc895("Frequency: - -   - - -")}});
}

TEST_F(PanelLife, CanBeClosedWithinTheIdHold) {
  rig.play({{"scanning", rig.bc895("Frequency: Scanning"), tune("MD08")},
            {"ID hold", rig.bc895("Hold: HOLD")}});
}

}  // namespace
}  // namespace tarnvex::test
