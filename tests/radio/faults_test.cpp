#include "radio/faults.h"

#include <gtest/gtest.h>

namespace tarnvex::radio {
namespace {

using std::chrono::milliseconds;

std::string sent(Faults& faults) {
  std::string bytes;
  for (const OutgoingPart& part : faults.apply("C001 F01551150\r")) bytes += part.bytes;
  return bytes;
}

TEST(Faults, EachStrikesTheNextReplyOnly) {
  const std::string good = "C001 F01551150\r";
  const std::tuple<std::string, std::vector<std::string>, std::string> cases[] = {
      {"cut", {"3"}, "C001 F01551"},
      {"cut", {"0"}, "C001 F01551150"},
      {"cut", {"99"}, ""},
      {"wrong-length", {}, "C001 F01551\r"},
      {"wrong-length", {"2"}, "C001 F01551150XX\r"},
      {"wrong-length", {"-99"}, "\r"},
      {"join", {}, good + good},
      {"split", {}, good},
      {"delay", {"200"}, good}};
  for (const auto& [word, arguments, spoilt] : cases) {
    Faults faults;
    ASSERT_TRUE(faults.set(word, arguments)) << word;
    EXPECT_EQ(sent(faults), spoilt) << word;
    EXPECT_EQ(sent(faults), good) << word;
  }
}

TEST(Faults, GarbleAndTopBitsKeepTheEnd) {
  Faults faults;
  faults.set("garble", {"2"});
  const std::string garbled = sent(faults);
  EXPECT_EQ(garbled.size(), 15U);
  EXPECT_NE(garbled, "C001 F01551150\r");
  EXPECT_EQ(garbled.back(), '\r');
  EXPECT_EQ(sent(faults), garbled);
  faults.set("8bit", {});
  EXPECT_EQ(sent(faults).substr(0, 2), "\xC3\xB0");
  EXPECT_EQ(sent(faults), "C001 F01551150\r");
}

TEST(Faults, SilenceAtOnceOrAfterAWhile) {
  Faults faults;
  faults.set("silence", {"on"});
  EXPECT_EQ(sent(faults), "");
  faults.set("silence", {"off"});
  EXPECT_NE(sent(faults), "");
  faults.set("silence", {"after", "2"});
  EXPECT_NE(sent(faults), "");
  EXPECT_FALSE(faults.isSilent());
  EXPECT_NE(sent(faults), "");
  EXPECT_EQ(sent(faults), "");
  EXPECT_EQ(sent(faults), "");
  faults.set("silence", {"off"});
  EXPECT_NE(sent(faults), "");
}

TEST(Faults, DelaysAndPauses) {
  Faults faults;
  faults.set("delay", {"200", "2"});
  EXPECT_EQ(faults.apply("MD00\r")[0].delay, milliseconds(200));
  faults.set("split", {});
  const auto parts = faults.apply("MD00\r");
  ASSERT_EQ(parts.size(), 2U);
  EXPECT_EQ(parts[0].delay, milliseconds(200));
  EXPECT_EQ(parts[1].delay, milliseconds(250));
  EXPECT_EQ(faults.apply("MD00\r")[0].delay, milliseconds(0));
}

TEST(Faults, NonsenseIsRefused) {
  Faults faults;
  EXPECT_FALSE(faults.set("silence", {}));
  EXPECT_FALSE(faults.set("silence", {"maybe"}));
  EXPECT_FALSE(faults.set("silence", {"after", "x"}));
  EXPECT_FALSE(faults.set("delay", {}));
  EXPECT_FALSE(faults.set("cut", {"-1"}));
  EXPECT_FALSE(faults.set("flood", {}));
  EXPECT_EQ(sent(faults), "C001 F01551150\r");
}

}  // namespace
}  // namespace tarnvex::radio
