#pragma once

#include <QString>
#include <QVector>
#include <functional>
#include <limits>
#include <memory>

#include "desktop/ports/reception_database.h"

namespace tarnvex::desktop {

/// A source of receptions: a frequency or talkgroup as the log has it. If it has no tag, the plan
/// may have one.
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

/// A query: which rows, and in which order.
struct ReceptionQuery {
  /// By what the rows are sorted.
  enum class Order { Time, Length, Signal, Recording, Source };

  /// Receptions that began at `from` or later and before `to`, in milliseconds UTC.
  qint64 from = std::numeric_limits<qint64>::min();
  qint64 to = std::numeric_limits<qint64>::max();
  bool recordedOnly = false;
  /// Whether only receptions of `sources` are wanted.
  bool someSources = false;
  /// In the order for `Order::Source`.
  QVector<qint64> sources;
  Order order = Order::Time;
  bool descending = true;
};

/// The number of rows of a query. Only rows up to `top` are counted, so that their places don't
/// change while new ones come.
struct ReceptionCount {
  qint64 count = 0;
  qint64 top = 0;
  /// When the file's first row began. It changes when rows are deleted.
  qint64 bottom = 0;
};

/// How many of a log's sources a reader has. Numbers are used again after rows have been deleted,
/// so the mark also identifies the log by the time when its first row began.
struct SourceMark {
  qint64 bottom = 0;
  qint64 last = 0;
};
/// The sources that a log has beyond a mark.
struct NewSources {
  SourceMark mark;
  /// Whether the sources known so far are out of date.
  bool anew = false;
  QVector<ReceptionSource> sources;
};

/// The airtime of a source.
struct SourceAirtime {
  qint64 source = 0;
  qint64 count = 0;
  double seconds = 0;
};
/// What was heard of all sources in one slice of time, from the first moment to the last.
struct AirtimeSlice {
  /// Its time divided by the length of a slice.
  qint64 number = 0;
  double seconds = 0;
  qint64 from = 0;
  qint64 to = 0;
};
/// What was heard of a source in one slice of time, from the first moment to the last.
struct AirtimeBar {
  qint64 source = 0;
  qint64 from = 0;
  qint64 to = 0;
  int bars = 0;
  qint64 count = 0;
};

/// Reads the log. To be used in one thread only. It never holds more rows than it is asked for.
class ReceptionReader {
 public:
  explicit ReceptionReader(QString file) : file_(std::move(file)) {}

  /// What went wrong last, if anything.
  [[nodiscard]] DatabaseState state() const { return state_; }

  /// The sources that were added after `mark`, or all of them if the log isn't the same any more.
  NewSources sourcesSince(const SourceMark& mark);
  /// Begins a query. The functions below are about the last query that was begun.
  ReceptionCount begin(const ReceptionQuery& query);
  /// The new count after rows have been added beyond `count.top`.
  ReceptionCount beyond(const ReceptionCount& count);
  /// `number` rows from place `first` on.
  QVector<ReceptionRow> rows(const ReceptionCount& count, qint64 first, int number);
  /// Passes each row to `take` until it returns false. `state` says whether all could be read.
  void forEach(const ReceptionCount& count, const std::function<bool(const ReceptionRow&)>& take);

  QVector<SourceAirtime> airtimes();
  /// In slices of `slice` milliseconds. Those in which nothing was heard are left out.
  QVector<AirtimeSlice> airtimeBySlice(qint64 slice);
  /// The receptions of the sources between two times. Those in the same slice are joined.
  QVector<AirtimeBar> bars(const QVector<qint64>& sources, qint64 from, qint64 to, qint64 slice);

 private:
  ReceptionDatabase* database();
  qint64 bottom();
  /// With `joined`, the rows are joined with the wanted sources, which give the order.
  [[nodiscard]] QString conditions(bool joined = true) const;
  QSqlQuery aggregate(const QString& columns, const char* index, const QString& group);
  [[nodiscard]] QString table() const;
  [[nodiscard]] QString order(bool reversed) const;
  [[nodiscard]] QVariantList values(qint64 top) const;
  void fillWanted(ReceptionDatabase& log) const;
  qint64 countBetween(ReceptionDatabase& log, qint64 bottom, qint64 top) const;
  template <class Take>
  void each(QSqlQuery& query, const QVariantList& bounds, Take take);
  bool note(bool good);

  QString file_;
  std::unique_ptr<ReceptionDatabase> database_;
  DatabaseState state_ = DatabaseState::Good;
  ReceptionQuery query_;
};

}  // namespace tarnvex::desktop
