#include <gmock/gmock.h>

#include "id_rig.h"

namespace tarnvex::trunking {
namespace {

using memory::TalkgroupRecord;
using test::Box;
using test::IdRig;
using test::places;
using testing::ElementsAre;
using Model = IdRig::Model;

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

/// The commands for a bank, up to and including "MD".
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

TEST(IdTransfer245, AsksAgainForWhatIsNoAnswer) {
  for (const auto& [noise, heals] :
       {std::pair{"#\r", true}, {"#\r", false}, {"\r", true}, {"SB BCD", true}}) {
    IdRig rig(Model::Bc245);
    const auto usual = rig.radio.answer;
    std::map<std::string, int> asked;
    rig.radio.answer = [&](std::string_view command) {
      const bool first = asked[std::string(command)]++ == 0;
      const bool stray = (command == "SB" && (first || !heals)) || (command == "MD" && first);
      return stray ? std::vector<test::Piece>{{command == "SB" ? noise : "OK\r"}} : usual(command);
    };
    rig.run(rig.download, {0});
    const std::string log = rig.radio.takeLog();
    EXPECT_THAT(log, testing::StartsWith("SB; SB; SB A; KEY13; KEY13; KEY01; MD; MD; IC A1; PI A"));
    EXPECT_THAT(log, testing::EndsWith(heals ? kRestored : "PI J; KEY13; KEY13"));
    EXPECT_TRUE(rig.dialogs.boxes.empty());
  }
}

TEST(IdTransfer245, NamesTheIdThatIsRefusedAfterAStrayAnswer) {
  for (const std::string stray : {"IC J0 000001", "NG", "#"}) {
    IdRig rig(Model::Bc245);
    rig.put(1, "000001");
    rig.put(2, "999999");
    rig.replies["IC A2 999999"] = "ERR";
    rig.dialogs.answers = {platform::Answer::Ok};
    const auto usual = rig.radio.answer;
    rig.radio.answer = [&](std::string_view command) {
      return command == "IC A1 000001" ? std::vector<test::Piece>{{stray + "\r"}, {"OK\r", 1500}}
                                       : usual(command);
    };
    rig.run(rig.upload, {0});
    EXPECT_THAT(rig.dialogs.boxes, ElementsAre(refusedId("999999"))) << stray;
  }
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
    EXPECT_THAT(marked, ElementsAre(201, 202, 300)) << "no mark is ever removed";
    EXPECT_TRUE(rig.state.MemoryModified);
  }
}

TEST(IdTransfer245, SkipsBanksThatDontTrunk) {
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
    // Connect starts the poll meanwhile.
    rig.loop.at(500, [&] { rig.gate.enter([&] { rig.Scantimer.setEnabled(true); }); });
    rig.run(rig.download, {0});
    EXPECT_EQ(asked - start, 3) << offset;
    EXPECT_EQ(rig.ticks, 0);
  }
}

}  // namespace
}  // namespace tarnvex::trunking
