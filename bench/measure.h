#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <vector>

namespace tarnvex::bench {

using Clock = std::chrono::steady_clock;

inline double millisecondsSince(Clock::time_point start) {
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

/// Processor time of this process so far, in milliseconds.
double processorMilliseconds();

/// The value below which that share of the values lies; 0.5 is the median. 0 without values.
double quantile(std::vector<double> values, double share);

/// The results of a run, printed as they come.
class Table {
 public:
  Table();

  void atMost(const std::string& what, double value, double limit, const char* unit = "");
  void atLeast(const std::string& what, double value, double limit, const char* unit = "");
  /// Without a limit.
  void note(const std::string& what, double value, const char* unit = "");

  [[nodiscard]] bool missed() const { return missed_; }

 private:
  void row(const std::string& what, double value, const char* unit, const std::string& limit,
           const char* verdict);

  bool missed_ = false;
};

/// The benchmarks. Each adds its rows.
void benchExchange(Table& table);
void benchPoll(Table& table);
void benchStill(Table& table);
void benchPlan(Table& table);
void benchTransfer(Table& table);
void benchStart(Table& table);

}  // namespace tarnvex::bench
