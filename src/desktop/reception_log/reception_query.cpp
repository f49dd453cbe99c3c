#include "desktop/reception_log/reception_query.h"

#include <algorithm>

namespace tarnvex::desktop {
namespace {

ReceptionSource sourceAt(const QSqlQuery& query, int column) {
  return {query.value(column).toLongLong(),     query.value(column + 1).toString(),
          query.value(column + 2).toLongLong(), query.value(column + 3).toString(),
          query.value(column + 4).toString(),   query.value(column + 5).toInt(),
          query.value(column + 6).toInt(),      query.value(column + 7).toDouble()};
}

constexpr const char* kRowColumns =
    "r.started, r.seconds, r.mode, r.bars, r.recording, r.source, r.radio, r.frequency, "
    "r.talkgroup, r.tag, r.bank, r.channel, r.tone";

constexpr const char* kRecorded = " AND (r.recording <> '') = 1";
/// The latest end of a reception.
constexpr const char* kLastEnd = "max(r.started + CAST(r.seconds * 1000 AS INTEGER))";

ReceptionRow rowAt(const QSqlQuery& query) {
  return {query.value(0).toLongLong(), query.value(1).toDouble(), query.value(2).toString(),
          query.value(3).toInt(),      query.value(4).toString(), sourceAt(query, 5)};
}

}  // namespace

ReceptionDatabase* ReceptionReader::database() {
  if (!database_ || database_->state() != DatabaseState::Good) {
    database_ = std::make_unique<ReceptionDatabase>(file_, ReceptionDatabase::Access::Read);
    if (database_->state() == DatabaseState::Good) {
      database_->run(QStringLiteral(
          "CREATE TEMP TABLE wanted (rank INTEGER PRIMARY KEY, source INTEGER UNIQUE)"));
    }
  }
  state_ = database_->state();
  return state_ == DatabaseState::Good ? database_.get() : nullptr;
}

bool ReceptionReader::note(bool good) {
  state_ = database_->state();
  return good;
}

/// Runs the query, and `take` at each of its rows.
template <class Take>
void ReceptionReader::each(QSqlQuery& query, const QVariantList& bounds, Take take) {
  for (bool more = note(database_->run(query, bounds)) && query.next(); more; more = query.next()) {
    take();
  }
}

qint64 ReceptionReader::bottom() {
  return database()
      ->value(QStringLiteral("SELECT started FROM receptions ORDER BY id LIMIT 1"))
      .toLongLong();
}

NewSources ReceptionReader::sourcesSince(const SourceMark& mark) {
  NewSources news;
  ReceptionDatabase* log = database();
  if (log == nullptr) {
    return news;
  }
  news.mark = {bottom(), mark.last};
  news.anew = news.mark.bottom != mark.bottom;
  QSqlQuery query =
      log->prepare(QStringLiteral("SELECT id, radio, frequency, talkgroup, tag, bank, channel, "
                                  "tone FROM sources WHERE id > ? ORDER BY id"));
  const qint64 after = news.anew ? 0 : mark.last;
  each(query, {after}, [&] {
    news.sources.push_back(sourceAt(query, 0));
    news.mark.last = news.sources.back().id;
  });
  return news;
}

ReceptionCount ReceptionReader::begin(const ReceptionQuery& query) {
  query_ = query;
  if (ReceptionDatabase* log = database()) {
    log->run(QStringLiteral("DELETE FROM wanted"));
    if (query.someSources || query.order == ReceptionQuery::Order::Source) {
      fillWanted(*log);
    }
  }
  return beyond({});
}

void ReceptionReader::fillWanted(ReceptionDatabase& log) const {
  log.run(QStringLiteral("BEGIN"));
  QSqlQuery insert = log.prepare(QStringLiteral("INSERT INTO wanted VALUES (?, ?)"));
  for (qsizetype rank = 0; rank < query_.sources.size(); ++rank) {
    log.run(insert, {rank, query_.sources[rank]});
  }
  insert.finish();
  log.run(QStringLiteral("COMMIT"));
}

/// Counts the query's rows beyond `count.top`, and adds them to the count so far.
ReceptionCount ReceptionReader::beyond(const ReceptionCount& count) {
  ReceptionDatabase* log = database();
  if (log == nullptr) {
    return {};
  }
  ReceptionCount all;
  all.bottom = bottom();
  all.top = log->value(QStringLiteral("SELECT max(id) FROM receptions")).toLongLong();
  all.count = count.count + countBetween(*log, count.top, all.top);
  note(true);
  return all;
}

/// The rows of the query whose numbers are above `bottom`, up to `top`.
qint64 ReceptionReader::countBetween(ReceptionDatabase& log, qint64 bottom, qint64 top) const {
  // There are few new rows, which are examined one by one.
  const bool few = bottom > 0 && query_.order != ReceptionQuery::Order::Source;
  const QString from = few ? QStringLiteral("receptions r NOT INDEXED") : table();
  QVariantList bounds = values(top);
  bounds << bottom;
  return log
      .value(
          QStringLiteral("SELECT count(*) FROM %1 WHERE %2 AND r.id > ?").arg(from, conditions()),
          bounds)
      .toLongLong();
}

QString ReceptionReader::table() const {
  using Order = ReceptionQuery::Order;
  if (query_.order == Order::Source) {
    return QStringLiteral("wanted w CROSS JOIN receptions r INDEXED BY by_source");
  }
  const bool byRecording = query_.recordedOnly || query_.order == Order::Recording;
  const char* index = query_.order == Order::Length   ? "by_length"
                      : query_.order == Order::Signal ? "by_signal"
                      : byRecording                   ? "by_recording"
                                                      : "by_time";
  return QStringLiteral("receptions r INDEXED BY %1").arg(QLatin1String(index));
}

QString ReceptionReader::conditions(bool joined) const {
  QString text = QStringLiteral("r.started >= ? AND r.started < ? AND r.id <= ?");
  if (query_.recordedOnly) {
    text += QLatin1String(kRecorded);
  }
  if (joined && query_.order == ReceptionQuery::Order::Source) {
    text += QStringLiteral(" AND r.source = w.source");
  } else if (query_.someSources) {
    text += QStringLiteral(" AND r.source IN (SELECT source FROM wanted)");
  }
  return text;
}

QVariantList ReceptionReader::values(qint64 top) const {
  return {query_.from, query_.to, top};
}

QString ReceptionReader::order(bool reversed) const {
  using Order = ReceptionQuery::Order;
  static const QHash<Order, QString> kFirst = {
      {Order::Length, QStringLiteral("r.seconds %1, ")},
      {Order::Signal, QStringLiteral("r.bars %1, ")},
      {Order::Recording, QStringLiteral("(r.recording <> '') %1, ")},
      {Order::Source, QStringLiteral("w.rank %1, ")}};
  const bool descending = query_.descending != reversed;
  return (kFirst.value(query_.order) + QStringLiteral("r.started %1"))
      .arg(QLatin1String(descending ? "DESC" : "ASC"));
}

/// Reads from the nearer end, since all rows before the first one must be skipped.
QVector<ReceptionRow> ReceptionReader::rows(const ReceptionCount& count, qint64 first, int number) {
  QVector<ReceptionRow> rows;
  ReceptionDatabase* log = database();
  const qint64 size = std::min<qint64>(number, count.count - first);
  if (log == nullptr || size <= 0) {
    return rows;
  }
  const qint64 after = count.count - first - size;
  const bool reversed = after < first;
  QVariantList bounds = values(count.top);
  bounds << size << (reversed ? after : first);
  QSqlQuery query =
      log->prepare(QStringLiteral("SELECT %1 FROM %2 WHERE %3 ORDER BY %4 LIMIT ? OFFSET ?")
                       .arg(QLatin1String(kRowColumns), table(), conditions(), order(reversed)));
  each(query, bounds, [&] { rows.push_back(rowAt(query)); });
  if (reversed) {
    std::ranges::reverse(rows);
  }
  return rows;
}

void ReceptionReader::forEach(const ReceptionCount& count,
                              const std::function<bool(const ReceptionRow&)>& take) {
  ReceptionDatabase* log = database();
  if (log == nullptr) {
    return;
  }
  QSqlQuery query =
      log->prepare(QStringLiteral("SELECT %1 FROM %2 WHERE %3 ORDER BY %4")
                       .arg(QLatin1String(kRowColumns), table(), conditions(), order(false)));
  bool good = log->run(query, values(count.top));
  while (good && log->next(query) && take(rowAt(query))) {
  }
  note(log->state() == DatabaseState::Good);
}

QSqlQuery ReceptionReader::aggregate(const QString& columns, const char* index,
                                     const QString& group) {
  QSqlQuery query = database_->prepare(
      QStringLiteral("SELECT %1 FROM receptions r INDEXED BY %2 WHERE %3 GROUP BY %4")
          .arg(columns, QLatin1String(query_.recordedOnly ? "by_recording" : index),
               conditions(false), group));
  note(database_->run(query, values(std::numeric_limits<qint64>::max())));
  return query;
}

QVector<SourceAirtime> ReceptionReader::airtimes() {
  QVector<SourceAirtime> airtimes;
  if (database() != nullptr) {
    QSqlQuery query =
        aggregate(QStringLiteral("r.source, count(*), sum(r.seconds)"), "by_source", "r.source");
    while (query.next()) {
      airtimes.push_back(
          {query.value(0).toLongLong(), query.value(1).toLongLong(), query.value(2).toDouble()});
    }
  }
  return airtimes;
}

QVector<AirtimeSlice> ReceptionReader::airtimeBySlice(qint64 slice) {
  QVector<AirtimeSlice> slices;
  if (database() != nullptr) {
    const QString number = QStringLiteral("r.started / %1").arg(slice);
    QSqlQuery query = aggregate(
        number + QStringLiteral(", sum(r.seconds), min(r.started), ") + QLatin1String(kLastEnd),
        "by_time", number);
    while (query.next()) {
      slices.push_back({query.value(0).toLongLong(), query.value(1).toDouble(),
                        query.value(2).toLongLong(), query.value(3).toLongLong()});
    }
  }
  return slices;
}

/// Begins earlier, since a reception that began before `from` may last beyond it.
QVector<AirtimeBar> ReceptionReader::bars(const QVector<qint64>& sources, qint64 from, qint64 to,
                                          qint64 slice) {
  QVector<AirtimeBar> bars;
  ReceptionDatabase* log = database();
  if (log == nullptr) {
    return bars;
  }
  const double longest =
      log->value(QStringLiteral("SELECT max(seconds) FROM receptions")).toDouble();
  const auto earliest = from - static_cast<qint64>(longest * 1000);
  QSqlQuery query = log->prepare(
      QStringLiteral("SELECT min(r.started), %1, max(r.bars), count(*) FROM receptions r INDEXED "
                     "BY by_source WHERE r.source = ? AND r.started >= ? AND r.started < ?%2 GROUP "
                     "BY r.started / %3")
          .arg(QLatin1String(kLastEnd), QLatin1String(query_.recordedOnly ? kRecorded : ""))
          .arg(slice));
  for (const qint64 source : sources) {
    each(query, {source, earliest, to}, [&] {
      bars.push_back({source, query.value(0).toLongLong(), query.value(1).toLongLong(),
                      query.value(2).toInt(), query.value(3).toLongLong()});
    });
  }
  return bars;
}

}  // namespace tarnvex::desktop
