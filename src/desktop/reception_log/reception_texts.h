#pragma once

#include <QString>

#include "desktop/reception_log/reception_query.h"

/// How the log's values are written, on the screen and in an exported file.
namespace tarnvex::desktop {

/// In MHz, "155.1150"; empty if it isn't known.
QString frequencyText(qint64 hertz);
/// The talkgroup's ID, else the frequency.
QString sourceText(const ReceptionSource& source);
/// "A" to "J" on the BC895XLT, "1" to "10" on the BC245XLT.
QString bankText(const ReceptionSource& source);
QString toneText(double hertz);
/// "12 s", "1:05", "1:02:03"; begun seconds count.
QString lengthText(double seconds);
/// Local date and time.
QString timeText(qint64 started);
/// ISO 8601 with the zone.
QString isoTimeText(qint64 started);

/// A line of comma-separated values (RFC 4180), with its end.
QString csvLine(const QStringList& fields);
QStringList csvHeader();
/// `tag` is the one that is shown.
QStringList csvFields(const ReceptionRow& row, const QString& tag);

}  // namespace tarnvex::desktop
