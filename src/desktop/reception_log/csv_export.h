#pragma once

#include <QFile>
#include <QObject>
#include <QTimer>
#include <atomic>
#include <functional>
#include <thread>

#include "desktop/reception_log/reception_query.h"

namespace tarnvex::desktop {

/// Writes the rows of a query to a file of comma-separated values, in a thread of its own. The file
/// gets its name once it is whole; one that is cancelled or fails leaves nothing behind.
class CsvExport : private platform::NonCopyable {
 public:
  using ShownTag = std::function<QString(const ReceptionSource&)>;

  /// `tags` are the tags that are shown, by source.
  CsvExport(QString log, const ReceptionQuery& query, QHash<qint64, QString> tags, QString file);
  /// Cancels what isn't done.
  ~CsvExport();

  void cancel() { cancelled_ = true; }
  [[nodiscard]] bool over() const { return over_; }
  [[nodiscard]] bool cancelled() const { return cancelled_; }
  /// Of a thousand.
  [[nodiscard]] int progress() const { return progress_; }
  /// Empty if all went well, or it was cancelled. To be asked once it is over.
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
