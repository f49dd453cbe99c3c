#include "desktop/reception_log/reception_texts.h"

#include <QDateTime>
#include <QLocale>
#include <cmath>

namespace tarnvex::desktop {
namespace {

constexpr qint64 kHertzPerMegahertz = 1'000'000;

QString numberOrNothing(int number) {
  return number == 0 ? QString() : QString::number(number);
}

/// The field, in quotes if it needs them.
QString csvField(QString field) {
  static const QRegularExpression kSpecial(QStringLiteral("[\",\r\n]"));
  if (!field.contains(kSpecial)) {
    return field;
  }
  field.replace(QLatin1Char('"'), QLatin1String("\"\""));
  return QLatin1Char('"') + field + QLatin1Char('"');
}

}  // namespace

QString frequencyText(qint64 hertz) {
  return hertz == 0 ? QString() : QString::number(double(hertz) / kHertzPerMegahertz, 'f', 4);
}

QString sourceText(const ReceptionSource& source) {
  return source.talkgroup.isEmpty() ? frequencyText(source.frequency) : source.talkgroup;
}

QString bankText(const ReceptionSource& source) {
  const bool letters = source.radio.startsWith(QLatin1String("BC895"));
  return source.bank == 0 ? QString()
         : letters        ? QString(QChar('A' + source.bank - 1))
                          : QString::number(source.bank);
}

QString toneText(double hertz) {
  return hertz == 0 ? QString() : QString::number(hertz, 'f', 1);
}

QString lengthText(double seconds) {
  const auto whole = static_cast<qint64>(std::max(std::ceil(seconds), 1.0));
  if (whole < 60) {
    return QStringLiteral("%1 s").arg(whole);
  }
  const QString rest = QStringLiteral("%1").arg(whole % 60, 2, 10, QLatin1Char('0'));
  const qint64 minutes = whole / 60;
  return minutes < 60 ? QStringLiteral("%1:%2").arg(minutes).arg(rest)
                      : QStringLiteral("%1:%2:%3")
                            .arg(minutes / 60)
                            .arg(minutes % 60, 2, 10, QLatin1Char('0'))
                            .arg(rest);
}

QString timeText(qint64 started) {
  return QDateTime::fromMSecsSinceEpoch(started).toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

QString isoTimeText(qint64 started) {
  const QDateTime local = QDateTime::fromMSecsSinceEpoch(started);
  return local.toOffsetFromUtc(local.offsetFromUtc()).toString(Qt::ISODateWithMs);
}

QString csvLine(const QStringList& fields) {
  QStringList written;
  for (const QString& field : fields) {
    written << csvField(field);
  }
  return written.join(QLatin1Char(',')) + QStringLiteral("\r\n");
}

QStringList csvHeader() {
  return {"Time", "Seconds", "Frequency (MHz)", "Talkgroup", "Tag", "Bank", "Channel", "Tone (Hz)",
          "Mode", "Bars",    "Radio",           "Recording"};
}

QStringList csvFields(const ReceptionRow& row, const QString& tag) {
  const ReceptionSource& source = row.source;
  return {isoTimeText(row.started),
          QString::number(row.seconds, 'f', 3),
          frequencyText(source.frequency),
          source.talkgroup,
          tag,
          bankText(source),
          numberOrNothing(source.channel),
          toneText(source.tone),
          row.mode,
          QString::number(row.bars),
          source.radio,
          row.recording};
}

}  // namespace tarnvex::desktop
