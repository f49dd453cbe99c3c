#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <csignal>

#include "desktop/ports/qt_event_loop.h"
#include "desktop/ports/sqlite_reception_store.h"

namespace tarnvex::desktop {
namespace {

using monitor::Reception;

Reception reception(std::int64_t started, const std::string& tag = "Fire", double seconds = 1) {
  Reception made;
  made.started = started;
  made.seconds = seconds;
  made.heard = {"MD00", 155115000, "", tag, 1, 12, 79.7, 3};
  made.radio = "BC895XLT";
  return made;
}

class ReceptionStore : public testing::Test {
 protected:
  /// A store during one run of the program.
  struct Running {
    explicit Running(const ReceptionStore& test)
        : store(test.folder.path().toStdString(), const_cast<platform::EventGate&>(test.gate)) {
      store.onTrouble = [this](const std::string& said) { words.push_back(said); };
    }
    SqliteReceptionStore store;
    std::vector<std::string> words;
  };

  /// Writes receptions that begin at 1, 2 and so on, in one run of the program. Returns its
  /// messages.
  std::vector<std::string> log(int count) {
    Running running(*this);
    for (int number = 1; number <= count; ++number) {
      running.store.write(number, reception(number), true);
      running.store.finish();
    }
    loop.turn();
    return running.words;
  }

  QVariant ask(const QString& statement) {
    ReceptionDatabase database(file, ReceptionDatabase::Access::Read);
    return database.value(statement);
  }
  int rows() { return ask("SELECT count(*) FROM receptions").toInt(); }
  QStringList files() { return QDir(folder.path()).entryList(QDir::Files); }

  QTemporaryDir folder;
  QString file = folder.filePath("receptions.db");
  QtEventLoop loop;
  platform::EventGate gate{loop};
};

TEST_F(ReceptionStore, KeepsWhatItIsGivenAndCreatesNoFileWithoutReceptions) {
  {
    Running running(*this);
    running.store.thin(1);
    running.store.clear();
    running.store.finish();
    EXPECT_EQ(files(), QStringList());
    Reception made = reception(1700000000123, "Caf\xE9", 0.25);
    made.recording = "Caf\xE9-2031.wav";
    running.store.write(1, made, true);
  }
  EXPECT_EQ(
      ask("SELECT started || '|' || seconds || '|' || frequency || '|' || talkgroup || '|' || "
          "tag || '|' || bank || '|' || channel || '|' || tone || '|' || mode || '|' || bars "
          "|| '|' || radio || '|' || recording FROM receptions")
          .toString(),
      QString::fromUtf8("1700000000123|0.25|155115000||Café|1|12|79.7|MD00|3|BC895XLT|"
                        "Café-2031.wav"));
}

TEST_F(ReceptionStore, WritesAReceptionThatLastsToOneRow) {
  Running running(*this);
  running.store.write(1, reception(1000, "", 10), false);
  running.store.write(2, reception(2000), true);
  running.store.finish();
  running.store.write(1, reception(1000, "Fire", 20), true);
  running.store.finish();
  EXPECT_EQ(rows(), 2);
  EXPECT_EQ(ask("SELECT seconds || tag FROM receptions WHERE started = 1000"), "20.0Fire");
  // Its source has its tag now.
  EXPECT_EQ(ask("SELECT count(DISTINCT source) FROM receptions"), 1);
  // A reception that is deleted while it lasts is written again.
  running.store.write(3, reception(3000), false);
  running.store.finish();
  running.store.clear();
  running.store.write(3, reception(3000, "Fire", 30), true);
  running.store.finish();
  EXPECT_EQ(ask("SELECT group_concat(started) FROM receptions"), "3000");
}

TEST_F(ReceptionStore, ThinsInSlicesAndDropsUnusedSources) {
  Running running(*this);
  for (int number = 1; number <= 1200; ++number) {
    running.store.write(number, reception(number, number <= 1100 ? "Old" : "New"), true);
  }
  running.store.finish();
  running.store.thin(1150);
  running.store.finish();
  EXPECT_EQ(ask("SELECT min(started) FROM receptions"), 1150);
  EXPECT_EQ(rows(), 51);
  EXPECT_EQ(ask("SELECT group_concat(tag) FROM sources"), "New");
}

TEST_F(ReceptionStore, LeavesTheRestOfTheThinningToTheNextStart) {
  constexpr int kRows = 20'000;
  log(1);
  ASSERT_TRUE(ReceptionDatabase(file, ReceptionDatabase::Access::Write)
                  .run(QStringLiteral("WITH RECURSIVE row(n) AS (SELECT 1 UNION ALL SELECT n + 1 "
                                      "FROM row WHERE n < %1) INSERT INTO receptions (started, "
                                      "seconds, source) SELECT n, 1, 1 FROM row")
                           .arg(kRows)));
  Running(*this).store.thin(kRows * 2);
  EXPECT_GT(rows(), 0);
}

TEST_F(ReceptionStore, LosesNothingThatWasWrittenInAHundredKills) {
  int written = 0;
  for (int kill = 0; kill < 100; ++kill) {
    QProcess logger;
    logger.start(TARNVEX_TEST_LOGGER, {folder.path()});
    ASSERT_TRUE(logger.waitForReadyRead(20000));
    QThread::usleep(static_cast<unsigned long>(kill % 20) * 500);
    logger.kill();
    logger.waitForFinished();
    written += static_cast<int>(logger.readAllStandardOutput().count('\n'));
    // A row may be written without its number having been printed, but not the other way round.
    ASSERT_GE(rows(), written);
  }
  EXPECT_EQ(ask("PRAGMA integrity_check"), "ok");
  EXPECT_EQ(files().filter("damaged"), QStringList());
}

TEST_F(ReceptionStore, SetsADamagedFileAsideAndBeginsANewOne) {
  struct Case {
    const char* what;
    int rowsBefore;
    std::function<void(QFile&)> damage;
  };
  const std::vector<Case> cases = {
      {"no database", 0, [](QFile& f) { f.write("This is a letter, and no database at all.\n"); }},
      {"holes", 2000,
       [](QFile& f) {
         f.seek(4096);
         f.write(QByteArray(static_cast<int>(f.size()) - 4096, 'x'));
       }},
      {"another schema", 0, [](QFile& f) { f.close(); }},
  };
  for (const Case& one : cases) {
    SCOPED_TRACE(one.what);
    for (const QString& name : files()) {
      QFile::remove(folder.filePath(name));
    }
    if (one.rowsBefore > 0) {
      Running running(*this);
      for (int number = 1; number <= one.rowsBefore; ++number) {
        running.store.write(number, reception(number, "Tag " + std::to_string(number)), true);
      }
    }
    QFile damaged(file);
    ASSERT_TRUE(damaged.open(QIODevice::ReadWrite));
    one.damage(damaged);
    if (!damaged.isOpen()) {
      ReceptionDatabase(file, ReceptionDatabase::Access::Write).run("DROP TABLE receptions");
    }
    damaged.close();
    const auto words = log(3);
    ASSERT_EQ(words.size(), 1U);
    const QStringList aside = files().filter("receptions damaged ");
    ASSERT_EQ(aside.filter(QRegularExpression("\\.db$")).size(), 1);
    EXPECT_NE(words[0].find(aside[0].toStdString()), std::string::npos) << words[0];
    EXPECT_EQ(rows(), 3);
  }
}

TEST_F(ReceptionStore, StopsWithOneMessageWhenTheDiskIsFull) {
  log(1);
  const rlimit before = [] {
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    return limit;
  }();
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit small = before;
  small.rlim_cur = static_cast<rlim_t>(QFileInfo(file).size()) + 20000;
  setrlimit(RLIMIT_FSIZE, &small);
  const auto words = log(500);
  setrlimit(RLIMIT_FSIZE, &before);
  ASSERT_EQ(words.size(), 1U);
  EXPECT_EQ(words[0].find("The log of receptions has stopped: "), 0U) << words[0];
  EXPECT_GE(rows(), 1);
  EXPECT_EQ(ask("PRAGMA integrity_check"), "ok");
  EXPECT_TRUE(log(1).empty());
}

TEST_F(ReceptionStore, BringsAnOlderFileUpToDateAndLeavesANewerOneAlone) {
  log(0);
  {
    ReceptionDatabase database(file, ReceptionDatabase::Access::Write);
    for (const char* statement :
         {"DROP INDEX by_source", "DROP INDEX by_time", "DROP INDEX by_length",
          "DROP INDEX by_signal", "DROP INDEX by_recording", "DROP TABLE sources",
          "ALTER TABLE receptions DROP COLUMN source", "PRAGMA user_version = 1",
          "INSERT INTO receptions (started, seconds, frequency, tag, radio) VALUES (5, 1, "
          "46012500, 'Old', 'BC895XLT'), (6, 1, 46012500, 'Old', 'BC895XLT')"}) {
      ASSERT_TRUE(database.run(statement)) << database.error().toStdString();
    }
  }
  EXPECT_TRUE(log(1).empty());
  EXPECT_EQ(ask("SELECT count(*) FROM receptions JOIN sources ON sources.id = source"), 3);
  EXPECT_EQ(ask("SELECT count(*) FROM sources"), 2);

  ReceptionDatabase(file, ReceptionDatabase::Access::Write).run("PRAGMA user_version = 99");
  const QByteArray left = [this] {
    QFile newer(file);
    newer.open(QIODevice::ReadOnly);
    return newer.readAll();
  }();
  const auto words = log(5);
  ASSERT_EQ(words.size(), 1U);
  EXPECT_NE(words[0].find("newer version"), std::string::npos);
  QFile newer(file);
  ASSERT_TRUE(newer.open(QIODevice::ReadOnly));
  EXPECT_EQ(newer.readAll(), left);
}

TEST_F(ReceptionStore, SharesTheFileWithAnotherProgram) {
  Running one(*this);
  Running other(*this);
  for (int number = 1; number <= 200; ++number) {
    one.store.write(number, reception(number, "One"), number % 2 == 0);
    other.store.write(number, reception(number, "Other"), true);
  }
  one.store.finish();
  other.store.finish();
  EXPECT_EQ(rows(), 400);
  EXPECT_EQ(ask("SELECT count(*) FROM sources"), 2);
  EXPECT_TRUE(one.words.empty() && other.words.empty());
}

}  // namespace
}  // namespace tarnvex::desktop
