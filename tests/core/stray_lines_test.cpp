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

 private:
  std::string reply(const std::string& command) {
    if (command == "MD") {
      return rounds_-- > 0 ? mode_ : "MD15";
    }
    const auto found = replies_.find(command);
    return found == replies_.end() ? "OK" : found->second;
  }
  std::vector<Piece> answer(const std::string& command) {
    const std::string answer = reply(command) + "\r";
    std::vector<Piece> pieces{{answer}};
    if (--left_ == 0) {
      const std::string line = strayLine(command) + "\r";
      const std::string place = stray_.place;
      if (std::string_view(stray_.kind) == "flood") {
        pieces.insert(pieces.begin(), 60, {"ABCDEFGH", 1500});
      } else if (place == "before") {
        pieces.insert(pieces.begin(), {line});
      } else if (place == "joined") {
        pieces = {{line + answer}};
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
  std::string strayLine(const std::string& command) {
    const std::string kind = stray_.kind;
    return kind == "echo" ? command : kind == "previous" ? last_ : kind;
  }

  std::string mode_;
  std::map<std::string, std::string> replies_;
  Stray stray_{};
  int left_ = 0;
  int rounds_ = 0;
  std::string last_ = "MD15";
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
bool costsAnAnswer(std::string_view kind) {
  return kind == "#" || kind == "flood";
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
    {"flood", "before"}};

template <class Rig>
void expectInStep(const std::string& opening, std::span<const Loop> loops) {
  for (const Loop& loop : loops) {
    StrayRig<Rig> clean(opening, loop);
    const std::string log = clean.tickWith({"", ""}, 0);
    const std::string picture = clean.picture();
    const std::string hitLines = hits(clean);
    const auto commands = test::splitAt("; ", log);
    const std::string second = clean.tickWith({"", ""}, 0);
    for (const Stray& stray : kStrays) {
      for (std::size_t nth = 1; nth <= commands.size(); ++nth) {
        SCOPED_TRACE(std::string(loop.mode) + ": " + stray.kind + " " + stray.place +
                     " the reply " + std::to_string(nth) + " to " + commands[nth - 1]);
        const bool after = std::string_view(stray.place) == "after";
        const std::size_t struck = after ? nth : nth - 1;
        StrayRig<Rig> rig(opening, loop);
        const std::string disturbed = rig.tickWith(stray, static_cast<int>(nth));
        // In ID hold, each round reads one line after "MD", whatever it is.
        const bool read =
            std::string_view(loop.mode) == "MD08" && after && commands[nth - 1] == "MD";
        if (!read && struck < commands.size() && isKnown(commands[struck], stray.kind) &&
            isKnown(commands[nth - 1], stray.kind)) {
          ASSERT_EQ(disturbed, log);
          ASSERT_EQ(rig.picture(), picture);
          ASSERT_EQ(hits(rig), hitLines);
        }
        // Noise costs one answer, which the next tick asks for again.
        if (costsAnAnswer(stray.kind)) {
          rig.tickWith({"", ""}, 0);
        }
        ASSERT_EQ(rig.tickWith({"", ""}, 0), second);
        ASSERT_EQ(rig.picture(), clean.picture());
        if (!costsAnAnswer(stray.kind)) {
          ASSERT_EQ(hits(rig), hits(clean));
        }
        ASSERT_EQ(rig.switches, 0);
        ASSERT_TRUE(rig.dialogs.boxes.empty());
      }
    }
  }
}

TEST(StrayLines, LeaveThePollOfABc895xltInStep) {
  expectInStep<test::Bc895Rig>(kLoops895, kModes895);
}

TEST(StrayLines, LeaveThePollOfABc245xltInStep) {
  expectInStep<test::Bc245Rig>(kLoops245, kModes245);
}

}  // namespace
}  // namespace tarnvex::monitor
