#include "link/resync.h"

#include <gtest/gtest.h>

#include <functional>

#include "link_rig.h"

// What the exchange does if an answer may still be on its way, and that it does nothing otherwise.
namespace tarnvex::link {
namespace {

using test::Exchange;
using test::Piece;

struct Resync : test::LinkRig {
  /// Whether the exchange after this one waits for a quiet line. It gets its own answer in any
  /// case.
  bool waitsAfter(const Exchange& exchange) {
    connect();
    send(exchange);
    const auto before = radio.spins;
    EXPECT_EQ(send("SI > ERR"), "ERR");
    return radio.spins - before > 1;
  }
};

TEST_F(Resync, WaitsForAQuietLineIfAnAnswerMayBeOnItsWay) {
  const std::tuple<const char*, std::vector<Piece>, bool> cases[] = {
      // A line that belongs elsewhere is taken for a key's answer; a second answer is still to
      // come.
      {"KEY00", {{"ID E\r"}, {"OK\r", 1500}}, true},
      {"KEY00\r", {{"OK\r"}, {"ERR\r", 1500}}, true},
      {"IDN", {{"MD08\r"}, {"OK\r", 1500}}, true},
      {"MD", {{"MD0"}, {"8\r", 72600}}, true},
      // No delay after correct answers.
      {"KEY00", {{"OK\r"}}, false},
      {"KEY00\r", {{"OK\rERR\r"}}, false},
      {"IDN", {{"ID S 001234\r"}}, false},
      {"MD", {{"LOF\r"}, {"MD08\r"}}, false},
  };
  for (const auto& [command, pieces, waits] : cases) {
    EXPECT_EQ(waitsAfter({command, pieces}), waits) << command << pieces.front().bytes;
  }
  link.resynchronise();
  radio.send("OK\r");
  EXPECT_EQ(send("SI > ERR"), "ERR");
  // A line that never falls quiet is used as it is.
  send({"IDN", std::vector<Piece>(100, Piece{"ID E\r", 1000})});
  link.resynchronise();
  const auto before = radio.spins;
  auto sent = before;
  radio.answer = [&](std::string_view /*command*/) {
    sent = radio.spins;
    return std::vector<Piece>{};
  };
  link.SendCommand("KEY00");
  EXPECT_NEAR(static_cast<double>(sent - before), kMostQuietSpins, 1000);
}

TEST_F(Resync, LosesNoTimeOnACleanLine) {
  const std::pair<int, std::function<void()>> exchanges[] = {
      {1, [this] { send("KEY00 > OK"); }},
      {1, [this] { send("MD > MD00"); }},
      {3,
       [this] {
         query({{"SS01551150\r", 2}, {"END\r"}});
       }},
      {2, [this] { send("IDN > OK > ID E"), link.ReadReply(); }},
      // Two answers. If the second one doesn't come, that wait is enough.
      {2, [this] { send("KEY00\r > OK > ERR"), link.ReadReply(); }},
      {2001, [this] { send("KEY00\r > OK"), link.ReadReply(); }},
  };
  for (const auto& [spins, exchange] : exchanges) {
    const auto before = radio.spins;
    exchange();
    EXPECT_EQ(send("SI > ERR"), "ERR");
    EXPECT_EQ(radio.spins - before, spins + 1);
  }
  // A line that nobody asked for comes before the two answers.
  send({"KEY00\r", {{"MD08\r"}, {"OK\r", 40}, {"ERR\r", 40}}});
  EXPECT_EQ(link.ReadReply(), "OK");
  EXPECT_EQ(send("SI > FER"), "FER");
  send({"KEY00\r", {{"OK\r"}, {"MD08\r", 40}, {"ERR\r", 40}}});
  EXPECT_EQ(link.ReadReply(), "MD08");
  EXPECT_EQ(send("SI > FER"), "FER");
}

TEST_F(Resync, LearnsHowTheRadioAnswers) {
  const std::tuple<const char*, const char*, bool> cases[] = {
      // Of no known form: noise, or how this radio answers if it comes twice.
      {"KEY00", "#", true},
      {"KEY01", "#", false},
      {"LO", "?", true},
      {"LO", "#", true},
      {"LO", "#", false},
      // The same with the echo of a command that sets something.
      {"IC A1 001234", "IC A1 001234", true},
      {"IC A2 001234", "IC A2 001234", false},
      {"DLN", "DLN", false},
      // An answer that has lost its end.
      {"PM007", "PM", true},
      {"IC A1", "IC", true},
      {"SB AC", "SB AC", false},
  };
  for (const auto& [command, answer, waits] : cases) {
    std::vector<Piece> pieces{{answer + std::string("\r")}};
    if (waits) {
      pieces.push_back({"OK\r", 1500});
    }
    EXPECT_EQ(waitsAfter({command, pieces}), waits) << command << " answered by " << answer;
  }
}

TEST_F(Resync, SendsNothingIntoATextWithoutLineEnds) {
  constexpr int kGap = 1500;
  std::vector<Piece> flood(200, Piece{"ABCDEFGH", kGap});
  flood.push_back({"MD00\r"});
  EXPECT_EQ(send({"MD", flood}).substr(0, 8), "ABCDEFGH");
  EXPECT_LT(radio.spins, 2 * ScannerLink::kReadSpins);
  EXPECT_EQ(send("SI > ERR"), "ERR") << "neither the rest of the text nor the answer at its end";
  EXPECT_GT(radio.spins, 200 * kGap);
  // Unless the user wants to leave.
  connect();
  radio.userLeaves = true;
  send({"MD", flood});
  const auto before = radio.spins;
  EXPECT_EQ(link.SendCommand("SI"), "");
  EXPECT_EQ(radio.takeLog(), "MD");
  EXPECT_LT(radio.spins - before, 3 * kQuietSpins);
  expectReported(0);
}

}  // namespace
}  // namespace tarnvex::link
