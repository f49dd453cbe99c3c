#include "platform/convert.h"

#include <gtest/gtest.h>

namespace tarnvex::platform {
namespace {

/// "#" alone doesn't show a zero, and more digits than the mask has are kept. Halves are rounded
/// away from zero, at the last digit that is written.
TEST(Convert, FormatsNumbersByTheirMask) {
  using Case = std::tuple<double, const char*, const char*>;
  const Case cases[] = {{155.115, "##0.0000", "155.1150"},
                        {0, "##0.0000", "0.0000"},
                        {0.5, "##0.0000", "0.5000"},
                        {1e-7, "0.0000", "0.0000"},
                        {-1e-7, "0.0000", "0.0000"},
                        {0, "###", ""},
                        {0, "##0", "0"},
                        {7, "###", "7"},
                        {7, "000", "007"},
                        {1234, "000", "1234"},
                        {12345.5, "##0.0", "12345.5"},
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
                        {-3.25, "0.00", "-3.25"}};
  for (const auto& [value, mask, text] : cases) {
    EXPECT_EQ(format(value, mask), text) << value << " as " << mask;
  }
}

TEST(Convert, FormatsTextThatReadsAsANumber) {
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"012", "###", "12"},         {"000", "###", ""},
      {"000", "##0", "0"},          {" 29", "##0", "29"},
      {"001234", "######", "1234"}, {"000000", "#####0", "0"},
      {"NG", "###", "NG"},          {"", "##0", ""},
      {"12-34", "######", "12-34"}, {"1 2", "###", "1 2"}};
  for (const auto& [value, mask, text] : cases) {
    EXPECT_EQ(format(std::string_view(value), mask), text) << value << " as " << mask;
  }
}

TEST(Convert, ReadsNumbersAndNothingElse) {
  using Value = std::optional<double>;
  const std::pair<const char*, Value> cases[] = {
      {"12", 12},    {" 12 ", 12}, {"+12", 12},    {"-12", -12}, {".5", 0.5}, {"5.", 5},
      {"1e3", 1000}, {"", {}},     {" ", {}},      {"-", {}},    {"+-1", {}}, {"++1", {}},
      {"12a", {}},   {"1 2", {}},  {"1,5", {}},    {"0x10", {}}, {"inf", {}}, {"nan", {}},
      {"1e999", {}}, {"12\r", {}}, {"\xFE 12", {}}};
  for (const auto& [text, value] : cases) {
    EXPECT_EQ(toReal(text), value) << '"' << text << '"';
  }
}

TEST(Convert, RoundsIntegersHalfToEvenWithinSixteenBits) {
  const std::pair<const char*, std::optional<int>> cases[] = {
      {"0.5", 0},      {"1.5", 2},    {"2.5", 2},         {"-0.5", 0},          {"-1.5", -2},
      {"-2.5", -2},    {"2.4999", 2}, {"2.5001", 3},      {"32767", 32767},     {"32767.4", 32767},
      {"32767.5", {}}, {"32768", {}}, {"-32768", -32768}, {"-32768.5", -32768}, {"-32769", {}},
      {"1e18", {}},    {"abc", {}}};
  for (const auto& [text, value] : cases) {
    EXPECT_EQ(toInteger(std::string_view(text)), value) << text;
  }
}

TEST(Convert, CutsByPositionsFromOne) {
  const std::tuple<std::size_t, std::size_t, const char*> cases[] = {
      {1, 2, "MA"}, {3, 3, "012"}, {5, 9, "2"}, {6, 1, ""}, {99, 9, ""}, {0, 2, ""}, {2, 0, ""}};
  for (const auto& [start, length, text] : cases) {
    EXPECT_EQ(mid("MA012", start, length), text) << start << ',' << length;
  }
  EXPECT_EQ(mid("MA012", 3), "012");
  EXPECT_EQ(mid("MA012", 6), "");
}

TEST(Convert, WritesTheShortestDecimal) {
  const std::pair<double, const char*> cases[] = {
      {0, "0"},           {1, "1"},         {1.5, "1.5"}, {1.23, "1.23"},
      {1.1 + 2.2, "3.3"}, {-1.25, "-1.25"}, {100, "100"}, {8454143, "8454143"}};
  for (const auto& [value, text] : cases) {
    EXPECT_EQ(shortest(value), text);
  }
}

}  // namespace
}  // namespace tarnvex::platform
