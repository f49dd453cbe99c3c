#include "radio/line_pacer.h"

#include <gtest/gtest.h>

namespace tarnvex::radio {
namespace {

using std::chrono::microseconds;
using std::chrono::milliseconds;

TEST(LinePacer, AnExchangeTakesItsBytesAndTheThinkingTime) {
  LinePacer line(10000, milliseconds(3));  // one byte a millisecond
  const Instant arrived = line.arrive(milliseconds(100), 3);
  EXPECT_EQ(arrived, milliseconds(103));
  line.reply("MD00\r", arrived);
  EXPECT_EQ(line.nextDue(), milliseconds(111));
  EXPECT_EQ(line.take(microseconds(110999)), "");
  EXPECT_EQ(line.take(milliseconds(111)), "MD00\r");
  EXPECT_FALSE(line.nextDue());
}

TEST(LinePacer, LongRepliesComeInPiecesUnlessWhole) {
  LinePacer line(10000, milliseconds(0));
  line.reply(std::string(20, 'x'), milliseconds(0));
  EXPECT_EQ(line.take(milliseconds(8)).size(), 8U);
  EXPECT_EQ(line.take(milliseconds(19)).size(), 8U);
  EXPECT_EQ(line.take(milliseconds(20)).size(), 4U);
  line.reply(std::string(20, 'x'), milliseconds(20), true);
  EXPECT_EQ(line.take(milliseconds(39)), "");
  EXPECT_EQ(line.take(milliseconds(40)).size(), 20U);
}

TEST(LinePacer, BothDirectionsQueueUp) {
  LinePacer line(10000, milliseconds(0));
  EXPECT_EQ(line.arrive(milliseconds(0), 5), milliseconds(5));
  EXPECT_EQ(line.arrive(milliseconds(1), 5), milliseconds(10)) << "behind the bytes before";
  line.send("abc", milliseconds(10));
  line.send("def", milliseconds(11));
  EXPECT_EQ(line.take(milliseconds(15)), "abc");
  EXPECT_EQ(line.take(milliseconds(16)), "def");
}

TEST(LinePacer, LateDeliveriesDontAddUp) {
  LinePacer line(9600, milliseconds(3));
  Instant now{0};
  constexpr int kExchanges = 500;
  for (int i = 0; i < kExchanges; ++i) {
    line.reply("MD00\r", line.arrive(now, 3));
    now = *line.nextDue() + microseconds(700);  // woken late, answered at once
    ASSERT_EQ(line.take(now), "MD00\r");
  }
  const double ideal = kExchanges * (8 * 10 / 9.6 + 3);
  EXPECT_NEAR(static_cast<double>(now.count()) / 1e6, ideal, 1.0);
}

}  // namespace
}  // namespace tarnvex::radio
