#pragma once

#include <QStringList>
#include <array>
#include <functional>

namespace tarnvex::bench {

/// A radio to measure on.
struct RadioModel {
  const char* name;
  /// As tarnvex-radio calls it.
  const char* argument;
};
inline constexpr std::array<RadioModel, 2> kModels = {
    {{"BC895XLT", "bc895"}, {"BC245XLT", "bc245"}}};

/// Arguments of a radio at 9600 baud that takes 3 ms to think about a command.
QStringList radioAt9600(const RadioModel& model, const QStringList& more = {});

/// What the line itself needs for what that radio's log holds of whole poll ticks: "SI" begins one.
/// Milliseconds per tick.
double lineTimePerTick(const QString& log);
/// The same for all from the first command that is `first` to the last one that is `last`, its
/// reply included.
double lineTimeBetween(const QString& log, const QString& first, const QString& last);

/// A step that only lets time pass.
std::function<bool()> after(double milliseconds);

}  // namespace tarnvex::bench
