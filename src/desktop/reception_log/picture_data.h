#pragma once

#include <array>

#include "desktop/reception_log/picture_geometry.h"
#include "desktop/reception_log/source_list.h"

namespace tarnvex::desktop {

/// One of the busiest frequencies or talkgroups, with all its tags in the log taken together.
struct BusySource {
  /// The frequency or ID as the table shows it.
  QString source;
  QString tag;
  qint64 count = 0;
  double seconds = 0;
  QVector<qint64> ids;
};

/// What the picture shows.
struct PictureData {
  TimeSpan whole;
  QVector<BusySource> rows;
  std::array<double, 24> hours{};
};

/// The busiest sources, by airtime.
QVector<BusySource> busiest(const QVector<SourceAirtime>& airtimes, const SourceList& sources);

/// The period from the first reception to the end of the last, in whole minutes around both.
TimeSpan periodOf(const QVector<AirtimeSlice>& slices);
/// Airtime by hour of the day, in local time. `slice` is the length of a slice in milliseconds.
std::array<double, 24> hoursOfDay(const QVector<AirtimeSlice>& slices, qint64 slice);

/// The picture in words, for screen readers.
QString inWords(const PictureData& data);

}  // namespace tarnvex::desktop
