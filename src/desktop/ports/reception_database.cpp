#include "desktop/ports/reception_database.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QSqlError>
#include <algorithm>
#include <atomic>
#include <vector>

namespace tarnvex::desktop {
namespace {

/// The schema, as steps: a file of version n lacks the steps from index n on. In a row, 0 and empty
/// mean "not known".
const std::vector<std::vector<const char*>>& schema() {
  static const std::vector<std::vector<const char*>> kSteps = {
      {
          // `started` is UTC in milliseconds since 1970; frequency and tone are in Hz; `bank` is 1
          // to 10; `recording` is the name of a file in the folder of this one.
          "CREATE TABLE receptions (id INTEGER PRIMARY KEY, started INTEGER NOT NULL, "
          "seconds REAL NOT NULL, frequency INTEGER NOT NULL DEFAULT 0, "
          "talkgroup TEXT NOT NULL DEFAULT '', tag TEXT NOT NULL DEFAULT '', "
          "bank INTEGER NOT NULL DEFAULT 0, channel INTEGER NOT NULL DEFAULT 0, "
          "tone REAL NOT NULL DEFAULT 0, mode TEXT NOT NULL DEFAULT '', "
          "bars INTEGER NOT NULL DEFAULT 0, radio TEXT NOT NULL DEFAULT '', "
          "recording TEXT NOT NULL DEFAULT '')",
      },
      {
          // Everything the log has ever heard, each once. There are few of them, so a filter looks
          // through these instead of the receptions.
          "CREATE TABLE sources (id INTEGER PRIMARY KEY, radio TEXT NOT NULL, "
          "frequency INTEGER NOT NULL, talkgroup TEXT NOT NULL, tag TEXT NOT NULL, "
          "bank INTEGER NOT NULL, channel INTEGER NOT NULL, tone REAL NOT NULL, "
          "UNIQUE (radio, frequency, talkgroup, tag, bank, channel, tone))",
          "INSERT INTO sources (radio, frequency, talkgroup, tag, bank, channel, tone) "
          "SELECT DISTINCT radio, frequency, talkgroup, tag, bank, channel, tone FROM receptions",
          "ALTER TABLE receptions ADD COLUMN source INTEGER NOT NULL DEFAULT 0",
          "UPDATE receptions SET source = (SELECT s.id FROM sources s WHERE "
          "s.radio = receptions.radio AND s.frequency = receptions.frequency AND "
          "s.talkgroup = receptions.talkgroup AND s.tag = receptions.tag AND "
          "s.bank = receptions.bank AND s.channel = receptions.channel AND "
          "s.tone = receptions.tone)",
          // One index for each order of the window's table. Each has all columns that a filter
          // uses.
          "CREATE INDEX by_time ON receptions (started, source, seconds, bars)",
          "CREATE INDEX by_source ON receptions (source, started, seconds, bars)",
          "CREATE INDEX by_length ON receptions (seconds, started, source)",
          "CREATE INDEX by_signal ON receptions (bars, started, source)",
          "CREATE INDEX by_recording ON receptions ((recording <> ''), started, source, seconds, "
          "bars)",
      },
  };
  return kSteps;
}

/// Error numbers of SQLite.
enum Code {
  /// An error of Qt's own, after an unexpected answer from the file.
  kNone = 0,
  /// A table is missing or has other columns.
  kWrongStatement = 1,
  kBusy = 5,
  kLocked = 6,
  kCorrupt = 11,
  /// Another program is opening or changing the file.
  kProtocol = 15,
  kSchema = 17,
  kNotADatabase = 26,
};

DatabaseState stateOf(const QSqlError& error) {
  // Extended codes have the plain one in their lowest byte.
  switch (error.nativeErrorCode().toInt() & 0xFF) {
    case kBusy:
    case kLocked:
    case kProtocol:
    case kSchema:
      return DatabaseState::Busy;
    case kNone:
    case kWrongStatement:
    case kCorrupt:
    case kNotADatabase:
      return DatabaseState::Damaged;
    default:
      return DatabaseState::Full;
  }
}

QString newConnection() {
  static std::atomic<int> number = 0;
  return QStringLiteral("receptions-%1").arg(++number);
}

constexpr const char* kPatience = "QSQLITE_BUSY_TIMEOUT=5000";

}  // namespace

ReceptionDatabase::ReceptionDatabase(const QString& file, Access access)
    : connection_(newConnection()) {
  if (access == Access::Read && !QFileInfo::exists(file)) {
    state_ = DatabaseState::Missing;
    return;
  }
  open(file, access);
  if (state_ == DatabaseState::Good) {
    checkVersion(access);
  }
}

ReceptionDatabase::~ReceptionDatabase() {
  database_.close();
  database_ = QSqlDatabase();
  QSqlDatabase::removeDatabase(connection_);
}

void ReceptionDatabase::open(const QString& file, Access access) {
  database_ = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection_);
  database_.setDatabaseName(file);
  QString options = QLatin1String(kPatience);
  if (access == Access::Read) {
    options += QLatin1String(";QSQLITE_OPEN_READONLY");
  }
  database_.setConnectOptions(options);
  if (!database_.open()) {
    note(database_.lastError());
    return;
  }
  // With this, readers and the writer don't wait for each other, and the file stays intact if the
  // program is killed.
  if (access == Access::Write && !run(QStringLiteral("PRAGMA journal_mode = WAL"))) {
    return;
  }
  run(QStringLiteral("PRAGMA synchronous = NORMAL"));
  run(QStringLiteral("PRAGMA temp_store = MEMORY"));
  run(QStringLiteral("PRAGMA cache_size = -16384"));
}

void ReceptionDatabase::checkVersion(Access access) {
  const int version = value(QStringLiteral("PRAGMA user_version")).toInt();
  if (state_ != DatabaseState::Good) {
    return;
  }
  if (version > kVersion) {
    state_ = DatabaseState::Newer;
  } else if (version < kVersion && access == Access::Write) {
    upgrade(version);
  } else if (version < kVersion) {
    state_ = DatabaseState::Missing;
  }
}

/// Makes all steps or none. Another program may be doing the same, so the version is read again.
void ReceptionDatabase::upgrade(int from) {
  if (!run(QStringLiteral("BEGIN IMMEDIATE"))) {
    return;
  }
  from = value(QStringLiteral("PRAGMA user_version")).toInt();
  // After a failure nothing else runs: SQLite may have rolled back by itself.
  if (!(runSteps(from) && run(QStringLiteral("PRAGMA user_version = %1").arg(kVersion)) &&
        run(QStringLiteral("COMMIT")))) {
    database_.exec(QStringLiteral("ROLLBACK"));
  }
}

bool ReceptionDatabase::runSteps(int from) {
  for (auto step = static_cast<std::size_t>(from); step < schema().size(); ++step) {
    const auto done = [this](const char* statement) { return run(QLatin1String(statement)); };
    if (!std::ranges::all_of(schema()[step], done)) {
      return false;
    }
  }
  return true;
}

void ReceptionDatabase::note(const QSqlError& error) {
  state_ = stateOf(error);
  error_ = error.databaseText().isEmpty() ? error.driverText() : error.databaseText();
}

QSqlQuery ReceptionDatabase::prepare(const QString& statement) {
  QSqlQuery query(database_);
  query.setForwardOnly(true);
  if (!query.prepare(statement)) {
    note(query.lastError());
  }
  return query;
}

bool ReceptionDatabase::run(QSqlQuery& query, const QVariantList& values) {
  for (int i = 0; i < values.size(); ++i) {
    query.bindValue(i, values[i]);
  }
  if (!query.exec()) {
    note(query.lastError());
    return false;
  }
  return true;
}

bool ReceptionDatabase::run(const QString& statement, const QVariantList& values) {
  QSqlQuery query = prepare(statement);
  return run(query, values);
}

bool ReceptionDatabase::next(QSqlQuery& query) {
  if (query.next()) {
    return true;
  }
  if (query.lastError().isValid()) {
    note(query.lastError());
  }
  return false;
}

QVariant ReceptionDatabase::value(const QString& statement, const QVariantList& values) {
  QSqlQuery query = prepare(statement);
  return run(query, values) && query.next() ? query.value(0) : QVariant();
}

QString setAside(const QString& file) {
  const QFileInfo info(file);
  QString aside =
      info.path() + QLatin1Char('/') +
      QStringLiteral("%1 damaged %2.%3")
          .arg(info.completeBaseName(),
               QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HH.mm.ss")),
               info.suffix());
  if (!QFile::rename(file, aside)) {
    return {};
  }
  for (const char* part : {"-wal", "-shm"}) {
    QFile::rename(file + QLatin1String(part), aside + QLatin1String(part));
  }
  return aside;
}

}  // namespace tarnvex::desktop
