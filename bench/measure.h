#pragma once

#include <chrono>
#include <limits>
#include <string>
#include <vector>

namespace tarnvex::bench {

/// The clock of all times of the benchmark.
using Clock = std::chrono::steady_clock;

/// The value of a figure that couldn't be taken.
inline constexpr double kNotTaken = std::numeric_limits<double>::quiet_NaN();

inline double millisecondsSince(Clock::time_point start) {
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

/// Processor time of this process so far, in milliseconds.
double processorMilliseconds();
/// Processor time of the calling thread so far, in milliseconds.
double threadMilliseconds();

/// The value below which `share` of the values lie; 0.5 gives the median. `kNotTaken` if there are
/// no values or one of them is `kNotTaken`.
double quantile(std::vector<double> values, double share);

/// How thorough a run is. A quick run shows within two minutes that every figure can be taken. It
/// may run on a busy machine, so it only fails on gross misses: a time or a processor share ten
/// times its limit, or a ratio twice as bad as its limit.
enum class Effort { Full, Quick };

/// The figures of a run. Each is printed as soon as it is taken.
class Table {
 public:
  explicit Table(Effort effort);

  /// One of two amounts, depending on the run's effort.
  template <class Amount>
  [[nodiscard]] Amount choose(Amount full, Amount quick) const {
    return effort_ == Effort::Full ? full : quick;
  }

  /// A ratio has no unit.
  void atMost(const std::string& what, double value, double limit, const char* unit = "");
  void atLeast(const std::string& what, double value, double limit, const char* unit = "");
  /// A figure without a limit.
  void note(const std::string& what, double value, const char* unit = "");
  /// Reports a failure that no figure shows.
  void fail(const std::string& why);

  /// The number of rows so far.
  [[nodiscard]] int rows() const { return rows_; }
  /// Whether every figure was taken and none counts as a miss.
  [[nodiscard]] bool passed() const { return passed_; }

 private:
  /// `excess` is the value as a multiple of its limit: 1 or less if it keeps the limit.
  void limited(const std::string& what, double value, const char* unit, const std::string& limit,
               double excess);
  void row(const std::string& what, double value, const char* unit, const std::string& limit,
           const char* verdict);

  Effort effort_;
  int rows_ = 0;
  bool passed_ = true;
};

/// The parts of the benchmark. Each adds its rows for both radios, including a row for every figure
/// that it couldn't take.
void benchExchange(Table& table);
void benchPoll(Table& table);
void benchStill(Table& table);
void benchPlan(Table& table);
void benchTransfer(Table& table);
void benchStart(Table& table);
void benchLog(Table& table);

/// Runs the program until its splash is painted, for a process of its own (start_bench.cpp).
int showSplash();

}  // namespace tarnvex::bench
