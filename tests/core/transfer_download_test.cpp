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
const Lines kAfterSilence = {".", " ", " ", " ", " ", "67.0", "tag"};

TEST(Download, ReadsEachFieldFromItsPlace) {
  // Every character between the fields is an 'x'.
  const std::pair<const char*, Lines> cases[] = {
      {"xxxxxxx1551150xTNxDNxLNxANxRNxx05", {"155.1150", "X", "X", "X", "X", "79.7", "tag"}},
      {"xxxxxxx0255000xTFxDFxLFxANxRFxx00", {"25.5000", " ", " ", " ", " ", "", "tag"}},
      {"xxxxxxx0000000xTFxDNxLFxAFxRNxx39", {"0.0000", " ", "X", " ", "X", "", "tag"}},
      // Tones that the table doesn't hold leave the cell.
      {"xxxxxxx1300000xxxxxxxxxxxxxxxxx40", {"130.0000", " ", " ", " ", " ", "67.0", "tag"}},
      {"xxxxxxx1300000xxxxxxxxxxxxxxxxx-1", {"130.0000", " ", " ", " ", " ", "67.0", "tag"}},
      {"xxxxxxx1300000xxxxxxxxxxxxxxxxxNG", {"130.0000", " ", " ", " ", " ", "67.0", "tag"}},
      {"xxxxxxx1551150xTN", {"155.1150", "X", " ", " ", " ", "67.0", "tag"}},
      {"xxxxxxxABC1150xTx", {"ABC.1150", " ", " ", " ", " ", "67.0", "tag"}},
      {"ERR", kAfterSilence},
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
    // The cursor goes along, and brings the cells beside it into their form.
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

TEST(Download, WithNothingChosenChangesNothing) {
  DownloadRig rig(Model::Bc895);
  bool stopped = false;
  rig.loop.onTurn(1, [&] { stopped = !rig.Scantimer.enabled(); });
  rig.download({});
  EXPECT_EQ(rig.radio.log, Lines{});
  EXPECT_FALSE(rig.state.MemoryModified);
  EXPECT_EQ(rig.Frequency.caption(), "Downloading...");
  EXPECT_TRUE(stopped && rig.Scantimer.enabled());
  EXPECT_EQ(rig.closings, 1);
}

TEST(Download, EmptiesTheRowsBehindSilence) {
  DownloadRig rig(Model::Bc895);
  for (const int row : {2, 3, 30, 31}) {
    rig.setRow(row, kOld);
  }
  rig.replies["PM002"] = "xxxxxxx1551150xTNxDNxLNxANxRNxx05";
  rig.answered = 2;
  rig.download({0});
  EXPECT_EQ(rig.radio.log, (Lines{"PM001", "PM002", "PM003", "close"}));
  EXPECT_THAT(rig.dialogs.boxes, ElementsAre(test::kSilenceBox));
  EXPECT_EQ(rig.row(2), (Lines{"155.1150", "X", "X", "X", "X", "79.7", "tag"}));
  EXPECT_EQ(rig.row(3), kAfterSilence);
  EXPECT_EQ(rig.row(30), kAfterSilence);
  EXPECT_EQ(rig.row(31), kOld);
  EXPECT_TRUE(rig.state.MemoryModified);
  EXPECT_TRUE(rig.Scantimer.enabled());
  EXPECT_EQ(rig.closings, 1);
}

TEST(Download, TouchesNoRowOnceTheProgramHasEnded) {
  for (const bool behindMessage : {false, true}) {
    DownloadRig rig(Model::Bc895);
    rig.setRow(3, kOld);
    if (behindMessage) {
      rig.answered = 2;
      rig.dialogs.whileOpen = [&] { rig.end(); };
    } else {
      rig.endAtTurn(4);
    }
    rig.download({0});
    EXPECT_EQ(rig.row(3), kOld);
    EXPECT_EQ(rig.Channel.caption(), behindMessage ? "2" : "3");
    EXPECT_EQ(rig.closings, 0);
  }
}

}  // namespace
}  // namespace tarnvex::memory
