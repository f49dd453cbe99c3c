#include <gtest/gtest.h>

#include "radio/serial_line.h"

namespace tarnvex::radio {
namespace {

using std::chrono::milliseconds;

/// What one "LL" puts on an unpaced line, as pieces "DELAY:BYTES" with '.' for CR, after "MD".
std::string heard(Faults& faults) {
  std::string text;
  for (const OutgoingPart& part : faults.apply({"LL", "LL0151\r", "ID S 001616", false})) {
    text += (text.empty() ? "" : " ") + std::to_string(part.delay / milliseconds(1)) +
            (part.timing == OutgoingPart::Timing::Reply    ? ":"
             : part.timing == OutgoingPart::Timing::AtOnce ? "!"
                                                           : "~") +
            part.bytes;
  }
  std::replace(text.begin(), text.end(), '\r', '.');
  return text;
}

TEST(Faults, EachStrikesTheNextReplyOnly) {
  const std::pair<std::string, std::string> cases[] = {
      {"cut 3", "0:LL0"},
      {"cut 0", "0:LL0151"},
      {"cut 99", ""},
      {"wrong-length", "0:LL0."},
      {"wrong-length 2", "0:LL0151XX."},
      {"wrong-length -99", "0:."},
      {"8bit", "0:\xCC\xCC\xB0\xB1\xB5\xB1."},
      {"join", "0:LL0151.LL0151."},
      {"split", "0:LL0 50:151."},
      {"delay 200", "200:LL0151."},
      {"slow", "0:L 20:L 40:0 60:1 80:5 100:1 120:."},
      {"extra id", "0!ID S 001616. 0:LL0151."},
      {"extra id after", "0:LL0151. 0!ID S 001616."},
      {"extra stream", "0:LL0151."},
      {"extra echo late 70", "0:LL0151. 70~LL."},
      {"extra copy joined", "0:LL0151.LL0151."},
      {"extra copy after cut", "0:LL0151. 0!LL0151"},
      {"extra previous", "0!MD00. 0:LL0151."},
      {"extra text A  B 8bit", "0!A B 8bit. 0:LL0151."},
      {"extra 8bit slow after text A", "0:LL0151. 0!A 20!."}};
  for (const auto& [fault, spoilt] : cases) {
    Faults faults;
    faults.apply({"MD", "MD00\r", "", false});
    ASSERT_TRUE(faults.set(fault)) << fault;
    EXPECT_EQ(heard(faults), spoilt) << fault;
    EXPECT_EQ(heard(faults), "0:LL0151.") << fault;
  }
}

TEST(Faults, SilenceAtOnceOrAfterAWhile) {
  Faults faults;
  faults.set("extra id every 1");
  faults.set("silence on");
  EXPECT_EQ(heard(faults), "");
  faults.set("silence after 1");
  EXPECT_NE(heard(faults), "");
  EXPECT_EQ(heard(faults), "");
  EXPECT_TRUE(faults.isSilent());
  faults.clear();
  EXPECT_EQ(heard(faults), "0:LL0151.");
}

TEST(Faults, ChanceKeepsItsRateAndFollowsTheSeed) {
  const auto run = [](std::uint64_t seed, const std::string& fault) {
    Faults faults(seed);
    EXPECT_TRUE(faults.set(fault)) << fault;
    std::string text;
    for (int i = 0; i < 3000; ++i) {
      text += heard(faults) + '\n';
    }
    return text;
  };
  const std::string plain = "0:LL0151.\n";
  for (const std::string fault :
       {"garble every 3", "extra id every 3", "extra noise anywhere every 3",
        "extra flood 9 every 3", "noise 5.3", "noise 5.3 changed"}) {
    const std::string text = run(7, fault);
    EXPECT_EQ(text, run(7, fault)) << fault;
    EXPECT_NE(text, run(8, fault)) << fault;
    int good = 0;
    for (std::size_t at = 0; (at = text.find(plain, at)) != std::string::npos; at += 1) {
      good += at == 0 || text[at - 1] == '\n' ? 1 : 0;
    }
    EXPECT_NEAR(good, 2000, 120) << fault;
  }
  EXPECT_EQ(run(7, "noise 100 doubled").substr(0, 16), "0:LLLL00115511..");
}

TEST(Faults, NonsenseIsRefused) {
  Faults faults;
  for (const std::string line : {"",
                                 "silence",
                                 "silence maybe",
                                 "silence after x",
                                 "delay",
                                 "cut -1",
                                 "cut x",
                                 "cut 1 2 3",
                                 "flood",
                                 "garble every",
                                 "garble every 0",
                                 "noise",
                                 "noise 101",
                                 "noise 1 bent",
                                 "extra",
                                 "extra before",
                                 "extra late id",
                                 "extra id every",
                                 "extra storm",
                                 "extra flood 0",
                                 "stream",
                                 "stream x"}) {
    EXPECT_FALSE(faults.set(line)) << line;
  }
  EXPECT_EQ(heard(faults), "0:LL0151.");
}

/// A line at 10000 baud, one byte a millisecond, on a clock of its own.
struct QuietLine {
  /// What comes in the next 100 ms, each piece with its time: "11:MD00. "
  std::string say(const std::string& command) {
    line.toRadio(command + '\r', now);
    const Instant end = now + milliseconds(100);
    std::string text;
    for (auto due = line.deadline(now); due && *due < end; due = line.deadline(now)) {
      now = *due;
      if (const std::string bytes = line.fromRadio(now); !bytes.empty()) {
        text += std::to_string(now / milliseconds(1)) + ':' + bytes + ' ';
      }
    }
    now = end;
    std::replace(text.begin(), text.end(), '\r', '.');
    return text;
  }

  Instant now{};
  Radio radio;
  SerialLine line{radio, {.baud = 10000, .think = milliseconds(3)}, now};
};

TEST(SerialLine, LinesOfTheirOwnMeetTheRepliesInTime) {
  const std::pair<std::string, std::string> cases[] = {
      {"extra text ABC", "7:ABC. 12:MD00. 114:LL015100 117:00. "},
      {"extra after text ABC", "11:MD00. 15:ABC. 114:LL015100 117:00. "},
      {"extra late 40 text ABC", "11:MD00. 47:ABC. 114:LL015100 117:00. "},
      {"extra late 102 text ABC", "11:MD00. 109:ABC. 117:LL015100 120:00. "},
      {"extra joined text ABC", "15:ABC.MD00. 114:LL015100 117:00. "},
      {"delay 80", "91:MD00. 114:LL015100 117:00. "}};
  for (const auto& [fault, course] : cases) {
    QuietLine quiet;
    ASSERT_TRUE(quiet.line.faults().set(fault));
    const std::string mode = quiet.say("MD");
    EXPECT_EQ(mode + quiet.say("LL"), course) << fault;
  }
}

TEST(SerialLine, StreamsIdsOutOfTurnOnlyWhenAskedForThem) {
  QuietLine quiet;
  quiet.line.faults().set("extra stream every 1");
  EXPECT_EQ(quiet.say("MD"), "11:MD00. ");
  ASSERT_TRUE(quiet.radio.setMode("MD08"));
  quiet.radio.talk("1616", 60000);
  quiet.say("IDN");
  const std::string course = quiet.say("MD");
  EXPECT_EQ(course.substr(0, 35), "211:ID S 001 215:616. 220:MD08. 238") << course;
}

}  // namespace
}  // namespace tarnvex::radio
