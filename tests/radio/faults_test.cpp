#include "radio/faults.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

namespace tarnvex::radio {
namespace {

using std::chrono::milliseconds;

/// What an "LL" puts on the line. Each part has its delay, then ':' (reply), '!' (at once) or '~'
/// (at its own time), and the bytes, with '.' for CR.
std::string heard(Faults& faults) {
  std::string text;
  for (const OutgoingPart& part : faults.apply({"LL", "LL0151\r", "ID S 001616", false})) {
    text += (text.empty() ? "" : " ") + std::to_string(part.delay / milliseconds(1)) +
            (part.timing == OutgoingPart::Timing::Reply    ? ":"
             : part.timing == OutgoingPart::Timing::AtOnce ? "!"
                                                           : "~") +
            part.bytes;
  }
  std::ranges::replace(text, '\r', '.');
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
    std::vector<std::string> texts(3000);
    std::ranges::generate(texts, [&] { return heard(faults); });
    return texts;
  };
  for (const std::string fault :
       {"garble every 3", "extra id every 3", "extra noise anywhere every 3",
        "extra flood 9 every 3", "noise 5.3", "noise 5.3 changed"}) {
    const auto texts = run(7, fault);
    EXPECT_EQ(texts, run(7, fault)) << fault;
    EXPECT_NE(texts, run(8, fault)) << fault;
    EXPECT_NEAR(std::ranges::count(texts, "0:LL0151."), 2000, 120) << fault;
  }
  EXPECT_EQ(run(7, "noise 100 doubled")[0], "0:LLLL00115511..");
  EXPECT_EQ(run(7, "noise 100 lost")[0], "");
}

TEST(Faults, NonsenseIsRefused) {
  Faults faults;
  std::istringstream lines(
      "silence/silence maybe/silence after x/delay/cut -1/cut x/cut 1 2 3/flood/garble every/"
      "garble every 0/noise/noise 101/noise 1 bent/extra/extra before/extra late id/extra id every/"
      "extra storm/extra flood 0/stream/stream x//");
  for (std::string line; std::getline(lines, line, '/');) {
    EXPECT_FALSE(faults.set(line)) << line;
  }
  EXPECT_EQ(heard(faults), "0:LL0151.");
}

}  // namespace
}  // namespace tarnvex::radio
