#include "radio/serial_line.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tarnvex::radio {
namespace {

using std::chrono::milliseconds;

/// A line at 10000 baud, which is one byte per millisecond, with a clock of its own.
struct QuietLine {
  /// Sends a command. Returns what comes in the next 100 ms, each piece with its time: "11:MD00. "
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
    std::ranges::replace(text, '\r', '.');
    return text;
  }

  Instant now{};
  Radio radio;
  SerialLine line{radio, {.baud = 10000, .think = milliseconds(3)}, now};
};

TEST(SerialLine, ExtraLinesAndDelaysComeAtTheirTimes) {
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

TEST(SerialLine, TakesCommandsInAnyPieces) {
  Radio radio;
  SerialLine line(radio, {.baud = 0}, {});
  const auto say = [&line](std::string_view bytes) {
    line.toRadio(bytes, {});
    return line.fromRadio({});
  };
  EXPECT_EQ(say("\nM"), "");
  EXPECT_EQ(say("D\r\nSQ\r"), "MD00\r-\r");
  EXPECT_EQ(say("\r"), "ERR\r");
  line.setBaud(9600);
  line.setThink(milliseconds(3));
  EXPECT_EQ(say("KEY01\r\r"), "");
  EXPECT_EQ(line.fromRadio(milliseconds(13)), "") << "a doubled CR is answered in one piece";
  EXPECT_EQ(line.fromRadio(milliseconds(30)), "OK\rERR\r");
}

TEST(SerialLine, LateDeliveriesDontAddUp) {
  Radio radio;
  SerialLine line(radio, {.baud = 9600}, {});
  Instant now{};
  constexpr int kExchanges = 500;
  for (int i = 0; i < kExchanges; ++i) {
    line.toRadio("MD\r", now);
    now = *line.deadline(now) + std::chrono::microseconds(700);  // woken late, answered at once
    ASSERT_EQ(line.fromRadio(now), "MD00\r");
  }
  const double ideal = kExchanges * (8 * 10 / 9.6 + 3);
  EXPECT_NEAR(static_cast<double>(now.count()) / 1e6, ideal, 1.0);
}

}  // namespace
}  // namespace tarnvex::radio
