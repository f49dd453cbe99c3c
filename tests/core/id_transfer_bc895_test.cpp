#include <gmock/gmock.h>

#include "id_rig.h"
#include "memory/download_dialog.h"

namespace tarnvex::trunking {
namespace {

using test::Box;
using test::IdRig;
using test::places;
using testing::ElementsAre;
using testing::ElementsAreArray;
using Model = IdRig::Model;

const Box kNotTrunked{
    "Radio must be in Trunked Mode first. Set the radio to Trunk Mode and try again.",
    "Not in Trunked Mode", 48};
const Box kNoFrequency{
    "The Trunked Frequency was not found. Tarnvex is unable to determine the scanner bank in use. "
    "Please check your station program and try again.",
    "Frequency not found", 48};
TEST(IdTransfer895, TypesEveryIdOfTheBankInUse) {
  IdRig rig(Model::Bc895);
  const std::tuple<int, std::string, std::string> ids[] = {
      {0, "000123", "KEY02 0; KEY02 0; KEY02 1; KEY02 2; KEY02 3; "},
      {1, "100-12", "KEY02 1; KEY02 0; KEY02 0; KEY03; KEY02 1; KEY02 2; "},
      {2, "-----", "KEY02 0; "},
      {3, "12--34", "KEY02 0; "},
      {9, "7", ""},
      {10, "a B", "KEY02  ; KEY02 B; "},
      {49, "-5", "KEY03; KEY02 5; "},
      {50, "999999", ""}};
  std::map<int, std::string> keys;
  for (const auto& [offset, id, keyed] : ids) {
    rig.put(101 + offset, id);
    keys[offset] = keyed;
  }
  std::string expected = "SG; ";
  for (const auto& [offset, place] : places(5)) {
    expected += "IC " + place + "; ";
    expected += (keys.contains(offset) ? keys[offset] : "KEY02 0; ") + "KEY04; ";
  }
  std::vector<int> progress;
  auto transfer = rig.transfer895();
  const auto watch =
      transfer.progress.changed.connect([&] { progress.push_back(transfer.progress.done()); });
  transfer.upload();
  EXPECT_EQ(rig.radio.takeLog(), expected + "KEY00");
  EXPECT_EQ(progress.size(), 52U);
  EXPECT_EQ(transfer.progress.total(), 0);
  EXPECT_THAT(rig.dialogs.busyPointer, ElementsAre(true, false));
  EXPECT_EQ(rig.Frequency.caption(), "Loading ID's");
  EXPECT_TRUE(rig.Scantimer.enabled());
  EXPECT_FALSE(rig.state.MemoryModified);
  EXPECT_EQ(rig.ticks, 0);
}

TEST(IdTransfer895, ReadsTheFiftyIdsOfTheBankInUse) {
  IdRig rig(Model::Bc895);
  for (const auto& [offset, place] : places(10)) {
    rig.put(101 + offset, "before");
    rig.replies["IC " + place] = "xxxxxx" + place + "-\xFE.5tail";
  }
  rig.replies["IC A2"] = "IC A2 12";
  rig.replies["IC E0"] = "ERR";
  rig.transfer895().download();
  EXPECT_EQ(rig.radio.log.size(), 51U);
  EXPECT_EQ(rig.radio.log[10], "IC A0");
  EXPECT_EQ(rig.id(101), "A1-\xFE.5");
  EXPECT_EQ(rig.id(102), "12");
  EXPECT_EQ(rig.id(149), "E9-\xFE.5");
  EXPECT_EQ(rig.id(150), "");
  EXPECT_EQ(rig.id(151), "before");
  EXPECT_THAT(rig.dialogs.busyPointer, ElementsAre(true, false));
  EXPECT_EQ(rig.Frequency.caption(), "Reading ID's");
  EXPECT_TRUE(rig.Scantimer.enabled() && rig.state.MemoryModified);
}

TEST(IdTransfer895, NeedsATrunkedMode) {
  const std::pair<const char*, bool> cases[] = {{"MD06", false}, {"MD07", true}, {"MD08", true},
                                                {"MD09", true},  {"MD10", true}, {"MD11", false},
                                                {"MD00", false}, {"FM", false},  {"", false}};
  for (const auto& [mode, trunked] : cases) {
    for (const bool uploads : {false, true}) {
      IdRig rig(Model::Bc895);
      rig.mode.setCaption(mode);
      auto transfer = rig.transfer895();
      uploads ? transfer.upload() : transfer.download();
      EXPECT_EQ(rig.radio.log.empty(), !trunked) << mode;
      EXPECT_THAT(rig.dialogs.boxes,
                  ElementsAreArray(trunked ? std::vector<Box>{} : std::vector<Box>{kNotTrunked}));
      EXPECT_EQ(rig.state.MemoryModified, !uploads) << "set before any check";
      EXPECT_TRUE(rig.Scantimer.enabled());
    }
  }
}

TEST(IdTransfer895, NeedsTheFrequencyInThePlan) {
  // A garbled reply, no answer, and a frequency that no channel has.
  for (const char* reply : {"ERR", "S020 Fxxxxxxxx", "S020 F08510130"}) {
    for (const bool uploads : {false, true}) {
      IdRig rig(Model::Bc895);
      rig.put(1, "before");
      rig.channels.setTextMatrix(1, 1, "");
      rig.replies["SG"] = reply;
      auto transfer = rig.transfer895();
      bool polls = true;
      rig.dialogs.whileOpen = [&] { polls = rig.Scantimer.enabled(); };
      uploads ? transfer.upload() : transfer.download();
      EXPECT_THAT(rig.radio.log, ElementsAre("SG"));
      EXPECT_THAT(rig.dialogs.boxes, ElementsAre(kNoFrequency));
      EXPECT_THAT(rig.dialogs.busyPointer, ElementsAre(true)) << "the hourglass stays";
      EXPECT_FALSE(polls);
      EXPECT_TRUE(rig.Scantimer.enabled());
      EXPECT_EQ(rig.id(1), "before");
    }
  }
}

TEST(IdTransfer895, HasTheRadioToItself) {
  IdRig rig(Model::Bc895);
  auto transfer = rig.transfer895();
  // The user starts it again while it lets other handlers run.
  rig.loop.onTurn(1, [&] { rig.gate.enter([&] { transfer.upload(); }); });
  transfer.upload();
  EXPECT_EQ(std::ranges::count(rig.radio.log, "KEY00"), 1);
  EXPECT_EQ(rig.dialogs.beeps, 1);
  // The user starts it during a transfer of channels. The panel still shows the mode from before.
  memory::frmDownload channels([&] { return rig.window(); }, rig.outside());
  rig.radio.log.clear();
  rig.loop.onTurn(3, [&] { rig.gate.enter([&] { transfer.download(); }); });
  rig.run(channels, {0});
  EXPECT_EQ(rig.radio.log.size(), 30U);
  EXPECT_EQ(rig.dialogs.beeps, 2);
  transfer.download();
  EXPECT_EQ(rig.dialogs.beeps, 2) << "another transfer may run";
}

TEST(IdTransfer895, EndsAtTheNextSlotOnlyWhenTheUserLeaves) {
  const std::pair<void (platform::EventGate::*)(platform::EventGate::Handler), int> cases[] = {
      {&platform::EventGate::enterLeaving, 3}, {&platform::EventGate::enterClosing, 50}};
  for (const auto& [enter, slots] : cases) {
    IdRig rig(Model::Bc895);
    auto transfer = rig.transfer895();
    bool ran = false;
    rig.radio.whileWaiting = [&] {
      if (rig.radio.log.back() == "IC A3") {
        (rig.gate.*enter)([&] { ran = true; });
      }
    };
    rig.gate.enter([&] { transfer.upload(); });
    EXPECT_EQ(rig.radio.log[rig.radio.log.size() - 2], "KEY04");
    EXPECT_EQ(rig.radio.log.back(), "KEY00");
    EXPECT_EQ(std::ranges::count(rig.radio.log, "KEY04"), slots);
    EXPECT_TRUE(ran && rig.Scantimer.enabled());
  }
}

TEST(IdTransfer895, GoesOnAfterSilenceAndStopsWithTheProgram) {
  for (const bool uploads : {false, true}) {
    for (const bool ends : {false, true}) {
      IdRig rig(Model::Bc895);
      rig.put(120, "before");
      rig.answered = 12;
      // The user closes the program while the message about the silence is open.
      rig.dialogs.whileOpen = [&] { ends ? rig.end() : void(); };
      auto transfer = rig.transfer895();
      uploads ? transfer.upload() : transfer.download();
      EXPECT_EQ(rig.radio.log.size(), 14U) << "the thirteenth command, and the port closed";
      EXPECT_THAT(rig.dialogs.boxes, ElementsAre(test::kSilenceBox));
      EXPECT_EQ(rig.id(120), uploads || ends ? "before" : "");
      EXPECT_EQ(rig.Scantimer.enabled(), !ends);
    }
  }
}

}  // namespace
}  // namespace tarnvex::trunking
