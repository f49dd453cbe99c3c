#include "monitor/reception_joiner.h"

#include <gmock/gmock.h>

#include "monitor/hearing.h"

namespace tarnvex::monitor {
namespace {

using testing::ElementsAre;
using Lines = std::vector<std::string>;

/// A tick: its time and what it hears ("" for nothing), which is a frequency in MHz or an ID, with
/// an optional tag in brackets and the bars.
struct Tick {
  std::int64_t at;
  std::string hears;
};

Heard read(const std::string& text) {
  Heard heard;
  const std::string what = text.substr(0, text.find(' '));
  if (const auto hertz = hertzOf(what)) {
    heard.frequency = *hertz;
  } else {
    heard.talkgroup = what.substr(0, what.find('@'));
    heard.frequency = what.find('@') == std::string::npos ? 0 : 1;
  }
  if (const auto open = text.find('('); open != std::string::npos) {
    heard.tag = text.substr(open + 1, text.find(')') - open - 1);
  }
  if (text.ends_with("+")) {
    heard.bars = static_cast<int>(text.size() - text.find_first_of('+'));
  }
  return heard;
}

/// "start-end what (tag) bars", in milliseconds.
std::string line(const Reception& reception) {
  const Heard& heard = reception.heard;
  std::string text =
      std::to_string(reception.started) + "+" +
      std::to_string(static_cast<int>(reception.seconds * 1000)) + " " +
      (heard.talkgroup.empty() ? std::to_string(heard.frequency / 100) : heard.talkgroup);
  text += heard.tag.empty() ? "" : " (" + heard.tag + ")";
  return text +
         (heard.bars > 0 ? " " + std::string(static_cast<std::size_t>(heard.bars), '+') : "");
}

Lines join(const std::vector<Tick>& ticks) {
  ReceptionJoiner joiner;
  Lines lines;
  const auto take = [&](const std::optional<Reception>& ended) {
    if (ended) {
      lines.push_back(line(*ended));
    }
  };
  for (const auto& [at, hears] : ticks) {
    const Heard heard = read(hears);
    take(joiner.tick(hears.empty() ? nullptr : &heard, at, "BC895XLT"));
  }
  take(joiner.end());
  return lines;
}

TEST(ReceptionJoiner, JoinsTicksToReceptions) {
  struct Case {
    const char* what;
    std::vector<Tick> ticks;
    Lines receptions;
  };
  const std::vector<Case> cases = {
      {"nothing", {{1000, ""}, {1300, ""}}, {}},
      {"one tick", {{1000, "155.1150"}, {1300, ""}, {9000, ""}}, {"1000+0 1551150"}},
      {"to the last tick that hears it",
       {{1000, "155.1150"}, {1300, "155.1150"}, {1600, ""}, {9000, ""}},
       {"1000+300 1551150"}},
      {"again within the gap",
       {{1000, "155.1150"}, {1500, ""}, {2900, "155.1150"}, {3200, ""}},
       {"1000+1900 1551150"}},
      {"again after it",
       {{1000, "155.1150"}, {1500, ""}, {3000, ""}, {3100, "155.1150"}},
       {"1000+0 1551150", "3100+0 1551150"}},
      {"a slow line, heard at every tick",
       {{1000, "155.1150"}, {4000, "155.1150"}, {7000, "155.1150"}},
       {"1000+6000 1551150"}},
      {"another thing, and back",
       {{1000, "155.1150"}, {1300, "46.0125"}, {1600, "155.1150"}},
       {"1000+0 1551150", "1300+0 460125", "1600+0 1551150"}},
      {"a talkgroup on another voice channel",
       {{1000, "1616"}, {1300, "1616@2"}},
       {"1000+300 1616"}},
      {"two talkgroups", {{1000, "1616"}, {1300, "12-345"}}, {"1000+0 1616", "1300+0 12-345"}},
      {"the strongest bars and the first tag",
       {{1000, "155.1150 +"}, {1300, "155.1150 (Fire) +++"}, {1600, "155.1150 (Other) ++"}},
       {"1000+600 1551150 (Fire) +++"}},
      {"the poll stood still meanwhile",
       {{1000, "155.1150"}, {1300, "155.1150"}, {6300, "155.1150"}},
       {"1000+300 1551150", "6300+0 1551150"}},
      {"the clock was set back", {{9000, "155.1150"}, {2000, "155.1150"}}, {"9000+0 1551150"}},
  };
  for (const Case& one : cases) {
    SCOPED_TRACE(one.what);
    EXPECT_EQ(join(one.ticks), one.receptions);
  }
}

TEST(ReceptionJoiner, GoesOnWhileTheBankOfATalkgroupIsNotKnown) {
  ReceptionJoiner joiner;
  Heard heard = read("1616");
  for (const int bank : {0, 2, 0, 2}) {
    heard.bank = bank;
    EXPECT_FALSE(joiner.tick(&heard, 1000, "BC895XLT")) << bank;
  }
  EXPECT_EQ(joiner.open()->heard.bank, 2);
  heard.bank = 3;
  EXPECT_TRUE(joiner.tick(&heard, 1000, "BC895XLT"));
}

TEST(ReceptionJoiner, EndsWhatIsOpenOnceThePollHasStopped) {
  ReceptionJoiner joiner;
  const Heard heard = read("155.1150");
  joiner.tick(&heard, 1000, "BC895XLT");
  EXPECT_FALSE(joiner.endIfStill(5999));
  ASSERT_TRUE(joiner.endIfStill(6000));
  EXPECT_FALSE(joiner.open());
}

TEST(Hearing, TakesOnlyWhatReadsAsAFrequencyOrAnId) {
  const std::pair<const char*, std::int64_t> frequencies[] = {
      {"155.1150", 155115000}, {"46.0125", 46012500}, {"0.5000", 500000}, {"", 0},
      {"155.115", 0},          {"155.11500", 0},      {"1155.1150", 0},   {"000.0000", 0},
      {"155,1150", 0},         {"1-5.1150", 0},       {"155.11 0", 0},    {"ERR.", 0}};
  for (const auto& [text, hertz] : frequencies) {
    EXPECT_EQ(hertzOf(text).value_or(0), hertz) << text;
  }
  for (const char* id : {"001616", "12-345", "01-03-", "7"}) {
    EXPECT_TRUE(namesTalkgroup(id)) << id;
  }
  for (const char* other :
       {"", "000000", "-----", "- -   - - -", "NO ID", "1 2", "12--34", "ERR"}) {
    EXPECT_FALSE(namesTalkgroup(other)) << other;
  }
}

}  // namespace
}  // namespace tarnvex::monitor
