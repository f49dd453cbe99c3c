#pragma once

#include <QStringList>
#include <array>
#include <functional>

#include "bench/measure.h"
#include "link/radio_model.h"

namespace tarnvex::bench {

/// A radio to measure on.
struct Radio {
  const char* name;
  /// As tarnvex-radio calls it.
  const char* argument;
  const link::RadioModel& (*model)();
};
inline constexpr std::array<Radio, 2> kRadios = {
    {{"BC895XLT", "bc895", link::bc895Model}, {"BC245XLT", "bc245", link::bc245Model}}};

/// Arguments of a radio at 9600 baud that takes 3 ms to think about a command.
QStringList radioAt9600(const Radio& radio, const QStringList& more = {});

/// What the line itself needs for what that radio's log holds of whole poll ticks: "SI" begins one.
/// Milliseconds per tick.
double lineTimePerTick(const QString& log);

/// How long a stretch of the log took, and what the line itself needs for it. Milliseconds.
struct Stretch {
  double measured = kNotTaken;
  double line = kNotTaken;
};
/// From the end of the first command that is `first` to the end of the reply to the last one that
/// is `last`.
Stretch stretchBetween(const QString& log, const QString& first, const QString& last);

/// A step that only lets time pass.
std::function<bool()> after(double milliseconds);

}  // namespace tarnvex::bench
