#include "trunking/talkgroup_id.h"

#include <gtest/gtest.h>

namespace tarnvex::trunking {
namespace {

/// Numbers too large for eight digits become all ones.
TEST(TalkgroupId, TurnsNumbersIntoBitsAndConsumesThem) {
  const std::tuple<std::int16_t, const char*, std::int16_t> cases[] = {
      {0, "00000000000", 0},   {1, "00000000001", 0},    {128, "00010000000", 0},
      {165, "00010100101", 0}, {254, "00011111110", 0},  {255, "00011111111", 0},
      {256, "00011111111", 1}, {300, "00011111111", 45}, {32767, "00011111111", 32512},
      {-5, "00000000000", -5}};
  for (const auto& [number, bits, left] : cases) {
    std::int16_t consumed = number;
    EXPECT_EQ(DecToBin(consumed), bits) << number;
    EXPECT_EQ(consumed, left) << number;
  }
}

/// Digits after the eleventh don't count, and missing ones are 0.
TEST(TalkgroupId, ReadsElevenBitsAndSmallPatterns) {
  const std::pair<const char*, int> cases[] = {{"00000001111", 15},
                                               {"11111111111", 2047},
                                               {"10000000000", 1024},
                                               {"000000000011111", 1},
                                               {"", 0},
                                               {"1", 1024},
                                               {"0000000000x", 0}};
  for (const auto& [digits, value] : cases) {
    EXPECT_EQ(BinToDec(digits), value) << digits;
  }
  for (const char* none : {"0000", "000", "", "12", "1", "11", "00001", "0002", "x01"}) {
    EXPECT_EQ(BitsToNum(none), 0) << none;
  }
}

TEST(TalkgroupId, FindsTheOtherEdacsForm) {
  // Agencies above 1 and numbers of more than 16 bits aren't reproduced.
  const std::tuple<const char*, const char*, const char*> dashed[] = {
      {"000123", "00-153", "00-15-"}, {"000128", "01-000", "01-00-"},
      {"000254", "01-156", "01-15-"}, {"000255", "01-157", "01-15-"},
      {"002047", "01-157", "01-15-"}, {"   123", "00-153", "00-15-"},
      {"040000", "00-000", "00-00-"}, {"00-153", "00-000", "00-00-"},
      {"", "00-000", "00-00-"}};
  for (const auto& [id, whole, agency] : dashed) {
    EXPECT_EQ(dashedForms(id), AlternateIds(whole, agency)) << id;
  }
  // A field with too many bits shifts the fields after it.
  const std::pair<const char*, const char*> decimals[] = {
      {"00-153", "000123"}, {"01-157", "000255"}, {"15-157", "002047"},
      {"02-034", "000284"}, {"02-03", "000280"},  {"01-160", "000192"},
      {"01-169", "000194"}, {"99-000", "001584"}, {"", "000000"}};
  for (const auto& [id, decimal] : decimals) {
    EXPECT_EQ(decimalForms(id), AlternateIds(decimal, "XXXX")) << id;
  }
}

TEST(TalkgroupId, TurnsEveryEightBitIdThereAndBack) {
  for (int value = 0; value < 256; ++value) {
    const std::string id = std::to_string(1000000 + value).substr(1);
    EXPECT_EQ(decimalForms(dashedForms(id).first).first, id);
  }
}

TEST(TalkgroupId, IsShownWithoutLeadingZeros) {
  const std::pair<const char*, const char*> cases[] = {{"000012", "12"},       {"01-157", "01-157"},
                                                       {" 001234", "1234"},    {"------", "------"},
                                                       {" 01-157", " 01-157"}, {"", ""},
                                                       {"000000", ""}};
  for (const auto& [id, shown] : cases) {
    EXPECT_EQ(shownId(id), shown) << id;
  }
}

}  // namespace
}  // namespace tarnvex::trunking
