#include "platform/convert.h"

#include <gtest/gtest.h>

namespace tarnvex::platform {
namespace {

TEST(Convert, FormatsNumbersAsTheirPicture) {
  struct Case {
    double value;
    const char* mask;
    const char* text;
  };
  for (const auto& [value, mask, text] :
       {Case{155.115, "##0.0000", "155.1150"},
        {155.115, "0.0000", "155.1150"},
        {0, "##0.0000", "0.0000"},
        {0.5, "##0.0000", "0.5000"},
        {1e-7, "0.0000", "0.0000"},
        {-1e-7, "0.0000", "0.0000"},
        // The wire's unit: no digit may get lost between MHz and 100 Hz.
        {155.115 * 10000, "00000000", "01551150"},
        {29.0 * 10000, "00000000", "00290000"},
        {851.0125 * 10000, "00000000", "08510125"},
        {956.0 * 10000, "00000000", "09560000"},
        // "#" alone shows no zero.
        {0, "###", ""},
        {0, "##0", "0"},
        {7, "###", "7"},
        {7, "000", "007"},
        // More digits than the mask are kept.
        {1234, "000", "1234"},
        {12345.5, "##0.0", "12345.5"},
        // Half away from zero, to the digit that is written.
        {0.5, "0", "1"},
        {1.5, "0", "2"},
        {2.5, "0", "3"},
        {-2.5, "0", "-3"},
        {0.00005, "0.0000", "0.0001"},
        {1.00005, "0.0000", "1.0001"},
        {999.99995, "0.0000", "1000.0000"},
        {0.4999, "0", "0"},
        {-0.4, "0", "0"},
        {1.5, "0.##", "1.5"},
        {-3.25, "0.00", "-3.25"}}) {
    EXPECT_EQ(format(value, mask), text) << value << " as " << mask;
  }
}

TEST(Convert, FormatsTextThatReadsAsANumber) {
  struct Case {
    const char* value;
    const char* mask;
    const char* text;
  };
  for (const auto& [value, mask, text] : {Case{"012", "###", "12"},
                                          {"000", "###", ""},
                                          {"000", "##0", "0"},
                                          {" 29", "##0", "29"},
                                          {"001234", "######", "1234"},
                                          {"000000", "#####0", "0"},
                                          {"NG", "###", "NG"},
                                          {"", "##0", ""},
                                          {"12-34", "######", "12-34"},
                                          {"1 2", "###", "1 2"}}) {
    EXPECT_EQ(format(std::string_view(value), mask), text) << value << " as " << mask;
  }
}

TEST(Convert, ReadsNumbersAndNothingElse) {
  struct Case {
    const char* text;
    std::optional<double> value;
  };
  for (const auto& [text, value] : {Case{"12", 12},
                                    {" 12 ", 12},
                                    {"+12", 12},
                                    {"-12", -12},
                                    {".5", 0.5},
                                    {"5.", 5},
                                    {"1e3", 1000},
                                    {"", {}},
                                    {" ", {}},
                                    {"-", {}},
                                    {"+-1", {}},
                                    {"++1", {}},
                                    {"12a", {}},
                                    {"1 2", {}},
                                    {"1,5", {}},
                                    {"0x10", {}},
                                    {"inf", {}},
                                    {"nan", {}},
                                    {"1e999", {}},
                                    {"12\r", {}},
                                    {"\xFE"
                                     "12",
                                     {}}}) {
    EXPECT_EQ(toReal(text), value) << '"' << text << '"';
  }
}

TEST(Convert, RoundsIntegersHalfToEvenWithinSixteenBits) {
  struct Case {
    const char* text;
    std::optional<int> value;
  };
  for (const auto& [text, value] : {Case{"0.5", 0},
                                    {"1.5", 2},
                                    {"2.5", 2},
                                    {"-0.5", 0},
                                    {"-1.5", -2},
                                    {"-2.5", -2},
                                    {"2.4999", 2},
                                    {"2.5001", 3},
                                    {"32767", 32767},
                                    {"32767.4", 32767},
                                    {"32767.5", {}},
                                    {"32768", {}},
                                    {"-32768", -32768},
                                    {"-32768.5", -32768},
                                    {"-32769", {}},
                                    {"1e18", {}},
                                    {"abc", {}}}) {
    EXPECT_EQ(toInteger(std::string_view(text)), value) << text;
  }
}

TEST(Convert, CutsByPositionsFromOne) {
  struct Case {
    std::size_t start;
    std::size_t length;
    const char* text;
  };
  for (const auto& [start, length, text] : {Case{1, 2, "MA"},
                                            {3, 3, "012"},
                                            {5, 9, "2"},
                                            {6, 1, ""},
                                            {99, 9, ""},
                                            {0, 2, ""},
                                            {2, 0, ""}}) {
    EXPECT_EQ(mid("MA012", start, length), text) << start << ',' << length;
  }
  EXPECT_EQ(mid("MA012", 3), "012");
  EXPECT_EQ(mid("MA012", 6), "");
}

TEST(Convert, WritesTheShortestDecimal) {
  struct Case {
    double value;
    const char* text;
  };
  for (const auto& [value, text] : {Case{0, "0"},
                                    {1, "1"},
                                    {1.5, "1.5"},
                                    {1.23, "1.23"},
                                    {1.1 + 2.2, "3.3"},
                                    {-1.25, "-1.25"},
                                    {100, "100"},
                                    {8454143, "8454143"}}) {
    EXPECT_EQ(shortest(value), text);
  }
}

TEST(Convert, SkipsAnAssignmentWithoutValue) {
  int kept = 7;
  EXPECT_FALSE(assign(kept, std::optional<int>()));
  EXPECT_EQ(kept, 7);
  EXPECT_TRUE(assign(kept, std::optional<int>(8)));
  EXPECT_EQ(kept, 8);
}

}  // namespace
}  // namespace tarnvex::platform
