#pragma once

#include <QStringList>
#include <array>
#include <functional>

#include "bench/measure.h"
#include "link/radio_model.h"

namespace tarnvex::bench {

/// A radio for the measurements.
struct Radio {
  const char* name;
  /// Its name on tarnvex-radio's command line.
  const char* argument;
  const link::RadioModel& (*model)();
};
inline constexpr std::array<Radio, 2> kRadios = {
    {{"BC895XLT", "bc895", link::bc895Model}, {"BC245XLT", "bc245", link::bc245Model}}};

/// Arguments of tarnvex-radio for a radio at 9600 baud with 3 ms of thinking time per command.
QStringList radioAt9600(const Radio& radio, const QStringList& more = {});

/// The time that the line itself needs for the whole poll ticks in a radio's log, in milliseconds
/// per tick. "SI" begins a tick.
double lineTimePerTick(const QString& log);

/// How long a part of the log took, and the time that the line itself needs for it, in
/// milliseconds.
struct Stretch {
  double measured = kNotTaken;
  double line = kNotTaken;
};
/// The part from the end of the first command `first` to the end of the reply to the last command
/// `last`.
Stretch stretchBetween(const QString& log, const QString& first, const QString& last);

/// A condition that is true once this time has passed.
std::function<bool()> after(double milliseconds);

}  // namespace tarnvex::bench
