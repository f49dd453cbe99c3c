#include <gtest/gtest.h>

#include <QApplication>
#include <array>
#include <cstdio>
#include <string_view>

#include "bench/measure.h"

namespace tarnvex::bench {

/// The program up to its painted splash, as a process of its own (start_bench.cpp).
int showSplash();

}  // namespace tarnvex::bench

int main(int argc, char** argv) {
  namespace bench = tarnvex::bench;
  using Bench = std::pair<std::string_view, void (*)(bench::Table&)>;
  constexpr std::array<Bench, 6> kBenches = {{{"exchange", bench::benchExchange},
                                              {"poll", bench::benchPoll},
                                              {"still", bench::benchStill},
                                              {"plan", bench::benchPlan},
                                              {"transfer", bench::benchTransfer},
                                              {"start", bench::benchStart}}};
  const std::vector<std::string_view> wanted(argv + 1, argv + argc);
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  if (wanted == std::vector<std::string_view>{"--splash"}) {
    return bench::showSplash();
  }
  bench::Table table;
  for (const auto& [name, run] : kBenches) {
    if (wanted.empty() || std::ranges::find(wanted, name) != wanted.end()) {
      run(table);
    }
  }
  // The rig reports its trouble as a test does.
  const bool trouble = testing::UnitTest::GetInstance()->ad_hoc_test_result().Failed();
  return table.missed() || trouble ? 1 : 0;
}
