#include "link/answer_filter.h"

#include <gtest/gtest.h>

#include "support/scripted_port.h"

namespace tarnvex::link {
namespace {

using enum Belonging;
struct Case {
  const char* commands;
  const char* lines;
  Belonging belonging;
};
constexpr Case kCases[] = {
    // Possible answers.
    {"SI,MD,SG,WI,MA,SQ,LL,IC,PM007,IC A0,PC B,SS01,LON,SB AC", "OK,ERR,NG,FER,,#,xMD07,\xCD\xC4",
     Answer},
    {"MD", "MD07,MDx", Answer},
    {"SG,WI", "S018 F01551150", Answer},
    {"MA,PM007", "C007 F01551150", Answer},
    {"SQ", "+,-,++", Answer},
    // Also if it has lost its end.
    {"IC A0", "IC A0 001234,IC A,IC", Answer},
    {"PM007", "PM", Answer},
    {"IDF", "IDF,IDF OK", Answer},
    {"IDN,KEY00,KEY00\r,KEY02 1,TEST,", "ID S 001234,MD07,IDF,KEY00,TEST,+", Answer},
    // A command that sets something may be answered by its own text; a question isn't.
    {"PM007 01551150", "PM007 01551150,PM001", Answer},
    {"DLN", "DLN,DLF", Answer},
    {"ILR 5", "ILR 5", Answer},
    {"SB AC", "SB AC,SB A", Answer},
    {"MD", "MD", Elsewhere},
    {"PM007", "PM007", Elsewhere},
    {"SS01", "SS01", Elsewhere},
    // Streamed lines, and answers to other commands.
    {"SI,MU,SG,MD,LO,LL,CT,SB,PR,MA,SQ,IS,DL,IC,PC A,PM001,SS01,IL001,LON,CS01,SB A",
     "ID S 001234,IDNS 001234,IDF,IDN,KEY09,AFN,TB B E2-800", Elsewhere},
    {"SI,MD,LL,IC,SS01,SB,IDF,LON", "+,-,S018 F01551150,C001 F01551150", Elsewhere},
    {"IDF", "ID S 001234,IDN,ID E,MD08", Elsewhere},
    {"SG,WI", "C001 F01551150", Elsewhere},
    // Answers about another channel or slot.
    {"PM007", "PM006 01551150 TF", OtherPlace},
    {"IC A0", "IC A9 001234", OtherPlace},
    {"PI C", "PI B3", OtherPlace},
};

TEST(AnswerFilter, KnowsWhatALineBelongsToByItsFirstLetters) {
  for (const auto& [commands, lines, belonging] : kCases) {
    for (const std::string& command : test::splitAt(",", commands)) {
      for (const std::string& line : test::splitAt(",", lines)) {
        EXPECT_EQ(static_cast<int>(belongingOf(command, line)), static_cast<int>(belonging))
            << command << " answered by " << line;
      }
    }
  }
}

}  // namespace
}  // namespace tarnvex::link
