// The program itself, started and ended as its users do.
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "radio/demo_plan.h"

namespace tarnvex::radio {
namespace {

/// Returns what a shell script prints. The script has $radio, $link and $pipe.
std::string shell(const std::string& script) {
  const auto base = (std::filesystem::temp_directory_path() / "tarnvex-radio-test-").string() +
                    std::to_string(getpid());
  const std::string text = "radio=" TARNVEX_RADIO " link=" + base + ".link pipe=" + base +
                           ".pipe\n" + script + "\nrm -f $link $pipe";
  std::FILE* output = popen(text.c_str(), "r");
  std::string said;
  std::array<char, 1024> buffer{};
  while (std::fgets(buffer.data(), buffer.size(), output) != nullptr) {
    said += buffer.data();
  }
  pclose(output);
  return said;
}

TEST(Program, EndsOnASignalAndRemovesItsLink) {
  const auto said = shell(
      "mkfifo $pipe\n"
      "for signal in TERM HUP; do\n"
      "  $radio --scene tour --fault 'extra echo' --link $link >$pipe &\n"
      "  read -r ready <$pipe\n"
      "  [ \"$ready\" = \"ready $(readlink $link)\" ] || echo \"link: $ready\"\n"
      "  kill -$signal $!\n"
      "  wait $!\n"
      "  echo $? $(readlink $link)\n"
      "done");
  EXPECT_EQ(said, "0\n0\n");
}

TEST(Program, IsControlledThroughItsInputAndEndsWithIt) {
  const auto said = shell(
      "printf 'mode MD04\\nstate\\nscene\\nnoise 1\\n' | $radio --model bc245 --seed 7 --control "
      "|\n"
      "  grep -E '^(mode=|scene=|ok|error)'");
  EXPECT_EQ(said, "ok\nmode=MD04\nscene=city\nok\nerror: no such scene\nok\n");
  EXPECT_EQ(shell("$radio --fault rain 2>&1 | head -1"), "tarnvex-radio: not a fault: rain\n");
}

TEST(Program, ThePlanInTheRepositoryIsUpToDate) {
  std::ifstream file(TARNVEX_DEMO_PLAN, std::ios::binary);
  const std::string plan{std::istreambuf_iterator<char>(file), {}};
  EXPECT_TRUE(plan == demoPlan()) << "tarnvex-radio --write-plan writes it";
}

}  // namespace
}  // namespace tarnvex::radio
