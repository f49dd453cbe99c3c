#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "memory/scanner_reset.h"
#include "memory/upload_dialog.h"
#include "transfer_rig.h"

namespace tarnvex::memory {
namespace {

using test::Lines;
using test::TransferRig;
using testing::ElementsAre;
using Model = TransferRig::Model;

struct UploadRig : TransferRig {
  explicit UploadRig(Model model) : TransferRig(model) { memory.clear(); }
  void upload(const std::vector<int>& banks) { run(dialog, banks); }

  /// The user's answer to Form3.
  std::function<void(trunking::Form3&)> answerForm3 = [](trunking::Form3& form) {
    form.Combo1.userChoose(1);
    form.Command1.userClick();
  };
  Lines form3Shown;
  frmUpload dialog{[this] { return window(); }, outside(),
                   [this] {
                     askSystemType([this](trunking::Form3& form) {
                       form3Shown.push_back(form.Label2.caption());
                       answerForm3(form);
                     });
                   }};
};

/// The commands for a bank. `channels` has those for the channels that aren't empty.
std::string bankLog(int bank, const std::map<int, std::string>& channels) {
  std::string log;
  for (int channel = 30 * bank + 1; channel <= 30 * bank + 30; ++channel) {
    const std::string number = std::to_string(1000 + channel).substr(1);
    log += channels.contains(channel)
               ? channels.at(channel)
               : "PM" + number + " 00000000; MA" + number + "; DLF; LON; ARF";
    log += "; ";
  }
  return log;
}

TEST(Upload, SendsEveryFieldOfTheChosenBanks) {
  UploadRig rig(Model::Bc895);
  rig.setRow(1, {"155.115", " ", "X", " ", "X", "67.0", "Sheriff"});
  rig.setRow(2, {"1300.0000", "", "x", "", "", "250.3", ""});
  // Neither a number nor a tone of the table.
  rig.setRow(3, {"", " ", " ", " ", " ", "67", ""});
  rig.setRow(4, {"150,5", " ", " ", "X", " ", " ", ""});
  rig.setRow(30, {"860.0125", "X", " ", " ", " ", "", ""});
  rig.setRow(31, {"999.9999", "X", "X", "X", "X", "100.0", "not chosen"});
  rig.setRow(271, {"Airport", "X", " ", " ", " ", "67.0", ""});
  rig.upload({0, 9});
  EXPECT_EQ(
      rig.radio.takeLog(),
      bankLog(0, {{1, "PM001 01551150; MA001; DLN; LOF; ARN; CS01"},
                  {2, "PM002 13000000; MA002; DLF; LOF; ARF; CS38"},
                  {3, "MA003; DLF; LOF; ARF"},
                  {4, "MA004; DLF; LON; ARF"},
                  {30, "KEY13H; KEY21 A; KEY04; PM030 08600125; KEY13; MA030; DLF; LOF; ARF"}}) +
          bankLog(9, {{271, "KEY13H; KEY21 J; KEY04; KEY13; MA271; DLF; LOF; ARF; CS01"}}) +
          "MA001");
  EXPECT_EQ(rig.form3Shown, Lines{});
  EXPECT_FALSE(rig.state.MemoryModified);
}

TEST(Upload, AsksForTheSystemTypeOnceABank) {
  UploadRig rig(Model::Bc245);
  rig.state.DigitKeyed = true;
  rig.replies["TB"] = "TB J EDACS";
  for (const int row : {1, 6, 280}) {
    rig.setRow(row, {"866.0125", "X", " ", " ", " ", "67.0", "Metro"});
  }
  rig.upload({0, 9});
  const std::string asked = "TB; TB; KEY13; TR J 2; ";
  const std::string one = "KEY13H; KEY02 1; KEY04; ";
  const std::string ten = "KEY13H; KEY02 10; KEY04; ";
  const auto rest = [](const std::string& channel) {
    return "PM" + channel + " 08660125; KEY13; MA" + channel + "; DLF; LOF; ARF; CS01";
  };
  EXPECT_EQ(rig.radio.takeLog(),
            bankLog(0, {{1, one + asked + one + rest("001")}, {6, one + rest("006")}}) +
                bankLog(9, {{280, ten + asked + ten + rest("280")}}) + "MA001");
  EXPECT_EQ(rig.form3Shown, (Lines{"Info: Ch.1 866.0125 Metro", "Info: Ch.280 866.0125 Metro"}));
  EXPECT_TRUE(rig.state.DigitKeyed);
  EXPECT_THAT(rig.dialogs.busyPointer, ElementsAre(true, false, true, false, true, false));
}

TEST(Upload, KeepsThePollAndTheUserOut) {
  UploadRig rig(Model::Bc895);
  rig.loop.onTurn(1, [&] { EXPECT_EQ(rig.Frequency.caption(), "Uploading..."); });
  // Connect starts the poll, which is due at the next yield, and the user clicks all buttons.
  rig.loop.onTurn(2, [&] { rig.gate.enter([&] { rig.Scantimer.setEnabled(true); }); });
  rig.loop.onTurn(3, [&] {
    rig.gate.enterTimer(rig.Scantimer);
    rig.gate.enter([&] {
      rig.dialog.Command1.userClick();
      rig.dialog.Command2.userClick();
      rig.dialog.Command3.userClick();
    });
  });
  Lines seen;
  const auto watch = rig.Channel.changed.connect([&] {
    seen.push_back(rig.Channel.caption() + ": " + std::to_string(rig.dialog.progress.done()) +
                   " of " + std::to_string(rig.dialog.progress.total()));
  });
  rig.upload({1});
  ASSERT_EQ(seen.size(), 30U);
  EXPECT_EQ(seen[0], "31: 0 of 30");
  EXPECT_EQ(seen[29], "60: 29 of 30");
  EXPECT_EQ(rig.ticks, 0);
  EXPECT_EQ(rig.radio.takeLog(), bankLog(1, {}) + "MA001");
  EXPECT_EQ(rig.closings, 1);
  EXPECT_TRUE(rig.Scantimer.enabled());
}

TEST(Upload, AsksForTheSystemTypeEvenAfterSilence) {
  UploadRig rig(Model::Bc245);
  rig.setRow(31, {"866.0125", "X", " ", " ", " ", "", ""});
  rig.answered = 7;
  rig.upload({0, 1});
  EXPECT_EQ(rig.form3Shown, Lines{"Info: Ch.31 866.0125 "});
}

TEST(Upload, StopsWhenTheProgramEndsInForm3) {
  UploadRig rig(Model::Bc245);
  rig.setRow(2, {"866.0125", "X", " ", " ", " ", "", ""});
  rig.answerForm3 = [&](trunking::Form3& form) {
    rig.end();
    form.Command1.userClick();
  };
  rig.upload({0, 5});
  EXPECT_EQ(rig.radio.log.back(), "close");
  EXPECT_EQ(rig.form3Shown.size(), 1U);
  EXPECT_EQ(rig.dialogs.busyPointer.size(), 2U);
  EXPECT_FALSE(rig.state.DigitKeyed || rig.Scantimer.enabled());
  EXPECT_EQ(rig.closings, 0);
}

TEST(Upload, SelectsAllBanks) {
  UploadRig rig(Model::Bc245);
  rig.dialog.Command3.userClick();
  rig.upload({});
  EXPECT_EQ(rig.radio.log.size(), 300U * 5 + 1);
}

TEST(ResetScanner, ClearsTheRadioOnlyAfterYes) {
  for (const auto answer : {platform::Answer::No, platform::Answer::Yes}) {
    TransferRig rig(Model::Bc895);
    rig.dialogs.answers = {answer};
    resetScanner(rig.dialogs, rig.link);
    EXPECT_EQ(rig.radio.log, answer == platform::Answer::Yes ? Lines{"AC"} : Lines{});
    EXPECT_EQ(rig.dialogs.boxes.front().flags, 52);
  }
}

}  // namespace
}  // namespace tarnvex::memory
