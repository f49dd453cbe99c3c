#include "bench/line.h"

#include <QFile>
#include <optional>
#include <vector>

#include "bench/measure.h"

namespace tarnvex::bench {
namespace {

constexpr double kMillisecondsPerByte = 10 * 1000.0 / 9600;
constexpr double kThinkMilliseconds = 3;

/// A line of the log: a command or a reply with the CR behind it.
struct Logged {
  QString text;
  bool command;

  [[nodiscard]] double milliseconds() const {
    return static_cast<double>(text.size()) * kMillisecondsPerByte +
           (command ? kThinkMilliseconds : 0);
  }
};

std::vector<Logged> readLog(const QString& path) {
  std::vector<Logged> lines;
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    return lines;
  }
  while (!file.atEnd()) {
    // A time, a direction and the text, which has blanks of its own.
    const QString line = QString::fromLatin1(file.readLine()).trimmed();
    lines.push_back({line.section(' ', 2).replace("<CR>", "\r"), line.section(' ', 1, 1) == ">"});
  }
  return lines;
}

}  // namespace

QStringList radioAt9600(const RadioModel& model, const QStringList& more) {
  return QStringList{"--model", model.argument, "--baud", "9600", "--think-ms",
                     "3",       "--scene",      "quiet"} +
         more;
}

double lineTimePerTick(const QString& log) {
  std::vector<double> ticks;
  for (const Logged& line : readLog(log)) {
    if (line.command && line.text == "SI\r") {
      ticks.push_back(0);
    }
    if (!ticks.empty()) {
      ticks.back() += line.milliseconds();
    }
  }
  return quantile(ticks, 0.5);
}

double lineTimeBetween(const QString& log, const QString& first, const QString& last) {
  double sum = 0;
  double upToLast = 0;
  bool begun = false;
  bool atLast = false;
  for (const Logged& line : readLog(log)) {
    begun = begun || (line.command && line.text == first + '\r');
    sum += begun ? line.milliseconds() : 0;
    atLast = line.command ? line.text == last + '\r' : atLast;
    upToLast = atLast ? sum : upToLast;
  }
  return upToLast;
}

std::function<bool()> after(double milliseconds) {
  return [milliseconds, start = std::optional<Clock::time_point>()]() mutable {
    start = start.value_or(Clock::now());
    return millisecondsSince(*start) >= milliseconds;
  };
}

}  // namespace tarnvex::bench
