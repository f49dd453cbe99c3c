#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "transfer_rig.h"
#include "trunking/system_type.h"
#include "trunking/system_type_form.h"

namespace tarnvex::trunking {
namespace {

using test::Lines;

constexpr int kNone = -1;

struct FormRig : test::TransferRig {
  explicit FormRig(const std::string& typeReply) : TransferRig(Model::Bc245) {
    replies["TB"] = typeReply;
    setRow(42, {"450.0000", "X", " ", " ", " ", "", "Metro"});
    Channel.setCaption("42");
    closing = form.closed.connect([this] { ++closings; });
    form.load();
    radio.log.clear();
  }

  Form3 form{{Channel, channels, state, link, gate, dialogs}};
};

TEST(SystemType, ShowsTheTypeThatTheBankHas) {
  const std::tuple<const char*, int, const char*> cases[] = {{"TYPE1", 0, "E1         "},
                                                             {"E2-900", 2, "E9-800     "},
                                                             {"E2-VHF", 4, "E2-VHF     "},
                                                             {"E2-UHF 450", kNone, "E2-UHF 450"}};
  for (const auto& [word, index, shown] : cases) {
    EXPECT_EQ(systemTypeDisplay(word), shown);
    const FormRig rig(std::string("TB C ") + word);
    const auto& form = rig.form;
    EXPECT_EQ(form.Label2.caption(), "Info: Ch.42 450.0000 Metro");
    EXPECT_EQ(form.Combo1.listIndex(), index) << word;
    EXPECT_EQ((std::vector{form.BFLabel.visible(), form.BFText.visible(), form.OSLabel.visible(),
                           form.Combo2.visible()}),
              std::vector<bool>(4, index == 4));
    EXPECT_EQ(form.Combo2.listIndex(), index == 4 ? kNone : 0) << word;
  }
}

TEST(SystemType, OffersTheStepsOfEachBand) {
  FormRig rig("TB B ?");
  EXPECT_EQ(rig.form.Combo2.items(), (Lines{"0.0005 MHz", "0.0125 MHz"}));
  rig.form.Combo1.userChoose(3);
  ASSERT_EQ(rig.form.Combo2.items().size(), 20U);
  EXPECT_EQ(rig.form.Combo2.items()[1], "0.0010 MHz");
  EXPECT_EQ(rig.form.Combo2.items()[19], "0.0100 MHz");
  rig.form.Combo1.userChoose(4);
  ASSERT_EQ(rig.form.Combo2.items().size(), 8U);
  EXPECT_EQ(rig.form.Combo2.items()[0], "0.0125 MHz");
  EXPECT_EQ(rig.form.Combo2.items()[7], "0.1000 MHz");
}

TEST(SystemType, ProgramsTheBankAndClosesTheForm) {
  const std::tuple<std::vector<int>, const char*, int, const char*> cases[] = {
      {{0}, "", kNone, "TR A 1"},
      {{3}, "450.0000", 0, "TR A 4 04500000 0005"},
      {{3}, "450", 1, "TR A 4 04500000 0125"},
      {{3}, "450.0125", kNone, "TR A 4 04500125 0125"},
      // There are two step codes: one for the first entry and one for all others.
      {{4}, "138.0000", 0, "TR A 5 01380000 0005"},
      {{4}, "138.0000", 7, "TR A 5 01380000 0125"},
      {{3}, "45O", 0, "TR A 4  0005"},
      // What the user entered for another type isn't sent.
      {{3, 1}, "450", 0, "TR A 2"},
      {{}, "", kNone, "TR A 0"},
  };
  for (const auto& [types, base, step, command] : cases) {
    FormRig rig("TB A ?");
    for (const int type : types) {
      rig.form.Combo1.userChoose(type);
      rig.form.BFText.userEdit(base);
      rig.form.Combo2.userChoose(step);
    }
    rig.form.Command1.userClick();
    EXPECT_EQ(rig.radio.log, (Lines{"TB", "KEY13", command}));
    EXPECT_EQ(rig.state.SystemTypeIndex, std::to_string(types.empty() ? kNone : types.back()));
    EXPECT_THAT(rig.dialogs.busyPointer, testing::ElementsAre(false, true));
    EXPECT_EQ(rig.closings, 1);
  }
}

}  // namespace
}  // namespace tarnvex::trunking
