// How the transfers of the four dialogs end: with nothing chosen, after silence, and with the
// program.
#include <gmock/gmock.h>

#include <algorithm>

#include "id_rig.h"
#include "memory/download_dialog.h"
#include "memory/upload_dialog.h"

namespace tarnvex::test {
namespace {

using testing::ElementsAre;

const Lines kOldChannel = {"162.5500", "o", "o", "o", "o", "67.0", "tag"};
const Lines kEmptyChannel = {".", " ", " ", " ", " ", "67.0", "tag"};

struct Kind {
  const char* name;
  /// Whether it transfers talkgroup IDs on a BC245XLT. The others transfer channels on a BC895XLT.
  bool ids;
  bool reads;
  /// The commands if no bank is chosen.
  const char* commands;
  const char* status;
};

const Kind kKinds[] = {{"frmUpload", false, false, "MA001", "Uploading..."},
                       {"frmDownload", false, true, "", "Downloading..."},
                       {"frmUploadtrs", true, false, "SB; SB BCD; KEY13; KEY13", "Loading ID's"},
                       {"frmDownloadtrs", true, true, "SB; SB BCD; KEY13; KEY13", "Reading ID's"}};

struct EndRig : IdRig {
  explicit EndRig(const Kind& kind) : IdRig(kind.ids ? Model::Bc245 : Model::Bc895) {
    for (int bank = 0; bank < 10; ++bank) {
      setRow(30 * bank + 3, kOldChannel);
      put(100 * bank + 20, "before");
    }
    memory::BankDialog* dialogs[] = {&channelUpload, &channelDownload, &upload, &download};
    dialog = *std::ranges::find(dialogs, kind.name, [](auto* each) { return each->window.name(); });
  }

  memory::frmUpload channelUpload{[this] { return window(); }, outside(), [] {}};
  memory::frmDownload channelDownload{[this] { return window(); }, outside()};
  memory::BankDialog* dialog;
};

class TransferEnds : public testing::TestWithParam<Kind> {};

TEST_P(TransferEnds, WithNothingChosen) {
  EndRig rig(GetParam());
  EXPECT_EQ(rig.dialog->List1.item(0), GetParam().ids ? "1  (1 to 30)" : "A (1 to 30)");
  EXPECT_EQ(rig.dialog->List1.item(9), GetParam().ids ? "10 (271 to 300)" : "J (271 to 300)");
  bool polls = true;
  const auto watch = rig.dialog->progress.changed.connect([&] { polls = rig.Scantimer.enabled(); });
  rig.run(*rig.dialog, {});
  EXPECT_EQ(rig.radio.takeLog(), GetParam().commands);
  EXPECT_EQ(rig.Frequency.caption(), GetParam().status);
  EXPECT_THAT(rig.dialogs.busyPointer, ElementsAre(true, false));
  EXPECT_TRUE(!polls && rig.Scantimer.enabled() && !rig.state.MemoryModified);
  EXPECT_EQ(rig.closings, 1);
}

TEST_P(TransferEnds, AfterSilenceAndWithTheProgram) {
  enum End { Silence, ProgramAtMessage, ProgramAtTurn };
  for (const End end : {Silence, ProgramAtMessage, ProgramAtTurn}) {
    EndRig rig(GetParam());
    // The radio falls silent at the third channel or in the middle of the IDs.
    rig.answered = end == ProgramAtTurn ? 1000 : GetParam().ids ? 12 : 2;
    rig.dialogs.whileOpen = [&] { end == Silence ? void() : rig.end(); };
    if (end == ProgramAtTurn) {
      rig.endAtTurn(4);
    }
    rig.run(*rig.dialog, {1});
    const bool emptied = end == Silence && GetParam().reads;
    EXPECT_EQ(rig.row(33), emptied && !GetParam().ids ? kEmptyChannel : kOldChannel);
    EXPECT_EQ(rig.row(63), kOldChannel);
    EXPECT_EQ(rig.id(120), emptied && GetParam().ids ? "" : "before");
    EXPECT_EQ(rig.id(220), "before");
    EXPECT_EQ(rig.radio.log.back(), "close");
    EXPECT_EQ(rig.dialogs.boxes.empty() ? 0 : 1, end == ProgramAtTurn ? 0 : 1);
    EXPECT_EQ(rig.dialogs.busyPointer.size(), end == Silence ? 2U : 1U);
    EXPECT_EQ(rig.dialog->progress.done() == rig.dialog->progress.total(), end == Silence);
    EXPECT_EQ(rig.Scantimer.enabled(), end == Silence);
    EXPECT_EQ(rig.closings, end == Silence ? 1 : 0);
  }
}

INSTANTIATE_TEST_SUITE_P(Dialogs, TransferEnds, testing::ValuesIn(kKinds),
                         [](const auto& kind) { return std::string(kind.param.name); });

}  // namespace
}  // namespace tarnvex::test
