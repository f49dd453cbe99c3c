#include "desktop/ports/sqlite_reception_store.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>

#include "desktop/ports/text.h"

namespace tarnvex::desktop {
namespace {

/// Attempts at a job. Each waits some seconds if the file is busy.
constexpr int kAttempts = 3;
/// The rows that are deleted at a time. That takes some milliseconds; then other jobs have their
/// turn.
constexpr int kSlice = 500;
/// The most receptions that are kept while the file is busy. Older ones are dropped.
constexpr std::size_t kMostWaiting = 10'000;

QVariantList sourceValues(const monitor::Reception& reception) {
  const monitor::Heard& heard = reception.heard;
  return {toScreen(reception.radio),
          static_cast<qint64>(heard.frequency),
          toScreen(heard.talkgroup),
          toScreen(heard.tag),
          heard.bank,
          heard.channel,
          heard.tone};
}

}  // namespace

SqliteReceptionStore::SqliteReceptionStore(const std::string& directory, platform::EventGate& gate)
    : file_(QFile::decodeName(directory.c_str()) + QStringLiteral("/receptions.db")),
      gate_(gate),
      thread_([this] { run(); }) {}

SqliteReceptionStore::~SqliteReceptionStore() {
  post([](Jobs& jobs) { jobs.end = true; });
  thread_.join();
}

template <class Change>
void SqliteReceptionStore::post(Change change) {
  const std::lock_guard lock(mutex_);
  change(jobs_);
  wake_.notify_one();
}

void SqliteReceptionStore::write(int number, const monitor::Reception& reception, bool final) {
  post([&](Jobs& jobs) { jobs.writes.push_back({number, reception, final}); });
}

void SqliteReceptionStore::thin(std::int64_t before) {
  post([before](Jobs& jobs) { jobs.thinBefore = before; });
}

void SqliteReceptionStore::clear() {
  post([](Jobs& jobs) {
    jobs.clear = true;
    jobs.writes.clear();
  });
}

std::string SqliteReceptionStore::file() const {
  return QFile::encodeName(file_).toStdString();
}

void SqliteReceptionStore::finish() {
  std::unique_lock lock(mutex_);
  idle_.wait(lock, [this] { return jobs_.none() && !working_; });
}

SqliteReceptionStore::Jobs SqliteReceptionStore::take() {
  std::unique_lock lock(mutex_);
  working_ = false;
  idle_.notify_all();
  wake_.wait(lock, [this] { return !jobs_.none() || jobs_.end; });
  working_ = true;
  const bool end = jobs_.end;
  Jobs taken = std::exchange(jobs_, {});
  jobs_.end = end;
  return taken;
}

void SqliteReceptionStore::run() {
  for (Jobs jobs = take(); !jobs.none(); jobs = take()) {
    work(jobs);
  }
  database_.reset();
}

/// Keeps the jobs for another try if the file is busy, except when the program ends.
void SqliteReceptionStore::giveBack(Jobs&& jobs) {
  post([&](Jobs& next) {
    if (next.end || next.clear) {
      return;
    }
    while (!jobs.writes.empty() && next.writes.size() < kMostWaiting) {
      next.writes.push_front(std::move(jobs.writes.back()));
      jobs.writes.pop_back();
    }
    next.clear = jobs.clear;
    next.thinBefore = std::max(next.thinBefore, jobs.thinBefore);
  });
}

void SqliteReceptionStore::work(Jobs& jobs) {
  // Only a reception creates the file.
  if (jobs.writes.empty() && !QFileInfo::exists(file_)) {
    return;
  }
  for (int round = 0; round < kAttempts && !givenUp_; ++round) {
    if (attempt(jobs)) {
      tellChanged();
      if (moreToThin_) {
        // If the program ends, the rest is left to the next start.
        post([&](Jobs& next) { next.thinBefore = next.end ? 0 : jobs.thinBefore; });
      }
      return;
    }
    recover();
  }
  if (!givenUp_) {
    giveBack(std::move(jobs));
  }
}

bool SqliteReceptionStore::attempt(const Jobs& jobs) {
  if (!database_) {
    database_ = std::make_unique<ReceptionDatabase>(file_, ReceptionDatabase::Access::Write);
  }
  if (database_->state() != DatabaseState::Good || (jobs.clear && !clearAll()) ||
      !writeAll(jobs.writes)) {
    return false;
  }
  moreToThin_ = false;
  return jobs.thinBefore == 0 || thinSlice(jobs.thinBefore);
}

bool SqliteReceptionStore::clearAll() {
  rows_.clear();
  return database_->run(QStringLiteral("DELETE FROM receptions")) &&
         database_->run(QStringLiteral("DELETE FROM sources")) &&
         database_->run(QStringLiteral("VACUUM"));
}

bool SqliteReceptionStore::writeAll(const std::deque<Write>& writes) {
  if (writes.empty()) {
    return true;
  }
  const auto before = rows_;
  if (!database_->run(QStringLiteral("BEGIN IMMEDIATE"))) {
    return false;
  }
  if (std::ranges::all_of(writes, [this](const Write& write) { return writeOne(write); }) &&
      database_->run(QStringLiteral("COMMIT"))) {
    return true;
  }
  rows_ = before;
  return false;
}

/// If the reception was written before, its row is replaced, or added again if it has been deleted
/// meanwhile.
bool SqliteReceptionStore::writeOne(const Write& write) {
  const monitor::Reception& reception = write.reception;
  QVariantList values = sourceValues(reception);
  values << static_cast<qint64>(reception.started) << reception.seconds
         << toScreen(reception.heard.mode) << reception.heard.bars << toScreen(reception.recording)
         << sourceOf(reception);
  const auto row = rows_.find(write.number);
  values << (row == rows_.end() ? QVariant(QMetaType(QMetaType::LongLong)) : QVariant(row->second));
  QSqlQuery query = database_->prepare(
      QStringLiteral("INSERT OR REPLACE INTO receptions (radio, frequency, talkgroup, tag, bank, "
                     "channel, tone, started, seconds, mode, bars, recording, source, id) "
                     "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"));
  if (!database_->run(query, values)) {
    return false;
  }
  rows_[write.number] = query.lastInsertId().toLongLong();
  if (write.final) {
    rows_.erase(write.number);
  }
  return true;
}

qint64 SqliteReceptionStore::sourceOf(const monitor::Reception& reception) {
  const QVariantList values = sourceValues(reception);
  database_->run(QStringLiteral("INSERT OR IGNORE INTO sources (radio, frequency, talkgroup, tag, "
                                "bank, channel, tone) VALUES (?, ?, ?, ?, ?, ?, ?)"),
                 values);
  return database_
      ->value(QStringLiteral("SELECT id FROM sources WHERE radio = ? AND frequency = ? AND "
                             "talkgroup = ? AND tag = ? AND bank = ? AND channel = ? AND tone = ?"),
              values)
      .toLongLong();
}

bool SqliteReceptionStore::thinSlice(std::int64_t before) {
  QSqlQuery query = database_->prepare(
      QStringLiteral("DELETE FROM receptions WHERE id IN (SELECT id FROM receptions "
                     "INDEXED BY by_time WHERE started < ? LIMIT %1)")
          .arg(kSlice));
  if (!database_->run(query, {static_cast<qint64>(before)})) {
    return false;
  }
  moreToThin_ = query.numRowsAffected() == kSlice;
  return moreToThin_ || database_->run(QStringLiteral(
                            "DELETE FROM sources WHERE NOT EXISTS (SELECT 1 FROM receptions "
                            "WHERE receptions.source = sources.id)"));
}

void SqliteReceptionStore::recover() {
  const DatabaseState state = database_->state();
  const QString error = database_->error();
  database_.reset();
  if (state == DatabaseState::Newer) {
    giveUp(QStringLiteral("its file was written by a newer version of Tarnvex"));
  } else if (state == DatabaseState::Full) {
    giveUp(error);
  } else if (state == DatabaseState::Damaged) {
    rows_.clear();
    const QString aside = setAside(file_);
    if (aside.isEmpty()) {
      giveUp(error);
    } else {
      tell(QStringLiteral("The log of receptions was damaged. A new one has begun; the old one is "
                          "kept as \"%1\".")
               .arg(QFileInfo(aside).fileName()));
    }
  }
}

void SqliteReceptionStore::giveUp(const QString& why) {
  givenUp_ = true;
  tell(QStringLiteral("The log of receptions has stopped: %1.").arg(why));
}

void SqliteReceptionStore::tellChanged() {
  QMetaObject::invokeMethod(
      &home_, [this] { changed.notify(); }, Qt::QueuedConnection);
}

void SqliteReceptionStore::tell(const QString& words) {
  const auto say = [this, text = fromScreen(words)] {
    gate_.enterMessage([this, text] { platform::run(onTrouble, text); });
  };
  QMetaObject::invokeMethod(&home_, say, Qt::QueuedConnection);
}

}  // namespace tarnvex::desktop
