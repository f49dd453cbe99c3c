#include "poll_rig.h"

/// What every tick asks before it branches on the mode.
namespace tarnvex::monitor {
namespace {

using test::opening;

TEST(Opening, ShowASignalByFourBars) {
  // Two bars are lit at first. Levels outside the meter's range leave them.
  const std::pair<const char*, int> cases[] = {
      {"S000", 2}, {"S012", 2}, {"S013", 0}, {"S015", 0}, {"S016", 1}, {"S017", 1},
      {"S018", 2}, {"S020", 2}, {"S021", 3}, {"S023", 3}, {"S024", 4}, {"S026", 4},
      {"S027", 2}, {"S099", 2}, {"S-15", 2}, {"SABC", 2}, {"S", 2},    {"", 2}};
  for (const auto& [signal, bars] : cases) {
    test::Bc895Rig rig;
    rig.tick(opening("MD15", "S019"));
    rig.form.panel.Sig[4].setVisible(true);
    rig.tick(opening("MD15", signal));
    for (int bar = 0; bar < 4; ++bar) {
      EXPECT_EQ(rig.form.panel.Sig[static_cast<std::size_t>(bar)].visible(), bar < bars) << signal;
    }
    rig.tick(opening("MD15", "S026"));
    EXPECT_FALSE(rig.form.panel.Sig[4].visible());
  }
}

TEST(Opening, MirrorMuteAndEchoItsChange) {
  test::Bc895Rig rig;
  const auto tick = [&](const char* answer, const char* echo) {
    auto exchanges = opening("MD15");
    exchanges[1] = {"MU", answer};
    if (echo != nullptr) {
      exchanges.insert(exchanges.begin() + 2, {echo, "OK"});
    }
    rig.tick(exchanges);
    return rig.form.Check6.value();
  };
  EXPECT_TRUE(tick("MUN", "MUN"));
  EXPECT_TRUE(tick("MUN", nullptr));
  EXPECT_TRUE(tick("MU\xC1", nullptr)) << "garbled";
  EXPECT_FALSE(tick("ERR", "MUA"));
  EXPECT_FALSE(tick("MUA", nullptr));
}

TEST(Opening, AskNoLimitThatTheUserEdits) {
  for (const bool lower : {false, true}) {
    for (const bool upper : {false, true}) {
      test::Bc895Rig rig;
      rig.form.customSearch.LLimit.setText("30");
      rig.form.customSearch.Ulimit.setText("900");
      rig.state.LowerLimitEditing = lower;
      rig.state.UpperLimitEditing = upper;
      auto exchanges = opening("MD15");
      std::erase_if(exchanges, [&](const test::Exchange& exchange) {
        return (lower && exchange.command == "LL") || (upper && exchange.command == "LU");
      });
      rig.tick(exchanges);
      EXPECT_EQ(rig.form.customSearch.LLimit.text(), lower ? "30" : "29.0000");
      EXPECT_EQ(rig.form.customSearch.Ulimit.text(), upper ? "900" : "956.0000");
    }
  }
  test::Bc895Rig rig;
  auto exchanges = opening("MD15");
  exchanges[5] = {"LL", "LL ERROR"};
  rig.form.customSearch.LLimit.setText("30.0000");
  rig.tick(exchanges);
  EXPECT_EQ(rig.form.customSearch.LLimit.text(), "30.0000")
      << "a text that isn't a number leaves the box as it is";
}

TEST(Opening, LeaveALimitThatTheUserEditsDuringItsExchange) {
  test::Bc895Rig rig;
  auto& limit = rig.form.customSearch.LLimit;
  rig.radio.answerAll("ERR", {{"MD", "MD15"}, {"LL", "LL00290000"}});
  rig.radio.answer = [&, answer = rig.radio.answer](std::string_view command) {
    if (command == "LL") {
      limit.userEdit("155.5");
    }
    return answer(command);
  };
  rig.gate.enterTimer(rig.form.Scantimer);
  EXPECT_EQ(limit.text(), "155.5");
}

TEST(Opening, KnowTheirOwnRadio) {
  const std::pair<const char*, bool> cases[] = {
      {"ERR", false}, {"FER", false}, {"", false}, {"SIBC245XLT 0123456789 215", true}};
  for (const auto& [answer, switched] : cases) {
    SCOPED_TRACE(answer);
    test::Bc895Rig rig;
    rig.state.SwitchingScanners = true;
    auto exchanges = opening("MD15");
    exchanges[0] = {"SI", answer};
    if (switched) {
      exchanges.erase(exchanges.begin() + 1, exchanges.end());
    }
    rig.tick(exchanges);
    EXPECT_EQ(rig.switches, switched ? 1 : 0);
    EXPECT_EQ(rig.state.ModelKey, switched ? "BC245" : "BC895");
    EXPECT_EQ(rig.state.ScannerName, switched ? "BC245XLT" : "BC895XLT");
    EXPECT_EQ(rig.state.FirmwareText + rig.state.SerialNumberText, switched ? "" : "N/AN/A");
    EXPECT_EQ(rig.state.SwitchingScanners, switched);
  }
}

TEST(Opening, AsksOnceMoreBeforeItAcceptsAnotherRadio) {
  const char* strays[] = {"NG", "OK", "#", "ERR\rERR", "\xC5\xD2\xD2"};
  for (const std::string stray : strays) {
    for (const auto& [second, switched] :
         {std::pair{"ERR", false}, {"SIBC245XLT 0123456789 215", true}, {"#", false}}) {
      SCOPED_TRACE(stray + " " + second);
      test::Bc895Rig rig;
      const auto rest = opening("MD15");
      auto exchanges = test::script("SI > " + stray + "; SI > " + second);
      if (!switched) {
        exchanges.insert(exchanges.end(), rest.begin() + 1, rest.end());
      }
      // The answer to the first question comes late.
      exchanges[0].pieces.push_back({"ERR\r", 1900});
      rig.tick(exchanges);
      EXPECT_EQ(rig.switches, switched ? 1 : 0);
    }
    // After a BC245XLT has named itself, one wrong answer doesn't make it another radio.
    test::Bc245Rig rig;
    rig.poll("MD13");
    const auto rest = test::opening245("MD13");
    rig.tick(test::script(std::string("SI > ") + (stray == "#" ? "ERR" : stray)) + rest);
    EXPECT_EQ(rig.switches, 0);
    EXPECT_EQ(rig.state.ScannerName, "BC245XLT ");
    rig.tick(test::script("SI > ERR; SI > ERR"));
    EXPECT_EQ(rig.switches, 1);
  }
}

}  // namespace
}  // namespace tarnvex::monitor
