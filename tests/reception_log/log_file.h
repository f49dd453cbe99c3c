#pragma once

#include <QString>
#include <QTimeZone>

#include "desktop/ports/reception_database.h"

namespace tarnvex::test {

/// Makes a log with `rows` receptions, one every 12 seconds up to `last`, of three talkgroups and
/// 97 channels, of which the first ones have no tag. Every fiftieth has a recording.
inline void makeLog(const QString& file, int rows, qint64 last = 1'700'000'000'000) {
  desktop::ReceptionDatabase log(file, desktop::ReceptionDatabase::Access::Write);
  for (const char* statement :
       {"CREATE TEMP TABLE n AS WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n "
        "WHERE i < 999999) SELECT i FROM n LIMIT %1",
        "INSERT INTO sources (id, radio, frequency, talkgroup, tag, bank, channel, tone) SELECT "
        "i + 1, 'BC895XLT', 150000000 + i * 12500, '', CASE WHEN i < 10 THEN '' ELSE 'Tag ' || i "
        "END, 1 + i / 30, i + 1, 0 FROM n LIMIT 97",
        "INSERT INTO sources (id, radio, frequency, talkgroup, tag, bank, channel, tone) SELECT "
        "i + 98, 'BC245XLT', 851012500, 1000 + i, 'Group ' || i, 2, i, 0 FROM n LIMIT 3",
        "INSERT INTO receptions (started, seconds, frequency, talkgroup, tag, bank, channel, tone, "
        "mode, bars, radio, recording, source) SELECT %2 - (%1 - 1 - i) * 12000, (i * 7919 % 600) "
        "/ 10.0, frequency, talkgroup, tag, bank, channel, tone, 'MD00', i % 5, radio, CASE WHEN i "
        "% 50 = 0 THEN 'File ' || i || '.wav' ELSE '' END, sources.id FROM n JOIN sources ON "
        "sources.id = 1 + i * 31 % 100"}) {
    QString text = QLatin1String(statement);
    text.replace(QStringLiteral("%1"), QString::number(rows));
    text.replace(QStringLiteral("%2"), QString::number(last));
    log.run(text);
  }
}

}  // namespace tarnvex::test
