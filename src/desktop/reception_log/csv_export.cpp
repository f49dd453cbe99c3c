#include "desktop/reception_log/csv_export.h"

#include <unistd.h>

#include <QFileInfo>
#include <QTemporaryFile>
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
  QTemporaryFile file(QFileInfo(file_).path() + QStringLiteral("/.receptions-XXXXXX"));
  // The file gets the usual permissions, as the user's mask limits them.
  const bool whole = file.open() && writeAll(file, query) && file.flush() &&
                     ::fsync(file.handle()) == 0 && !cancelled_;
  if (whole) {
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
    if (std::rename(QFile::encodeName(file.fileName()).constData(),
                    QFile::encodeName(file_).constData()) == 0) {
      file.setAutoRemove(false);
    } else {
      error_ = QStringLiteral("The file could not be given its name.");
    }
  } else if (!cancelled_ && error_.isEmpty()) {
    error_ = file.errorString();
  }
  over_ = true;
}

bool CsvExport::writeAll(QFile& file, const ReceptionQuery& query) {
  ReceptionReader reader(log_);
  const ReceptionCount count = reader.begin(query);
  bool good = file.write(csvLine(csvHeader()).toUtf8()) > 0;
  qint64 written = 0;
  const bool all = good && reader.forEach(count, [&](const ReceptionRow& row) {
    const QString tag = tags_.value(row.source.id, row.source.tag);
    good = file.write(csvLine(csvFields(row, tag)).toUtf8()) > 0;
    progress_ = static_cast<int>(++written * 1000 / std::max<qint64>(count.count, 1));
    return good && !cancelled_;
  });
  if (good && !all && !cancelled_ && reader.state() != DatabaseState::Missing) {
    error_ = QStringLiteral("The log could not be read.");
  }
  return good && (all || count.count == 0);
}

}  // namespace tarnvex::desktop
