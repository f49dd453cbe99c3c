#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "memory/download_dialog.h"
#include "transfer_rig.h"

namespace tarnvex::memory {
namespace {

using test::Lines;
using test::TransferRig;
using testing::ElementsAre;
using Model = TransferRig::Model;

struct DownloadRig : TransferRig {
  using TransferRig::TransferRig;
  void download(const std::vector<int>& banks) { run(dialog, banks); }

  frmDownload dialog{[this] { return window(); }, outside()};
};

const Lines kOld = {"162.5500", "o", "o", "o", "o", "67.0", "tag"};

TEST(Download, ReadsEachFieldFromItsPlace) {
  // Every character between the fields is an 'x'.
  const std::pair<const char*, Lines> cases[] = {
      {"xxxxxxx1551150xTNxDNxLNxANxRNxx05", {"155.1150", "X", "X", "X", "X", "79.7", "tag"}},
      {"xxxxxxx0255000xTFxDFxLFxANxRFxx00", {"25.5000", " ", " ", " ", " ", "", "tag"}},
      {"xxxxxxx0000000xTFxDNxLFxAFxRNxx39", {"0.0000", " ", "X", " ", "X", "", "tag"}},
      // Tones outside the table leave the cell as it was.
      {"xxxxxxx1300000xxxxxxxxxxxxxxxxx40", {"130.0000", " ", " ", " ", " ", "67.0", "tag"}},
      {"xxxxxxx1300000xxxxxxxxxxxxxxxxx-1", {"130.0000", " ", " ", " ", " ", "67.0", "tag"}},
      {"xxxxxxx1300000xxxxxxxxxxxxxxxxxNG", {"130.0000", " ", " ", " ", " ", "67.0", "tag"}},
      {"xxxxxxx1551150xTN", {"155.1150", "X", " ", " ", " ", "67.0", "tag"}},
      {"xxxxxxxABC1150xTx", {"ABC.1150", " ", " ", " ", " ", "67.0", "tag"}},
      {"ERR", {".", " ", " ", " ", " ", "67.0", "tag"}},
  };
  for (const auto& [reply, row] : cases) {
    DownloadRig rig(Model::Bc895);
    rig.replies["PM300"] = reply;
    rig.setRow(300, kOld);
    rig.download({9});
    EXPECT_EQ(rig.row(300), row) << reply;
    EXPECT_EQ(rig.channels.textMatrix(300, ChannelRecord::Number), "300");
  }
}

TEST(Download, ReadsTheBankInOrder) {
  for (const Model model : {Model::Bc895, Model::Bc245}) {
    DownloadRig rig(model);
    Lines commands;
    for (int channel = 31; channel <= 60; ++channel) {
      commands.push_back("PM0" + std::to_string(channel));
    }
    rig.download({1});
    EXPECT_EQ(rig.radio.log, commands);
    EXPECT_THAT(rig.dialogs.busyPointer, ElementsAre(true, false));
    // The cursor moves along and normalises the cells next to it.
    EXPECT_EQ(rig.channels.row(), 60);
    EXPECT_EQ(rig.row(61).front(), "0.0000");
    EXPECT_EQ(rig.row(62).front(), "");
  }
}

TEST(Download, LeavesTheIdModesBeforeThePollStops) {
  for (const auto& [mode, leaves] : {std::pair{"MD07", true}, {"MD08", true}, {"MD09", false}}) {
    DownloadRig rig(Model::Bc895);
    rig.mode.setCaption(mode);
    Lines polled;
    rig.radio.whileWaiting = [&] {
      if (rig.Scantimer.enabled()) {
        polled.push_back(rig.radio.log.back());
      }
    };
    rig.download({0});
    EXPECT_EQ(polled, leaves ? Lines{"KEY01"} : Lines{}) << mode;
    EXPECT_EQ(rig.radio.log.size(), leaves ? 31U : 30U) << mode;
  }
}

}  // namespace
}  // namespace tarnvex::memory
