#include <gmock/gmock.h>

#include "memory/download_dialog.h"
#include "memory/plan_records.h"
#include "platform/convert.h"
#include "radio/commands.h"
#include "support/radio_port.h"
#include "transfer_rig.h"
#include "trunking/bc245_id_transfer.h"
#include "trunking/bc895_id_transfer.h"

namespace tarnvex::trunking {
namespace {

using memory::TalkgroupRecord;
using test::Box;
using test::Lines;
using test::TransferRig;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using Model = TransferRig::Model;

const Box kNotTrunked{
    "Radio must be in Trunked Mode first. Set the radio to Trunk Mode and try again.",
    "Not in Trunked Mode", 48};
const Box kNoFrequency{
    "The Trunked Frequency was not found. Tarnvex is unable to determine the scanner bank in use. "
    "Please check your station program and try again.",
    "Frequency not found", 48};
Box notTrunking(int bank) {
  return {"Unable to start trunking on Bank " + std::to_string(bank) +
              ". Either this is not a trunked bank, the trunked system is not in receiver range, "
              "or the scanner was not in trunked mode initially.",
          "Not in Trunked Mode", 48};
}
Box refusedId(const std::string& id) {
  return {"Tarnvex could not upload talkgroup ID: " + id +
              ". This talkgroup may be invalid, or you may not have the correct fleet map set. "
              "Click OK to continue, or Cancel to abort.",
          "Invalid Talkgroup Entry.", 49};
}

struct IdRig : TransferRig {
  explicit IdRig(Model model, std::unique_ptr<platform::SerialPort> line = nullptr)
      : TransferRig(model, std::move(line)) {
    // The trunked system of the second bank, after a channel of the first that is nearly the same.
    channels.setTextMatrix(3, 1, "851.0126");
    channels.setTextMatrix(45, 1, "851.0125");
    channels.setTextMatrix(75, 1, "851.0125");
    replies["SG"] = "S020 F08510125";
    replies["SB"] = "SB BCD";
    replies["MD"] = "MD12";
    mode.setCaption("MD09");
  }

  void put(int row, const std::string& id) {
    talkgroups.setTextMatrix(row, TalkgroupRecord::Id, id);
  }
  std::string id(int row) { return talkgroups.textMatrix(row, TalkgroupRecord::Id); }
  Bc895IdTransfer transfer895() { return {window(), outside()}; }
  frmUploadtrs upload{[this] { return window(); }, outside()};
  frmDownloadtrs download{[this] { return window(); }, outside()};
};

/// The places of a bank as commands spell them, by the offset of each row in the bank.
std::map<int, std::string> places(int groups) {
  std::map<int, std::string> all;
  for (int offset = 0; offset < groups * 10; ++offset) {
    all[offset] = static_cast<char>('A' + offset / 10) + std::to_string((offset + 1) % 10);
  }
  return all;
}

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
      EXPECT_EQ(rig.state.MemoryModified, !uploads) << "set before any test";
      EXPECT_TRUE(rig.Scantimer.enabled());
    }
  }
}

TEST(IdTransfer895, NeedsTheFrequencyInThePlan) {
  // A garbled reply, silence, and a frequency that no channel has.
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

/// What a BC245XLT is sent for a bank up to the answer to "MD".
std::string starting(char bank) {
  return std::string("SB ") + bank + "; KEY13; KEY13; KEY01; MD; ";
}
const std::string kRestored = "SB BCD; KEY13; KEY13";

TEST(IdTransfer245, WritesTheChosenBanks) {
  IdRig rig(Model::Bc245);
  rig.put(101, "000123");
  rig.put(102, "-----");
  rig.put(103, "");
  rig.put(104, "  ");
  rig.put(200, "100-12");
  rig.put(1000, "1");
  for (const int row : {101, 103, 105, 200}) {
    rig.talkgroups.setTextMatrix(row, TalkgroupRecord::Priority, row == 105 ? "x" : "X");
  }
  rig.replies["IC A2 000000"] = "ERR";
  rig.replies["IC A3 "] = "ERR";
  rig.replies["IC A4   "] = "ERR";
  rig.dialogs.answers = {platform::Answer::Ok};
  const auto bankLog = [](const std::map<std::string, std::string>& own) {
    std::string log;
    for (const auto& [offset, place] : places(10)) {
      log += "IC " + place + " " + (own.contains(place) ? own.at(place) : "") + "; ";
    }
    return log;
  };
  rig.run(rig.upload, {1, 9});
  EXPECT_EQ(rig.radio.takeLog(), "SB; " + starting('B') +
                                     bankLog({{"A1", "000123; PI A1"},
                                              {"A2", "000000"},
                                              {"A3", "; PI A3"},
                                              {"A4", "  "},
                                              {"J0", "100-12; PI J0"}}) +
                                     starting('J') + bankLog({{"J0", "1"}}) + kRestored);
  EXPECT_THAT(rig.dialogs.boxes, ElementsAre(refusedId("000000")));
  EXPECT_THAT(rig.dialogs.busyPointer, ElementsAre(true, false));
  EXPECT_EQ(rig.state.CurrentMode, "MD12");
  EXPECT_EQ(rig.mode.caption(), "MD09");
  EXPECT_EQ(rig.Frequency.caption(), "Loading ID's");
  EXPECT_EQ(rig.upload.progress.done(), 200);
  EXPECT_FALSE(rig.state.MemoryModified);
  EXPECT_TRUE(rig.Scantimer.enabled());
  EXPECT_EQ(rig.closings, 1);
}

TEST(IdTransfer245, LeavesTheRestOnCancelButRestoresTheRadio) {
  IdRig rig(Model::Bc245);
  rig.put(1, "999999");
  rig.replies["IC A1 999999"] = "ERR";
  rig.dialogs.answers = {platform::Answer::Cancel};
  const auto closing =
      rig.upload.closed.connect([&] { rig.radio.log.emplace_back("the form goes at once"); });
  rig.run(rig.upload, {0, 1});
  EXPECT_EQ(rig.radio.takeLog(),
            "SB; " + starting('A') + "IC A1 999999; the form goes at once; " + kRestored);
  EXPECT_EQ(rig.closings, 1);
  EXPECT_TRUE(rig.Scantimer.enabled());
}

TEST(IdTransfer245, ReadsTheChosenBanks) {
  for (const bool clears : {false, true}) {
    IdRig rig(Model::Bc245);
    std::string expected = "SB; " + starting('C');
    for (const auto& [offset, place] : places(10)) {
      rig.replies["IC " + place] =
          "xxxxxx01\xFE"
          "23\xFEtail";
      expected += "IC " + place + "; PI " + place[0] + "; ";
      rig.talkgroups.setTextMatrix(201 + offset, TalkgroupRecord::AlphaTag, "tag");
    }
    rig.replies["PI A"] = "PI A2 and more";
    rig.replies["PI B"] = "NG";
    rig.replies["PI C"] = "PI D1";
    rig.replies["PI J"] = "PI J0";
    rig.talkgroups.setTextMatrix(201, TalkgroupRecord::Priority, "X");
    rig.download.Check1.setValue(clears);
    rig.run(rig.download, {2});
    EXPECT_EQ(rig.radio.takeLog(), expected + kRestored);
    std::vector<int> marked;
    for (int row = 1; row <= TalkgroupRecord::kRows; ++row) {
      const bool chosen = row > 200 && row <= 300;
      EXPECT_EQ(rig.id(row), chosen ? "01-23-" : "") << row;
      EXPECT_EQ(rig.talkgroups.textMatrix(row, TalkgroupRecord::AlphaTag),
                chosen && !clears ? "tag" : "");
      if (rig.talkgroups.textMatrix(row, TalkgroupRecord::Priority) == "X") {
        marked.push_back(row);
      }
    }
    EXPECT_THAT(marked, ElementsAre(201, 202, 300)) << "what stands there is never taken away";
    EXPECT_TRUE(rig.state.MemoryModified);
  }
}

TEST(IdTransfer245, PassesOverBanksThatDontTrunk) {
  const std::pair<const char*, bool> cases[] = {{"MD12", true},  {"MD18", true},   {"18", true},
                                                {"MD11", false}, {"MD120", false}, {"8", false}};
  for (const auto& [reply, trunks] : cases) {
    for (const bool uploads : {false, true}) {
      IdRig rig(Model::Bc245);
      rig.put(301, "before");
      rig.replies["MD"] = reply;
      memory::BankDialog& dialog = uploads ? static_cast<memory::BankDialog&>(rig.upload)
                                           : static_cast<memory::BankDialog&>(rig.download);
      rig.run(dialog, {3, 4});
      EXPECT_EQ(rig.radio.log.size(), (trunks ? (uploads ? 100U : 200U) + 5 : 6U) * 2 + 4) << reply;
      EXPECT_EQ(rig.dialogs.boxes,
                trunks ? std::vector<Box>{} : (std::vector<Box>{notTrunking(4), notTrunking(5)}));
      EXPECT_EQ(dialog.progress.done(), 200);
      EXPECT_EQ(rig.state.CurrentMode, reply);
      EXPECT_EQ(rig.id(301) == "before", uploads || !trunks);
    }
  }
}

TEST(IdTransfer245, WaitsThreeOfTheClocksSecondsForTheRadio) {
  for (const int offset : {0, 400, 999}) {
    IdRig rig(Model::Bc245);
    rig.clock.offsetMilliseconds = offset;
    rig.replies["MD"] = "MD13";
    const auto start = rig.clock.seconds();
    std::int64_t asked = 0;
    rig.radio.whileWaiting = [&] {
      if (rig.radio.log.back() == "KEY01") {
        asked = rig.clock.seconds();
      }
    };
    // The user starts the poll meanwhile, as Connect does.
    rig.loop.at(500, [&] { rig.gate.enter([&] { rig.Scantimer.setEnabled(true); }); });
    rig.run(rig.download, {0});
    EXPECT_EQ(asked - start, 3) << offset;
    EXPECT_EQ(rig.ticks, 0);
  }
}

TEST(IdTransfer245, WithNoBankChosenOnlyRestores) {
  IdRig rig(Model::Bc245);
  rig.run(rig.download, {});
  EXPECT_EQ(rig.radio.takeLog(), "SB; " + kRestored);
  EXPECT_FALSE(rig.state.MemoryModified);
  EXPECT_EQ(rig.upload.List1.item(0), "1  (1 to 30)");
  EXPECT_EQ(rig.download.List1.item(9), "10 (271 to 300)");
}

TEST(IdTransfer895, HasTheRadioToItself) {
  IdRig rig(Model::Bc895);
  auto transfer = rig.transfer895();
  // Chosen again while it lets others run.
  rig.loop.onTurn(1, [&] { rig.gate.enter([&] { transfer.upload(); }); });
  transfer.upload();
  EXPECT_EQ(std::ranges::count(rig.radio.log, "KEY00"), 1);
  EXPECT_EQ(rig.dialogs.beeps, 1);
  // Chosen while channels are transferred, with the mode of before on the panel.
  memory::frmDownload channels([&] { return rig.window(); }, rig.outside());
  rig.radio.log.clear();
  rig.loop.onTurn(3, [&] { rig.gate.enter([&] { transfer.download(); }); });
  rig.run(channels, {0});
  EXPECT_EQ(rig.radio.log.size(), 30U);
  EXPECT_EQ(rig.dialogs.beeps, 2);
  transfer.download();
  EXPECT_EQ(rig.dialogs.beeps, 2) << "the turn is given back";
}

TEST(IdTransfer895, EndsWithTheSlotForSomebodyWhoWantsOut) {
  IdRig rig(Model::Bc895);
  auto transfer = rig.transfer895();
  bool left = false;
  rig.radio.whileWaiting = [&] {
    if (rig.radio.log.back() == "IC A3") {
      rig.gate.enterLeaving([&] { left = true; });
    }
  };
  rig.gate.enter([&] { transfer.upload(); });
  EXPECT_EQ(rig.radio.log[rig.radio.log.size() - 2], "KEY04");
  EXPECT_EQ(rig.radio.log.back(), "KEY00");
  EXPECT_EQ(std::ranges::count(rig.radio.log, "KEY04"), 3);
  EXPECT_TRUE(left && rig.Scantimer.enabled());
}

TEST(IdTransfer, RunsOutBehindSilenceAndStopsWithTheProgram) {
  for (const Model model : {Model::Bc895, Model::Bc245}) {
    for (const bool uploads : {false, true}) {
      for (const bool ends : {false, true}) {
        IdRig rig(model);
        rig.put(120, "before");
        rig.answered = 12;
        // The radio falls silent in the middle of a bank; the user closes the program at its
        // message.
        rig.dialogs.whileOpen = [&] { ends ? rig.end() : void(); };
        if (model == Model::Bc895) {
          auto transfer = rig.transfer895();
          uploads ? transfer.upload() : transfer.download();
        } else {
          rig.run(uploads ? static_cast<memory::BankDialog&>(rig.upload) : rig.download, {1});
        }
        EXPECT_EQ(rig.radio.log.size(), 14U) << "the thirteenth, and the port closed";
        EXPECT_THAT(rig.dialogs.boxes, ElementsAre(test::kSilenceBox));
        EXPECT_EQ(rig.id(120), uploads || ends ? "before" : "");
        EXPECT_EQ(rig.Scantimer.enabled(), !ends);
      }
    }
  }
}

TEST(IdTransfer, BringsTheIdsBackFromBothRadios) {
  for (const Model model : {Model::Bc895, Model::Bc245}) {
    const bool bc245 = model == Model::Bc245;
    radio::Radio radio(bc245 ? radio::Model::BC245XLT : radio::Model::BC895XLT);
    radio.playScene("city");
    IdRig rig(model, std::make_unique<test::RadioPort>(radio));
    // The radio's time goes on while the program waits.
    for (int time = 0; time < 60'000; time += 200) {
      rig.loop.at(time, [&radio] { radio.advance(200); });
    }
    // The radio trunks, on a channel that the plan has in its second bank.
    radio.exchange("KEY13");
    const auto addChannel = [&] {
      const double units = radio::numberAt(radio.exchange(bc245 ? "WI" : "SG"), 7, 7);
      rig.channels.setTextMatrix(31, 1, platform::format(units / 1e4, "0.0000"));
    };
    const auto idOf = [](int row) {
      return row % 7 == 0 ? "-----" : platform::format(row * 2, "000000");
    };
    for (int row = 1; row <= TalkgroupRecord::kRows; ++row) {
      rig.put(row, idOf(row));
    }
    // The banks that the radio has systems in, and one that it hasn't.
    const std::vector<int> banks = {1, 4, 7};
    auto transfer = rig.transfer895();
    addChannel();
    bc245 ? rig.run(rig.upload, banks) : transfer.upload();
    rig.memory.clear();
    addChannel();
    bc245 ? rig.run(rig.download, banks) : transfer.download();
    EXPECT_THAT(rig.dialogs.boxes,
                ElementsAreArray(bc245 ? std::vector<Box>{notTrunking(5), notTrunking(5)}
                                       : std::vector<Box>{}));
    for (int row = 1; row <= TalkgroupRecord::kRows; ++row) {
      const int bank = (row - 1) / 100;
      const bool travels = bc245 ? bank == 1 || bank == 7 : row > 100 && row <= 150;
      const std::string empty = "------";
      EXPECT_EQ(rig.id(row), !travels               ? rig.id(1)
                             : idOf(row) == "-----" ? empty
                                                    : idOf(row))
          << row;
    }
  }
}

}  // namespace
}  // namespace tarnvex::trunking
