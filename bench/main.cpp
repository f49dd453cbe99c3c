#include <gtest/gtest.h>

#include <QApplication>
#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>
#include <span>
#include <string_view>

#include "bench/awake_processors.h"
#include "bench/measure.h"

namespace tarnvex::bench {

namespace {

struct Part {
  std::string_view name;
  void (*run)(Table&);
};
constexpr std::array<Part, 7> kParts = {{{"exchange", benchExchange},
                                         {"poll", benchPoll},
                                         {"still", benchStill},
                                         {"plan", benchPlan},
                                         {"transfer", benchTransfer},
                                         {"start", benchStart},
                                         {"log", benchLog}}};

bool isPart(std::string_view name) {
  return std::ranges::find(kParts, name, &Part::name) != kParts.end();
}

/// The number of failures so far that the rig has reported, as a test does.
int rigFailures() {
  const auto& reported = testing::UnitTest::GetInstance()->ad_hoc_test_result();
  int failures = 0;
  for (int i = 0; i < reported.total_part_count(); ++i) {
    failures += reported.GetTestPartResult(i).failed() ? 1 : 0;
  }
  return failures;
}

void printParts(std::FILE* to) {
  std::fputs("the parts of the benchmark:", to);
  for (const Part& part : kParts) {
    std::fprintf(to, " %s", std::string(part.name).c_str());
  }
  std::fputs("\n", to);
}

/// Runs the wanted parts, or all if none is named.
int run(Table& table, std::span<const std::string_view> wanted) {
  for (const Part& part : kParts) {
    if (!wanted.empty() && std::ranges::find(wanted, part.name) == wanted.end()) {
      continue;
    }
    const int rows = table.rows();
    const int failures = rigFailures();
    part.run(table);
    if (table.rows() == rows || rigFailures() > failures) {
      table.fail("part \"" + std::string(part.name) + "\" failed");
    }
  }
  return table.passed() ? 0 : 1;
}

}  // namespace
}  // namespace tarnvex::bench

int main(int argc, char** argv) {
  namespace bench = tarnvex::bench;
  const std::vector<std::string_view> arguments(argv + 1, argv + argc);
  std::span<const std::string_view> wanted(arguments);
  const std::string_view option = wanted.empty() ? "" : wanted.front();
  if (option == "--help") {
    bench::printParts(stdout);
    return 0;
  }
  const bool splash = option == "--splash";
  const bool quick = option == "--quick";
  wanted = wanted.subspan(splash || quick ? 1 : 0);
  if (const auto unknown = std::ranges::find_if_not(wanted, bench::isPart);
      unknown != wanted.end()) {
    std::fprintf(stderr, "the benchmark has no part \"%s\"\n", unknown->data());
    bench::printParts(stderr);
    return 2;
  }
  std::optional<bench::AwakeProcessors> awake;
  if (!splash) {
    awake.emplace();
  }
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  if (splash) {
    return bench::showSplash();
  }
  bench::Table table(quick ? bench::Effort::Quick : bench::Effort::Full);
  return bench::run(table, wanted);
}
