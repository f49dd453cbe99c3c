#include <gmock/gmock.h>

#include "support/world.h"
#include "trunking/fleet_map_form.h"

namespace tarnvex::trunking {
namespace {

using test::Box;
using testing::ElementsAre;
using testing::IsEmpty;

const Box kDoesntFit{"That size code does not fit in this block", "Size Code Invalid", 48};
const Box kOnlyFirst{"That size code can only go in Block 0", "Size Code Invalid", 48};

struct FleetMapTest : testing::Test, test::OpenLine {
  FleetMapTest() {
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
  /// Saves and returns the size codes that are sent, such as "3 04".
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

  Form5 form{link, dialogs};
};

TEST_F(FleetMapTest, OpensOnTheFirstPresetAndSendsNothing) {
  EXPECT_THAT(blocks(), testing::Each(11));
  EXPECT_EQ(form.cboPreset.text() + " " + form.cboBank.text() + " " + block(0).text(),
            "E1-P1 1 S-11");
  EXPECT_THAT(radio.log, IsEmpty());
}

TEST_F(FleetMapTest, SavesAPresetWithoutItsTakenBlocks) {
  ASSERT_EQ(form.cboPreset.items().size(), 16U);
  form.cboPreset.userChoose(5);
  EXPECT_THAT(saved(), ElementsAre("0 03", "1 10", "2 04", "3 04", "4 12", "6 12"));
  form.cboPreset.userChoose(15);
  EXPECT_THAT(saved(), ElementsAre("0 04", "1 03", "2 10", "3 04", "4 04", "5 04", "6 12"));
  EXPECT_THAT(dialogs.boxes, IsEmpty());
}

TEST_F(FleetMapTest, WritesToTheChosenBankWhateverTheReplies) {
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

TEST_F(FleetMapTest, LargeCodesTakeTheNextBlocksOrDontFit) {
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

TEST_F(FleetMapTest, KeepsBlocksTakenAfterASmallerSize) {
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
