#pragma once

#include <QString>

#include "desktop/reception_log/reception_query.h"

/// The texts of the log's values, on the screen and in an exported file.
namespace tarnvex::desktop {

/// In MHz, such as "155.1150". Empty if it isn't known.
QString frequencyText(qint64 hertz);
/// The talkgroup's ID, or the frequency if there is none.
QString sourceText(const ReceptionSource& source);
/// "A" to "J" on the BC895XLT, "1" to "10" on the BC245XLT.
QString bankText(const ReceptionSource& source);
QString toneText(double hertz);
/// "12 s", "1:05" or "1:02:03". Seconds are rounded up.
QString lengthText(double seconds);
/// Local date and time.
QString timeText(qint64 started);
/// ISO 8601 with the time zone.
QString isoTimeText(qint64 started);

/// A line of comma-separated values (RFC 4180), with its end.
QString csvLine(const QStringList& fields);
QStringList csvHeader();
/// `tag` is the tag as it is shown.
QStringList csvFields(const ReceptionRow& row, const QString& tag);

}  // namespace tarnvex::desktop
