#include "desktop/reception_log/picture_data.h"

#include <algorithm>

#include "desktop/reception_log/reception_texts.h"

namespace tarnvex::desktop {

namespace {

/// One row for all that looks the same to the user, such as a frequency whose tag has changed.
QVector<BusySource> joined(const QVector<SourceAirtime>& airtimes, const SourceList& sources) {
  QHash<QString, BusySource> rows;
  for (const SourceAirtime& airtime : airtimes) {
    const ReceptionSource source = sources.all().value(airtime.source);
    BusySource& busy = rows[sourceText(source)];
    busy.source = sourceText(source);
    busy.count += airtime.count;
    busy.seconds += airtime.seconds;
    busy.ids.push_back(airtime.source);
    if (const QString name = sources.tag(source); !name.isEmpty()) {
      busy.tag = name;
    }
  }
  return rows.values();
}

QString rowInWords(const BusySource& row) {
  const QString name = row.tag.isEmpty() ? row.source : row.tag + QStringLiteral(", ") + row.source;
  return QObject::tr("%1: %2 in %3 receptions.").arg(name, lengthText(row.seconds)).arg(row.count);
}

}  // namespace

QVector<BusySource> busiest(const QVector<SourceAirtime>& airtimes, const SourceList& sources) {
  QVector<BusySource> rows = joined(airtimes, sources);
  std::ranges::sort(rows, {}, [](const BusySource& row) {
    return std::tuple(-row.seconds, -row.count, row.source);
  });
  rows.resize(std::min<qsizetype>(rows.size(), PictureGeometry::kMostRows));
  return rows;
}

TimeSpan periodOf(const QVector<AirtimeSlice>& slices) {
  constexpr qint64 kMinute = 60'000;
  if (slices.isEmpty()) {
    return {};
  }
  const qint64 end = std::ranges::max(slices, {}, &AirtimeSlice::to).to;
  return {slices.first().from / kMinute * kMinute, (end / kMinute + 1) * kMinute};
}

std::array<double, 24> hoursOfDay(const QVector<AirtimeSlice>& slices, qint64 slice) {
  std::array<double, 24> hours{};
  for (const AirtimeSlice& one : slices) {
    const QDateTime local = QDateTime::fromMSecsSinceEpoch(one.number * slice);
    hours.at(static_cast<std::size_t>(local.time().hour())) += one.seconds;
  }
  return hours;
}

QString inWords(const PictureData& data) {
  if (data.rows.isEmpty()) {
    return QObject::tr("Nothing was heard in this period.");
  }
  QStringList lines{QObject::tr("The busiest from %1 to %2:")
                        .arg(timeText(data.whole.from), timeText(data.whole.to))};
  for (const BusySource& row : data.rows) {
    lines << rowInWords(row);
  }
  const auto* most = std::ranges::max_element(data.hours);
  lines
      << QObject::tr("The busiest hour of the day begins at %1:00.").arg(most - data.hours.begin());
  return lines.join(QLatin1Char('\n'));
}

}  // namespace tarnvex::desktop
