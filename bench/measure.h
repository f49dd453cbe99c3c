#pragma once

#include <chrono>
#include <limits>
#include <string>
#include <vector>

namespace tarnvex::bench {

using Clock = std::chrono::steady_clock;

/// A figure that hasn't been taken.
inline constexpr double kNotTaken = std::numeric_limits<double>::quiet_NaN();

inline double millisecondsSince(Clock::time_point start) {
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

/// Processor time of this process so far, in milliseconds.
double processorMilliseconds();

/// The value below which that share of the values lies; 0.5 is the median. `kNotTaken` if there
/// are no values or one of them wasn't taken.
double quantile(std::vector<double> values, double share);

/// How thorough a run is. A quick one shows within two minutes that every figure can be taken, on
/// machines that others use too, so it only counts gross misses: a time or a processor share ten
/// times its limit, a ratio twice as bad as its limit.
enum class Effort { Full, Quick };

/// The figures of a run, printed as they come.
class Table {
 public:
  explicit Table(Effort effort);

  /// One of two amounts, by the run's effort.
  template <class Amount>
  [[nodiscard]] Amount choose(Amount full, Amount quick) const {
    return effort_ == Effort::Full ? full : quick;
  }

  /// A ratio has no unit.
  void atMost(const std::string& what, double value, double limit, const char* unit = "");
  void atLeast(const std::string& what, double value, double limit, const char* unit = "");
  /// Without a limit.
  void note(const std::string& what, double value, const char* unit = "");
  /// Something went wrong that no figure shows.
  void fail(const std::string& why);

  /// Rows so far.
  [[nodiscard]] int rows() const { return rows_; }
  /// Every figure was taken, and none counts as a miss.
  [[nodiscard]] bool passed() const { return passed_; }

 private:
  /// `excess` is how many times its limit the value is, 1 or less where it keeps it.
  void limited(const std::string& what, double value, const char* unit, const std::string& limit,
               double excess);
  void row(const std::string& what, double value, const char* unit, const std::string& limit,
           const char* verdict);

  Effort effort_;
  int rows_ = 0;
  bool passed_ = true;
};

/// The parts of the benchmark. Each adds its rows, for both radios, and a row for every figure that
/// it couldn't take.
void benchExchange(Table& table);
void benchPoll(Table& table);
void benchStill(Table& table);
void benchPlan(Table& table);
void benchTransfer(Table& table);
void benchStart(Table& table);
void benchLog(Table& table);

}  // namespace tarnvex::bench
