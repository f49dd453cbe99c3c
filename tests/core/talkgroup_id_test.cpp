#include "trunking/talkgroup_id.h"

#include <gtest/gtest.h>

namespace tarnvex::trunking {
namespace {

TEST(TalkgroupId, TurnsNumbersIntoBitsAndConsumesThem) {
  struct Case {
    std::int16_t number;
    const char* bits;
    std::int16_t left;
  };
  for (const auto& [number, bits, left] :
       {Case{0, "00000000000", 0}, Case{1, "00000000001", 0}, Case{128, "00010000000", 0},
        Case{165, "00010100101", 0}, Case{254, "00011111110", 0}, Case{255, "00011111111", 0},
        // Too large for eight digits: all ones.
        Case{256, "00011111111", 1}, Case{300, "00011111111", 45},
        Case{32767, "00011111111", 32512}, Case{-5, "00000000000", -5}}) {
    std::int16_t consumed = number;
    EXPECT_EQ(DecToBin(consumed), bits) << number;
    EXPECT_EQ(consumed, left) << number;
  }
}

TEST(TalkgroupId, ReadsElevenBitsAndSmallPatterns) {
  for (const auto& [digits, value] :
       {std::pair{"00000001111", 15},
        {"11111111111", 2047},
        {"10000000000", 1024},
        // What stands behind the eleventh digit, or is missing before it, doesn't count.
        {"000000000011111", 1},
        {"", 0},
        {"1", 1024},
        {"0000000000x", 0}}) {
    EXPECT_EQ(BinToDec(digits), value) << digits;
  }
  for (int value = 0; value < 16; ++value) {
    std::int16_t consumed = static_cast<std::int16_t>(value);
    const std::string bits = DecToBin(consumed);
    EXPECT_EQ(BitsToNum(bits.substr(7)), value);
    EXPECT_EQ(BitsToNum(bits.substr(8)), value % 8);
  }
  for (const char* none : {"0000", "000", "", "12", "1", "11", "00001", "0002", "x01"}) {
    EXPECT_EQ(BitsToNum(none), 0) << none;
  }
}

TEST(TalkgroupId, FindsTheOtherEdacsForm) {
  struct Case {
    const char* id;
    AlternateIds others;
  };
  for (const auto& [id, others] :
       {Case{"000123", {"00-153", "00-15-"}}, Case{"000128", {"01-000", "01-00-"}},
        Case{"000254", {"01-156", "01-15-"}},
        // No agency beyond 1 comes out.
        Case{"000255", {"01-157", "01-15-"}}, Case{"002047", {"01-157", "01-15-"}},
        Case{"   123", {"00-153", "00-15-"}},
        // No 16-bit numbers.
        Case{"040000", {"00-000", "00-00-"}}, Case{"00-153", {"00-000", "00-00-"}},
        Case{"", {"00-000", "00-00-"}}}) {
    EXPECT_EQ(dashedForms(id), others) << id << ": " << dashedForms(id).first;
  }
  for (const auto& [id, decimal] : {std::pair{"00-153", "000123"},
                                    {"01-157", "000255"},
                                    {"15-157", "002047"},
                                    {"02-034", "000284"},
                                    {"02-03", "000280"},
                                    // Fields beyond their bits push those behind them out.
                                    {"01-160", "000192"},
                                    {"01-169", "000194"},
                                    {"99-000", "001584"},
                                    {"", "000000"}}) {
    EXPECT_EQ(decimalForms(id).first, decimal) << id;
    EXPECT_EQ(decimalForms(id).second, "XXXX");
  }
}

TEST(TalkgroupId, TurnsEveryEightBitIdThereAndBack) {
  for (int value = 0; value < 256; ++value) {
    const std::string id = std::to_string(1000000 + value).substr(1);
    EXPECT_EQ(decimalForms(dashedForms(id).first).first, id);
  }
}

TEST(TalkgroupId, IsShownWithoutLeadingZeros) {
  for (const auto& [id, shown] : {std::pair{"000012", "12"},
                                  {"01-157", "01-157"},
                                  {" 001234", "1234"},
                                  {"------", "------"},
                                  {" 01-157", " 01-157"},
                                  {"", ""},
                                  {"000000", ""}}) {
    EXPECT_EQ(shownId(id), shown) << id;
  }
}

}  // namespace
}  // namespace tarnvex::trunking
