#include "bench/line.h"

#include <QFile>
#include <optional>
#include <vector>

namespace tarnvex::bench {
namespace {

constexpr double kMillisecondsPerByte = 10 * 1000.0 / 9600;
constexpr double kThinkMilliseconds = 3;

/// A command or a reply with its CR, and when that CR came.
struct Logged {
  double at;
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
    // A time, a direction and the text, which may contain blanks.
    const QString line = QString::fromLatin1(file.readLine()).trimmed();
    lines.push_back({line.section(' ', 0, 0).toDouble() * 1000,
                     line.section(' ', 2).replace("<CR>", "\r"), line.section(' ', 1, 1) == ">"});
  }
  return lines;
}

}  // namespace

QStringList radioAt9600(const Radio& radio, const QStringList& more) {
  return QStringList{"--model", radio.argument, "--baud", "9600", "--think-ms",
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

Stretch stretchBetween(const QString& log, const QString& first, const QString& last) {
  Stretch stretch;
  std::optional<double> start;
  double line = 0;
  bool atLast = false;
  for (const Logged& logged : readLog(log)) {
    if (!start && logged.command && logged.text == first + '\r') {
      start = logged.at;
      line = kThinkMilliseconds;
    } else if (start) {
      line += logged.milliseconds();
    }
    atLast = logged.command ? logged.text == last + '\r' : atLast;
    if (start && atLast) {
      stretch = {logged.at - *start, line};
    }
  }
  return stretch;
}

std::function<bool()> after(double milliseconds) {
  return [milliseconds, start = std::optional<Clock::time_point>()]() mutable {
    start = start.value_or(Clock::now());
    return millisecondsSince(*start) >= milliseconds;
  };
}

}  // namespace tarnvex::bench
