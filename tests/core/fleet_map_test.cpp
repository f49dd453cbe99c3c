#include <gmock/gmock.h>

#include "support/fake_dialogs.h"
#include "support/scripted_port.h"
#include "trunking/fleet_map_form.h"

namespace tarnvex::trunking {
namespace {

using test::Box;
using testing::ElementsAre;
using testing::IsEmpty;

const Box kDoesntFit{"That size code does not fit in this block", "Size Code Invalid", 48};
const Box kOnlyFirst{"That size code can only go in Block 0", "Size Code Invalid", 48};

struct FleetMapTest : testing::Test {
  FleetMapTest() {
    state.ModelKey = "BC245";
    link.attachBc245({&port, nullptr});
    port.open();
    radio.log.clear();
    radio.answerAll("ERR");
    form.load();
  }

  std::vector<int> blocks() {
    std::vector<int> codes;
    for (const auto& combo : form.cboBlock) {
      codes.push_back(combo.listIndex());
    }
    return codes;
  }
  platform::ComboBox& block(int index) { return form.cboBlock[static_cast<std::size_t>(index)]; }
  /// The size codes that are sent, as "3 04".
  std::vector<std::string> saved() {
    radio.log.clear();
    form.Command2.userClick();
    std::vector<std::string> codes;
    for (const auto& line : radio.log) {
      if (line.starts_with("FB ")) {
        codes.push_back(line.substr(5));
      }
    }
    return codes;
  }

  platform::SharedState state;
  test::FakeDialogs dialogs;
  test::ScriptedRadio radio;
  test::ScriptedPort port{radio};
  link::ScannerLink link{state, dialogs};
  Form5 form{link, dialogs};
};

TEST_F(FleetMapTest, OpensOnTheFirstPresetAndTalksToNobody) {
  EXPECT_THAT(blocks(), testing::Each(11));
  EXPECT_EQ(form.cboPreset.text() + " " + form.cboBank.text() + " " + block(0).text(),
            "E1-P1 1 S-11");
  EXPECT_THAT(radio.log, IsEmpty());
}

/// The presets in the form in which the listings of systems give them: one size code a character,
/// "A" and on for 10 and on, "-" for a block that is taken.
TEST_F(FleetMapTest, SavesEachPresetAsItsCommands) {
  const std::vector<std::string> listed = {"BBBBBBBB", "44444444", "444444C-", "C-444444",
                                           "44C-4444", "3A44C-C-", "AAB44444", "11223344",
                                           "44000000", "00000044", "40000000", "00000004",
                                           "33B44000", "43A444C-", "33B44000", "43A444C-"};
  ASSERT_EQ(form.cboPreset.items().size(), listed.size());
  for (int preset = 0; preset < 16; ++preset) {
    form.cboPreset.userChoose(preset);
    std::vector<std::string> expected;
    for (int index = 0; index < kFleetBlocks; ++index) {
      const char code = listed[static_cast<std::size_t>(preset)][static_cast<std::size_t>(index)];
      if (code != '-') {
        const int number = code >= 'A' ? code - 'A' + 10 : code - '0';
        expected.push_back(std::to_string(index) + (number < 10 ? " 0" : " ") +
                           std::to_string(number));
      }
    }
    EXPECT_EQ(saved(), expected) << form.cboPreset.text();
  }
  EXPECT_THAT(dialogs.boxes, IsEmpty());
}

TEST_F(FleetMapTest, WritesToTheChosenBankWithoutLookingAtReplies) {
  form.cboPreset.userChoose(1);
  form.cboBank.userChoose(9);
  block(2).userChoose(13);
  form.Command2.userClick();
  EXPECT_THAT(radio.log, ElementsAre("MA001", "TR J 1", "FB J 0 04", "FB J 1 04", "FB J 2 13",
                                     "FB J 6 04", "FB J 7 04", "KEY13"));
  block(0).userChoose(14);
  EXPECT_THAT(saved(), ElementsAre("0 14"));
  block(0).userChoose(15);
  form.cboBank.userChoose(0);
  EXPECT_THAT(saved(), IsEmpty());
  EXPECT_THAT(radio.log, ElementsAre("MA001", "TR A 1", "KEY13"));
}

TEST_F(FleetMapTest, LargeCodesTakeTheBlocksBehindOrDontFit) {
  const std::tuple<int, int, Box> cases[] = {
      {12, 6, kDoesntFit}, {13, 4, kDoesntFit}, {14, 0, kOnlyFirst}};
  for (const auto& [code, lastBlock, box] : cases) {
    for (int at = 0; at < kFleetBlocks; ++at) {
      form.cboPreset.userChoose(0);
      block(at).userChoose(code);
      const bool fits = at <= lastBlock;
      std::vector<int> expected(kFleetBlocks, 11);
      expected[static_cast<std::size_t>(at)] = fits ? code : 15;
      for (int taken = at + 1; fits && taken < at + blocksOf(code); ++taken) {
        expected[static_cast<std::size_t>(taken)] = 15;
      }
      EXPECT_EQ(blocks(), expected) << code << " in block " << at;
      EXPECT_EQ(dialogs.takeBoxes(), fits ? std::vector<Box>{} : std::vector<Box>{box});
    }
  }
}

TEST_F(FleetMapTest, GivesNothingBack) {
  form.cboPreset.userChoose(1);
  block(2).userChoose(12);
  block(2).userChoose(3);
  EXPECT_THAT(blocks(), ElementsAre(4, 4, 3, 15, 4, 4, 4, 4));
  block(1).userChoose(13);
  EXPECT_THAT(blocks(), ElementsAre(4, 13, 15, 15, 15, 4, 4, 4));
  block(3).userChoose(9);
  EXPECT_THAT(blocks(), ElementsAre(4, 13, 15, 9, 15, 4, 4, 4));
}

}  // namespace
}  // namespace tarnvex::trunking
