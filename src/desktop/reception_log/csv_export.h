#pragma once

#include <QFile>
#include <QObject>
#include <atomic>
#include <functional>
#include <thread>

#include "desktop/reception_log/reception_query.h"

namespace tarnvex::desktop {

/// Writes the rows of a query to a file of comma-separated values, in a thread of its own. The file
/// gets its name once it is complete. An export that fails or is cancelled leaves nothing behind.
class CsvExport : private platform::NonCopyable {
 public:
  /// `tags` are the tags as they are shown, by source.
  CsvExport(QString log, const ReceptionQuery& query, QHash<qint64, QString> tags, QString file);
  /// Cancels an unfinished export.
  ~CsvExport();

  void cancel() { cancelled_ = true; }
  [[nodiscard]] bool over() const { return over_; }
  [[nodiscard]] bool cancelled() const { return cancelled_; }
  /// In thousandths of the whole.
  [[nodiscard]] int progress() const { return progress_; }
  /// Empty if the export succeeded or was cancelled. Valid once it is over.
  [[nodiscard]] const QString& error() const { return error_; }

 private:
  void run(const ReceptionQuery& query);
  bool writeAll(QFile& file, const ReceptionQuery& query);

  QString log_;
  QHash<qint64, QString> tags_;
  QString file_;
  QString error_;
  std::atomic<bool> cancelled_ = false;
  std::atomic<bool> over_ = false;
  std::atomic<int> progress_ = 0;
  std::thread thread_;
};

}  // namespace tarnvex::desktop
