#pragma once

#include <QString>
#include <QVector>
#include <functional>
#include <limits>
#include <memory>

#include "desktop/ports/reception_database.h"

namespace tarnvex::desktop {

/// What can be heard: a frequency or talkgroup as the log has it. The plan may know a tag for one
/// that has none.
struct ReceptionSource {
  qint64 id = 0;
  QString radio;
  qint64 frequency = 0;
  QString talkgroup;
  QString tag;
  int bank = 0;
  int channel = 0;
  double tone = 0;
};

/// A row of the log.
struct ReceptionRow {
  qint64 started = 0;
  double seconds = 0;
  QString mode;
  int bars = 0;
  QString recording;
  ReceptionSource source;
};

/// Which rows are wanted, and in which order.
struct ReceptionQuery {
  enum class Order { Time, Length, Signal, Recording, Source };

  /// Those that began from `from` on and before `to`, in milliseconds UTC.
  qint64 from = std::numeric_limits<qint64>::min();
  qint64 to = std::numeric_limits<qint64>::max();
  bool recordedOnly = false;
  /// Only those of `sources`.
  bool someSources = false;
  /// In the order that `Order::Source` means.
  QVector<qint64> sources;
  Order order = Order::Time;
  bool descending = true;
};

/// How many rows a query has. They are counted up to the row `top`, so that their places stay what
/// they are while others come.
struct ReceptionCount {
  qint64 count = 0;
  qint64 top = 0;
  /// The lowest row of the file; it changes when rows are dropped.
  qint64 bottom = 0;
};

/// Airtime of a source, in all or in one slice of time.
struct SourceAirtime {
  qint64 source = 0;
  qint64 count = 0;
  double seconds = 0;
};
/// What was heard of a source in one slice of time, from its first moment to its last.
struct AirtimeBar {
  qint64 source = 0;
  qint64 from = 0;
  qint64 to = 0;
  int bars = 0;
  qint64 count = 0;
};

/// Reads the log, for one thread. It never holds more rows than it is asked for.
class ReceptionReader {
 public:
  explicit ReceptionReader(QString file) : file_(std::move(file)) {}

  /// What has gone wrong last, if anything.
  [[nodiscard]] DatabaseState state() const { return state_; }

  /// Those that came after the one with that number.
  QVector<ReceptionSource> sourcesAfter(qint64 id);
  /// Begins a query; the others below are about the last one begun.
  ReceptionCount begin(const ReceptionQuery& query);
  /// What has come since: rows of the query beyond `count.top`.
  ReceptionCount beyond(const ReceptionCount& count);
  /// The rows from place `first` on.
  QVector<ReceptionRow> rows(const ReceptionCount& count, qint64 first, int number);
  /// Hands over every row, until `take` has had enough.
  bool forEach(const ReceptionCount& count, const std::function<bool(const ReceptionRow&)>& take);

  QVector<SourceAirtime> airtimes();
  /// Airtime in seconds by slices of `slice` milliseconds; the index is the time over `slice`.
  QVector<QPair<qint64, double>> airtimeBySlice(qint64 slice);
  /// The receptions of the sources between two times, those that lie in one slice joined.
  QVector<AirtimeBar> bars(const QVector<qint64>& sources, qint64 from, qint64 to, qint64 slice);

 private:
  ReceptionDatabase* database();
  /// `joined` with the wanted sources, in whose order the rows are.
  [[nodiscard]] QString conditions(bool joined = true) const;
  QSqlQuery aggregate(const QString& columns, const char* index, const QString& group);
  [[nodiscard]] QString table() const;
  [[nodiscard]] QString order(bool reversed) const;
  [[nodiscard]] QVariantList values(qint64 top) const;
  bool note(bool good);

  QString file_;
  std::unique_ptr<ReceptionDatabase> database_;
  DatabaseState state_ = DatabaseState::Good;
  ReceptionQuery query_;
};

}  // namespace tarnvex::desktop
