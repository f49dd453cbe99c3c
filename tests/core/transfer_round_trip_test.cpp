#include <gtest/gtest.h>

#include "memory/download_dialog.h"
#include "memory/scanner_reset.h"
#include "memory/upload_dialog.h"
#include "support/radio_port.h"
#include "support/sample_plan.h"
#include "transfer_rig.h"

namespace tarnvex::memory {
namespace {

using test::channelOf;
using test::Lines;
using test::TransferRig;

class RoundTrip : public testing::TestWithParam<TransferRig::Model> {};

TEST_P(RoundTrip, BringsThePlanBackFromTheRadio) {
  const bool bc245 = GetParam() == TransferRig::Model::Bc245;
  radio::Radio radio(bc245 ? radio::Model::BC245XLT : radio::Model::BC895XLT);
  TransferRig rig(GetParam(), std::make_unique<test::RadioPort>(radio));
  for (int row = 1; row <= ChannelRecord::kRows; ++row) {
    rig.setRow(row, channelOf(row));
  }
  rig.dialogs.answers = {platform::Answer::Yes};
  resetScanner(rig.dialogs, rig.link);

  int asked = 0;
  const auto answer = [&](trunking::Form3& form) {
    EXPECT_EQ(radio.state().programBank, asked) << "the bank that the radio stands in";
    const auto held = radio.state().memory.banks[static_cast<std::size_t>(asked)].type;
    EXPECT_EQ(form.Combo1.listIndex() + 1, static_cast<int>(held));
    form.Combo1.userChoose(asked++ % 2 == 0 ? 5 : 4);
    form.BFText.userEdit("151.25");
    form.Command1.userClick();
  };
  frmUpload upload([&] { return rig.window(); }, rig.outside(), [&] { rig.askSystemType(answer); });
  rig.run(upload, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9});
  EXPECT_EQ(asked, bc245 ? 10 : 0);
  EXPECT_EQ(radio.state().memory.banks[9].base, bc245 ? 1512500U : 0U);
  EXPECT_EQ(radio.state().channel, 1);

  // Half of the banks into an emptied plan, whose tags stay.
  rig.memory.clear();
  for (int row = 1; row <= ChannelRecord::kRows; ++row) {
    rig.channels.setTextMatrix(row, ChannelRecord::AlphaTag, channelOf(row).back());
  }
  frmDownload download([&] { return rig.window(); }, rig.outside());
  rig.run(download, {0, 2, 4, 6, 8});
  for (int row = 1; row <= ChannelRecord::kRows; ++row) {
    const bool chosen = (row - 1) / 30 % 2 == 0;
    const Lines empty = {"0.0000", " ", " ", "X", " ", "", channelOf(row).back()};
    EXPECT_EQ(rig.row(row), chosen ? channelOf(row) : empty) << row;
  }
}

INSTANTIATE_TEST_SUITE_P(BothRadios, RoundTrip,
                         testing::Values(TransferRig::Model::Bc895, TransferRig::Model::Bc245));

}  // namespace
}  // namespace tarnvex::memory
