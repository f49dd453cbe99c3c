// Tries out whether the program keeps in step with a radio that talks out of turn: hours of the
// radio's time in minutes, without a window. Prints a table. The exit status is 1 if a limit is
// missed.
#include <array>
#include <cstdio>
#include <span>
#include <string_view>
#include <utility>

#include "line_trial/trials.h"

namespace {

using namespace tarnvex::trial;

constexpr std::array<std::pair<std::string_view, void (*)(Report&, bool)>, 5> kParts{
    {{"ids", followIds},
     {"polls", strikePolls},
     {"transfers", strikeTransfers},
     {"noise", hearNoise},
     {"plans", transferAll}}};

int help() {
  std::puts(
      "line_trial [--quick] [ids|polls|transfers|noise|plans]\n"
      "\n"
      "  ids        ID search and hold, with streamed lines between commands and replies\n"
      "  polls      single faults at every command of a load and of the polls, in every mode\n"
      "  transfers  single faults at the commands of the transfers\n"
      "  noise      a line that spoils one byte in a hundred\n"
      "  plans      transfers of whole plans with stray lines between the commands\n"
      "\n"
      "After the first exchange that gets a wrong answer two more may. That needn't be the one "
      "that\n"
      "the fault strikes: a line may come late, and an \"OK\" too many fits the keys after it "
      "too.\n"
      "Nothing is sent into a text without line ends, so the exchange after such a text begins "
      "when\n"
      "it is over.\n"
      "A wait without a limit counts as one without an end when nothing has come for five "
      "seconds.");
  return 2;
}

}  // namespace

int main(int argc, char** argv) {
  std::span<char*> words(argv + 1, argv + argc);
  const bool quick = !words.empty() && std::string_view(words[0]) == "--quick";
  words = words.subspan(quick ? 1 : 0);
  const std::string_view wanted = words.empty() ? std::string_view() : words[0];
  Report report;
  bool known = false;
  for (const auto& [name, run] : kParts) {
    if (wanted.empty() || wanted == name) {
      known = true;
      run(report, quick);
    }
  }
  if (!known) {
    return help();
  }
  return report.allMet() ? 0 : 1;
}
