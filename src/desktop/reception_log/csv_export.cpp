#include "desktop/reception_log/csv_export.h"

#include <unistd.h>

#include <QFileInfo>
#include <QUuid>
#include <cstdio>

#include "desktop/reception_log/reception_texts.h"

namespace tarnvex::desktop {

CsvExport::CsvExport(QString log, const ReceptionQuery& query, QHash<qint64, QString> tags,
                     QString file)
    : log_(std::move(log)),
      tags_(std::move(tags)),
      file_(std::move(file)),
      thread_([this, query] { run(query); }) {}

CsvExport::~CsvExport() {
  cancel();
  thread_.join();
}

void CsvExport::run(const ReceptionQuery& query) {
  // The file gets the usual permissions, as the user's mask limits them.
  const QString name =
      QStringLiteral("/.receptions-%1.part").arg(QUuid::createUuid().toString(QUuid::Id128));
  QFile file(QFileInfo(file_).path() + name);
  const bool whole = file.open(QIODevice::WriteOnly | QIODevice::NewOnly) &&
                     writeAll(file, query) && file.flush() && ::fsync(file.handle()) == 0;
  if (!whole && error_.isEmpty()) {
    error_ = file.errorString();
  } else if (whole && !cancelled_ &&
             std::rename(QFile::encodeName(file.fileName()).constData(),
                         QFile::encodeName(file_).constData()) != 0) {
    error_ = QStringLiteral("The file could not be given its name.");
  }
  if (cancelled_ || !error_.isEmpty()) {
    file.remove();
  }
  over_ = true;
}

/// A missing log counts as empty.
bool CsvExport::writeAll(QFile& file, const ReceptionQuery& query) {
  ReceptionReader reader(log_);
  const ReceptionCount count = reader.begin(query);
  bool good = file.write(csvLine(csvHeader()).toUtf8()) > 0;
  qint64 written = 0;
  reader.forEach(count, [&](const ReceptionRow& row) {
    const QString tag = tags_.value(row.source.id, row.source.tag);
    good = file.write(csvLine(csvFields(row, tag)).toUtf8()) > 0;
    progress_ = static_cast<int>(++written * 1000 / std::max<qint64>(count.count, 1));
    return good && !cancelled_;
  });
  const DatabaseState state = reader.state();
  if (good && state != DatabaseState::Good && state != DatabaseState::Missing) {
    error_ = QStringLiteral("The log could not be read.");
  }
  return good && error_.isEmpty();
}

}  // namespace tarnvex::desktop
