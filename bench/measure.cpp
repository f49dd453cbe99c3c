#include "bench/measure.h"

#include <sys/resource.h>

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace tarnvex::bench {
namespace {

std::string text(double value) {
  char buffer[32];
  std::snprintf(buffer, sizeof buffer, "%.3f", value);
  return buffer;
}

}  // namespace

double processorMilliseconds() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  const auto milliseconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) * 1000 + static_cast<double>(time.tv_usec) / 1000;
  };
  return milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime);
}

double threadMilliseconds() {
  timespec time{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) * 1000 + static_cast<double>(time.tv_nsec) / 1e6;
}

double quantile(std::vector<double> values, double share) {
  if (values.empty() ||
      std::ranges::any_of(values, [](double value) { return std::isnan(value); })) {
    return kNotTaken;
  }
  std::ranges::sort(values);
  const auto at = static_cast<std::size_t>(share * static_cast<double>(values.size()));
  return values[std::min(at, values.size() - 1)];
}

Table::Table(Effort effort) : effort_(effort) {
  std::printf("%-66s %12s %-6s %10s\n", "", "measured", "", "limit");
}

void Table::atMost(const std::string& what, double value, double limit, const char* unit) {
  limited(what, value, unit, "<= " + text(limit), value / limit);
}

void Table::atLeast(const std::string& what, double value, double limit, const char* unit) {
  limited(what, value, unit, ">= " + text(limit), limit / value);
}

void Table::limited(const std::string& what, double value, const char* unit,
                    const std::string& limit, double excess) {
  const double gross = *unit == '\0' ? 2 : 10;
  passed_ = passed_ && excess <= choose(1.0, gross);
  row(what, value, unit, limit, excess <= 1 ? "ok" : excess <= gross ? "MISSED" : "GROSSLY MISSED");
}

void Table::note(const std::string& what, double value, const char* unit) {
  row(what, value, unit, "", "");
}

void Table::fail(const std::string& why) {
  passed_ = false;
  std::printf("FAILED: %s\n", why.c_str());
}

void Table::row(const std::string& what, double value, const char* unit, const std::string& limit,
                const char* verdict) {
  const bool taken = std::isfinite(value) && value >= 0;
  ++rows_;
  passed_ = passed_ && taken;
  std::printf("%-66s %12.3f %-6s %10s %s\n", what.c_str(), value, unit, limit.c_str(),
              taken ? verdict : "NOT TAKEN");
  std::fflush(stdout);
}

}  // namespace tarnvex::bench
