#include <gtest/gtest.h>

#include "poll_rig.h"

namespace tarnvex::monitor {
namespace {

using test::Piece;

/// A mode of a radio with an answer to each command, in the order of first use. The mode ends after
/// three rounds of a loop.
struct Loop {
  const char* mode;
  const char* transcript;
};

constexpr const char* kLoops895 =
    "SI > ERR; MU > MUN; MUN > MUN; SG > S018 F08510125; LO > LON; "
    "LL > LL 0290000; LU > LU 9560000; ";
constexpr Loop kModes895[] = {
    {"MD00",
     "CT > CTN; SB > SB AC; PR > PRN; MA > C012 F01551150 TN DN LN AF RF N05; "
     "PC A > PC A012"},
    {"MD01", "CT > CTN; PR > PRN; MA > NG"},
    {"MD02", "SQ > +; KEY09 > OK"},
    {"MD07", "IDN > IDN S   005678; KEY09 > OK; IDF > IDF"},
    {"MD08", "IDN > IDN; IDF > IDF"},
    {"MD09", "IS > IS AB; DL > DLN; IC > IC B3 005678"},
    {"MD10", "DL > DLN; IC > IC B3 005678"},
    {"MD13", "CT > CTN; PR > PRN; MA > C012 F01551150 TN DN LN AF RF N05; PC A > PC A012"},
    {"MD15", "SG > S018 F01551150"},
};
constexpr const char* kLoops245 =
    "SI > SIBC245XLT 0245001724 V124; LL > LL 0290000; "
    "LU > LU 9560000; LO > LON; PR > PRN; DL > DLN; LT > LTN; ";
constexpr Loop kModes245[] = {
    {"MD00", "SB > SB AC; MA > C012 F01551150 TN DN LN AF RF N05; PC A > PC A012"},
    {"MD02", "SQ > +; WI > WI020F01551150; KEY09 > OK"},
    {"MD06", "WI > WI020F01551150"},
    {"MD09", "IDN > IDN; WI > WI020F08510125; AF > AFN; KEY09 > OK; IDF > IDF"},
    {"MD10", "IDN > IDN; WI > WI020F08510125; AF > AFN; KEY09 > OK; IDF > IDF"},
    {"MD11", "SB > SB AC; IC > IC B3 005678; PI B > PI B3; WI > WI020F08510125; AF > AFN"},
};

/// A line that nobody asked for, and its place relative to the reply.
struct Stray {
  const char* kind;
  const char* place;
};

/// A poll on a line where all exchanges except one are answered at once.
template <class Rig>
class StrayRig : public Rig {
 public:
  StrayRig(const std::string& opening, const Loop& loop) : mode_(loop.mode) {
    for (const auto& exchange : test::script(opening + loop.transcript)) {
      replies_[exchange.command] = exchange.reply();
    }
    this->tickSkip();
    // The display of a radio that has been on for a while.
    this->form.panel.Frequency.setCaption("Scanning");
    this->radio.answer = [this](std::string_view command) { return answer(std::string(command)); };
  }
  /// The log of one tick with a stray line at the n-th exchange, 0 for none.
  std::string tickWith(const Stray& stray, int nth) {
    stray_ = stray;
    left_ = nth;
    rounds_ = 3;
    this->radio.log.clear();
    this->gate.enterTimer(this->form.Scantimer);
    return this->radio.takeLog();
  }

  /// The stray line itself.
  std::string struckBy;

 private:
  std::string reply(const std::string& command) {
    if (command == "MD") {
      return rounds_-- > 0 ? mode_ : "MD14";
    }
    const auto found = replies_.find(command);
    return found == replies_.end() ? "OK" : found->second;
  }
  std::vector<Piece> answer(const std::string& command) {
    const std::string answer = reply(command) + "\r";
    std::vector<Piece> pieces{{answer}};
    if (--left_ == 0) {
      const std::string line = strayLine(command, answer) + "\r";
      struckBy = line.substr(0, line.size() - 1);
      const std::string place = stray_.place;
      if (std::string_view(stray_.kind) == "flood") {
        pieces.insert(pieces.begin(), 60, {"ABCDEFGH", 1500});
      } else if (place == "before") {
        pieces.insert(pieces.begin(), {line});
      } else if (place == "joined") {
        pieces = {{line + answer}};
      } else if (place == "late") {
        pieces.push_back({line, 1000});
      } else {
        pieces.push_back({line});
      }
    }
    const bool streams = mode_ == "MD09" || mode_ == "MD10" || mode_ == "MD08";
    if (streams && (command == "IDN" || (command == "MD" && mode_ == "MD08"))) {
      pieces.push_back({"ID S 005678\r"});
    }
    last_ = answer.substr(0, answer.size() - 1);
    return pieces;
  }
  std::string strayLine(const std::string& command, const std::string& answer) {
    const std::string kind = stray_.kind;
    return kind == "echo"       ? command
           : kind == "previous" ? last_
           : kind == "copy"     ? answer.substr(0, answer.size() - 1)
                                : kind;
  }

  std::string mode_;
  std::map<std::string, std::string> replies_;
  Stray stray_{};
  int left_ = 0;
  int rounds_ = 0;
  std::string last_ = "MD14";
};

template <class Rig>
std::string hits(const Rig& rig) {
  std::string all;
  for (const auto* list : {&rig.form.hitLists.List1, &rig.form.hitLists.List2}) {
    for (const auto& line : list->items()) {
      all += line + "|";
    }
  }
  return all;
}

/// A text that may be the answer is accepted as it, in one exchange.
bool costsAnAnswer(std::string_view line) {
  constexpr std::string_view kPossible[] = {"#", "flood", "OK", "ERR", "NG", "+"};
  return std::ranges::find(kPossible, line) != std::end(kPossible);
}

/// Whether the program can recognise the line as a stray one. Keys and "IDN" accept anything, and a
/// command that sets something can't be distinguished from its answer.
bool isKnown(const std::string& command, std::string_view kind) {
  return command != "IDN" && !command.starts_with("KEY") && command != "IDF" &&
         !costsAnAnswer(kind);
}

constexpr Stray kStrays[] = {
    {"ID S 005678", "before"}, {"ID S 005678", "joined"}, {"ID S 005678", "after"},
    {"echo", "before"},        {"echo", "after"},         {"KEY13", "before"},
    {"TB B E2-800", "joined"}, {"#", "before"},           {"#", "after"},
    {"flood", "before"},       {"copy", "after"},         {"copy", "late"},
    {"previous", "before"},    {"previous", "after"},     {"OK", "before"},
    {"ERR", "after"},          {"NG", "before"},          {"+", "after"}};

/// How noise instead of an answer changes a tick. From the n-th command on, counted from 0, the log
/// has `to` in place of `from`, or in place of the rest if `from` is empty.
struct Noise {
  const char* mode;
  std::size_t place;
  const char* from;
  const char* to;
};
constexpr Noise kNoise895[] = {
    {"", 0, "SI", "SI; SI"},
    {"", 1, "MU; MUN", "MU"},
    {"", 4, "", "MD; LO; LL; LU"},
    {"MD00", 11, "MA; PC A", "MA"},
    {"MD02", 8, "SQ; SG", "SQ"},
    // A known ID is skipped, so the next round is the first to find one.
    {"MD07", 10, "IDN; SG; IDF; MD; IDN; SG; KEY09", "IDN; IDF; MD; IDN; SG"},
    {"MD07", 13, "", "MD; IDF"},
    {"MD07", 14, "IDN; SG; KEY09", "IDN"},
    {"MD07", 18, "", "MD; IDF"},
    {"MD07", 19, "IDN; SG", "IDN"},
    {"MD08", 8, "IDN; SG", "IDN"},
    {"MD08", 10, "", "MD; IDF"},
    {"MD08", 12, "", "MD; IDF"},
    {"MD13", 10, "MA; PC A", "MA"},
};
constexpr Noise kNoise245[] = {
    {"", 0, "SI", "SI; SI"},
    {"", 7, "", "MD"},
    {"MD00", 10, "MA; PC A", "MA"},
    {"MD02", 8, "SQ; WI", "SQ"},
    // The answer would have ended the loop.
    {"MD09", 28, "MD; LT", "MD; LT; DL; IDN; WI; AF; KEY09; MD; LT"},
    {"MD10", 28, "MD; LT", "MD; LT; DL; IDN; WI; AF; KEY09; MD; LT"},
    {"MD11", 9, "IC; PI B", "IC; PI "},
};

/// A mode of a radio with a stray line at each exchange of a tick.
template <class Rig>
class Strikes {
 public:
  Strikes(const std::string& opening, const Loop& loop, std::span<const Noise> noise)
      : opening_(opening), loop_(loop), noise_(noise), clean_(opening, loop) {
    log_ = clean_.tickWith({"", ""}, 0);
    commands_ = test::splitAt("; ", log_);
    picture_ = clean_.picture();
    hits_ = hits(clean_);
    second_ = clean_.tickWith({"", ""}, 0);
  }
  void strikeAll(const Stray& stray) {
    for (std::size_t nth = 1; nth <= commands_.size(); ++nth) {
      SCOPED_TRACE(std::string(loop_.mode) + ": " + stray.kind + " " + stray.place + " the reply " +
                   std::to_string(nth) + " to " + commands_[nth - 1]);
      strike(stray, nth);
    }
  }

 private:
  void strike(const Stray& stray, std::size_t nth) {
    const std::string_view place = stray.place;
    const bool after = place == "after" || place == "late";
    const std::size_t struck = after ? nth : nth - 1;
    StrayRig<Rig> rig(opening_, loop_);
    const std::string disturbed = rig.tickWith(stray, static_cast<int>(nth));
    const std::string& line = rig.struckBy;
    // In ID hold, "IDN" and each "MD" are followed by a look for one line: a stray one, or the
    // radio's answer if the stray one looks like it.
    const bool read = std::string_view(loop_.mode) == "MD08" && after &&
                      struck < commands_.size() &&
                      (commands_[nth - 1] == "MD" || commands_[nth - 1] == "IDN" ||
                       line.starts_with(commands_[struck]));
    if (read || struck == commands_.size()) {
      // Only the ticks that follow are compared.
    } else if (line == "#") {
      EXPECT_EQ(disturbed, logWithNoise(struck));
    } else if (isKnown(commands_[struck], line) && isKnown(commands_[nth - 1], line)) {
      EXPECT_EQ(disturbed, log_);
      EXPECT_EQ(rig.picture(), picture_);
      EXPECT_EQ(hits(rig), hits_);
    }
    expectInStep(rig);
  }
  /// A possible answer costs one answer, which the next tick asks for again. "ERR" may look like
  /// the right answer to "SI" at first, and then costs another one.
  void expectInStep(StrayRig<Rig>& rig) {
    const bool costs = costsAnAnswer(rig.struckBy);
    for (int ticks = rig.struckBy == "ERR" ? 2 : costs ? 1 : 0; ticks > 0; --ticks) {
      rig.tickWith({"", ""}, 0);
    }
    EXPECT_EQ(rig.tickWith({"", ""}, 0), second_);
    EXPECT_EQ(rig.picture(), clean_.picture());
    if (!costs) {
      EXPECT_EQ(hits(rig), hits(clean_));
    }
    EXPECT_EQ(rig.switches, 0);
    EXPECT_TRUE(rig.dialogs.boxes.empty());
  }
  std::string logWithNoise(std::size_t struck) {
    std::size_t at = 0;
    for (std::size_t i = 0; i < struck; ++i) {
      at += commands_[i].size() + 2;
    }
    std::string log = log_;
    for (const Noise& noise : noise_) {
      const bool isMode = *noise.mode == '\0' || std::string_view(noise.mode) == loop_.mode;
      if (isMode && noise.place == struck &&
          std::string_view(log).substr(at).starts_with(noise.from)) {
        const std::string_view from = noise.from;
        log.replace(at, from.empty() ? log.size() : from.size(), noise.to);
        break;
      }
    }
    return log;
  }

  std::string opening_;
  Loop loop_;
  std::span<const Noise> noise_;
  StrayRig<Rig> clean_;
  std::string log_;
  std::vector<std::string> commands_;
  std::string picture_;
  std::string hits_;
  std::string second_;
};

template <class Rig>
void expectInStep(const std::string& opening, std::span<const Loop> loops,
                  std::span<const Noise> noise) {
  for (const Loop& loop : loops) {
    Strikes<Rig> strikes(opening, loop, noise);
    for (const Stray& stray : kStrays) {
      strikes.strikeAll(stray);
    }
  }
}

TEST(StrayLines, LeaveThePollOfABc895xltInStep) {
  expectInStep<test::Bc895Rig>(kLoops895, kModes895, kNoise895);
}

TEST(StrayLines, LeaveThePollOfABc245xltInStep) {
  expectInStep<test::Bc245Rig>(kLoops245, kModes245, kNoise245);
}

}  // namespace
}  // namespace tarnvex::monitor
