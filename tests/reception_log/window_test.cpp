#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDesktopServices>
#include <QFile>
#include <QMenu>
#include <QProgressDialog>
#include <QTest>
#include <QTextBrowser>

#include "desktop/reception_log/reception_texts.h"
#include "desktop/reception_log/reception_window.h"
#include "desktop/window_fixture.h"
#include "log_file.h"

namespace tarnvex::desktop {
namespace {

constexpr int kRows = 100'000;
constexpr qint64 kLast = 1'700'000'000'000;

/// Opens files in place of the desktop's programs.
class OpenedFiles : public QTextBrowser {
 public:
  OpenedFiles() { QDesktopServices::setUrlHandler("file", this, "setSource"); }
  ~OpenedFiles() override { QDesktopServices::unsetUrlHandler("file"); }

  QStringList files;

 protected:
  void doSetSource(const QUrl& url, QTextDocument::ResourceType /*type*/) override {
    files << url.toLocalFile();
  }
};

/// The log's window, with a log of its own and a BC895XLT's main form.
class ReceptionLogWindow : public testing::Test, protected test::Below {
 protected:
  ReceptionLogWindow() {
    qputenv("TZ", "Europe/Berlin");
    tzset();
    file = folder.filePath("receptions.db");
    receptionStore.path = file.toStdString();
  }

  void open(int rows) {
    if (rows > 0) {
      test::makeLog(file, rows, kLast);
    }
    window = std::make_unique<ReceptionWindow>(form, gate, nullptr);
    window->show();
    settle();
  }
  ReceptionModel& model() { return window->model(); }
  /// Waits until everything that was asked for has come.
  void settle() {
    const auto calm = [this] {
      return model().counted() && (model().rowCount() == 0 || cell(0, ReceptionModel::Time) != "");
    };
    EXPECT_TRUE(loop.waitUntil(calm, QDeadlineTimer(20000)));
  }
  QString cell(int row, int column) {
    return model().data(model().index(row, column), Qt::DisplayRole).toString();
  }
  /// The text of a cell, which may have to be fetched first.
  QString fetched(int row, int column) {
    EXPECT_TRUE(loop.waitUntil([&] { return model().row(row) != nullptr; }, QDeadlineTimer(20000)));
    return cell(row, column);
  }
  template <class Widget>
  Widget& find(const char* name) {
    auto* found = window->findChild<Widget*>(name);
    EXPECT_NE(found, nullptr) << name;
    return *found;
  }
  void filter(const QString& text) {
    find<QLineEdit>("filter").setText(text);
    loop.waitUntil([this] { return !model().counted(); }, QDeadlineTimer(5000));
    settle();
  }
  void say(const QString& statement) {
    ReceptionDatabase log(file, ReceptionDatabase::Access::Write);
    ASSERT_TRUE(log.run(statement)) << log.error().toStdString();
    receptionStore.changed.notify();
  }

  QString file;
  shell::Form4 main{services, outside};
  memory::ChannelMemory memory{{main.MSFlexGrid1, main.MSFlexGrid2, main.SSTab1},
                               state,
                               dialogs,
                               link::bc895Model(),
                               [this](const std::string& command) { sent.push_back(command); }};
  std::vector<std::string> sent;
  shell::frmReceptionLog form{receptions, memory, dialogs};
  std::unique_ptr<ReceptionWindow> window;
};

TEST_F(ReceptionLogWindow, ShowsEveryPlaceOfALongLogInEveryOrder) {
  open(kRows);
  ASSERT_EQ(model().rowCount(), kRows);
  EXPECT_EQ(cell(0, ReceptionModel::Time), timeText(kLast));
  const QHash<int, QString> statements = {
      {ReceptionModel::Time, "started"},
      {ReceptionModel::For, "seconds"},
      {ReceptionModel::Signal, "bars"},
      {ReceptionModel::Channel, "channel"},
  };
  for (auto order = statements.begin(); order != statements.end(); ++order) {
    for (const bool descending : {true, false}) {
      SCOPED_TRACE(order->toStdString() + (descending ? " down" : " up"));
      model().sort(order.key(), descending ? Qt::DescendingOrder : Qt::AscendingOrder);
      settle();
      for (const int row : {0, 1, 127, 128, kRows / 2, kRows - 129, kRows - 1}) {
        fetched(row, 0);
        ReceptionDatabase log(file, ReceptionDatabase::Access::Read);
        const auto expected =
            log.value(QStringLiteral("SELECT %1 FROM receptions ORDER BY %1 %2 LIMIT 1 OFFSET %3")
                          .arg(*order, descending ? "DESC" : "ASC")
                          .arg(row))
                .toDouble();
        const ReceptionRow& shown = *model().row(row);
        const double value = order.key() == ReceptionModel::Time     ? double(shown.started)
                             : order.key() == ReceptionModel::For    ? shown.seconds
                             : order.key() == ReceptionModel::Signal ? shown.bars
                                                                     : shown.source.channel;
        EXPECT_EQ(value, expected) << row;
      }
    }
  }
}

TEST_F(ReceptionLogWindow, FiltersByWordsPeriodRadioAndRecording) {
  open(kRows);
  const int each = kRows / 100;
  filter("tag 44");
  EXPECT_EQ(model().rowCount(), each);
  EXPECT_EQ(cell(0, ReceptionModel::Tag), "Tag 44");
  filter("150.5250");
  EXPECT_EQ(model().rowCount(), each);
  filter("no such thing");
  EXPECT_EQ(model().rowCount(), 0);
  filter("");
  find<QComboBox>("radio").setCurrentText("BC245XLT");
  settle();
  EXPECT_EQ(model().rowCount(), 3 * each);
  EXPECT_EQ(cell(0, ReceptionModel::Bank), "2");
  find<QComboBox>("radio").setCurrentIndex(0);
  find<QCheckBox>("recordedOnly").setChecked(true);
  settle();
  EXPECT_EQ(model().rowCount(), kRows / 50);
  find<QCheckBox>("recordedOnly").setChecked(false);
  find<QComboBox>("period").setCurrentText("From - to");
  find<QDateTimeEdit>("from").setDateTime(QDateTime::fromMSecsSinceEpoch(kLast - 600'000));
  find<QDateTimeEdit>("to").setDateTime(QDateTime::fromMSecsSinceEpoch(kLast));
  filter("");
  loop.waitUntil([this] { return model().rowCount() == 50; }, QDeadlineTimer(20000));
  EXPECT_EQ(model().rowCount(), 50);
}

TEST_F(ReceptionLogWindow, TakesTagsFromThePlanAndTunesAndStores) {
  open(1000);
  main.MSFlexGrid1.setTextMatrix(7, 1, "150.0250");
  main.MSFlexGrid1.setTextMatrix(7, 7, "Harbour");
  filter("harbour");
  EXPECT_EQ(model().rowCount(), 10);
  EXPECT_EQ(cell(0, ReceptionModel::Tag), "Harbour");
  auto& table = find<ReceptionTable>("receptions");
  table.setCurrentIndex(model().index(0, 0));
  QTest::keyClick(&table, Qt::Key_Return);
  EXPECT_EQ(sent, std::vector<std::string>{"MA007"});
  QTest::keyClick(&table, Qt::Key_C, Qt::ControlModifier);
  EXPECT_TRUE(QApplication::clipboard()->text().contains("150.0250\tHarbour\tA\t3"));
  main.MSFlexGrid1.setRow(20);
  form.store({"MD00", 46012500, "", "", 0, 0, 0, 0});
  EXPECT_EQ(main.MSFlexGrid1.textMatrix(20, 1), "46.0125");
  main.MSFlexGrid2.setRow(5);
  form.store({"MD09", 0, "1616", "", 0, 0, 0, 0});
  EXPECT_EQ(main.MSFlexGrid2.textMatrix(5, 1), "001616");
  sent.clear();
  form.tune({"MD09", 150025000, "1616", "", 0, 0, 0, 0});
  form.tune({"MD00", 999000000, "", "", 0, 0, 0, 0});
  EXPECT_TRUE(sent.empty());
  EXPECT_EQ(dialogs.beeps, 2);
  // A tag that comes while the filter waits for it.
  filter("lighthouse");
  EXPECT_EQ(model().rowCount(), 0);
  main.MSFlexGrid1.setTextMatrix(7, 7, "Lighthouse");
  EXPECT_TRUE(loop.waitUntil([this] { return model().rowCount() == 10; }, QDeadlineTimer(20000)));
}

TEST_F(ReceptionLogWindow, FollowsTheLogWithoutMovingWhatIsRead) {
  open(1000);
  auto& table = find<ReceptionTable>("receptions");
  loop.turn();
  table.scrollTo(model().index(500, 0), QAbstractItemView::PositionAtTop);
  const QString read = fetched(500, ReceptionModel::Time);
  say(QStringLiteral("INSERT INTO receptions (started, seconds, frequency, radio, source) SELECT "
                     "%1, 5, frequency, radio, id FROM sources WHERE id = 50")
          .arg(kLast + 20'000));
  EXPECT_TRUE(loop.waitUntil([this] { return model().rowCount() == 1001; }, QDeadlineTimer(20000)));
  EXPECT_EQ(table.rowAt(0), 501);
  EXPECT_EQ(fetched(501, ReceptionModel::Time), read);
  EXPECT_EQ(fetched(0, ReceptionModel::Time), timeText(kLast + 20'000));
  // A row that grows.
  say("UPDATE receptions SET seconds = 65 WHERE id = 1001");
  EXPECT_TRUE(loop.waitUntil([this] { return cell(0, ReceptionModel::For) == "1:05"; },
                             QDeadlineTimer(20000)));
  say("DELETE FROM receptions WHERE id <= 500");
  EXPECT_TRUE(loop.waitUntil([this] { return model().rowCount() == 501; }, QDeadlineTimer(20000)));
}

TEST_F(ReceptionLogWindow, ForgetsWhatItKnewOfALogThatIsCleared) {
  open(1000);
  filter("tag 1");
  ReceptionDatabase log(file, ReceptionDatabase::Access::Write);
  ASSERT_TRUE(log.run("DELETE FROM receptions"));
  ASSERT_TRUE(log.run("DELETE FROM sources"));
  // As many rows again, of a source that has another's number.
  ASSERT_TRUE(
      log.run("INSERT INTO sources VALUES (1, 'BC895XLT', 46012500, '', 'Ranger', 0, 0, 0)"));
  say("WITH RECURSIVE row(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM row WHERE n < 1000) INSERT "
      "INTO receptions (started, seconds, frequency, radio, source) SELECT 1700000000000 + n * "
      "20000, 5, 46012500, 'BC895XLT', 1 FROM row");
  filter("ranger");
  EXPECT_EQ(model().rowCount(), 1000);
  ASSERT_EQ(model().sources().all().size(), 1);
  EXPECT_EQ(model().sources().tag(model().sources().all()[1]), "Ranger");
}

TEST_F(ReceptionLogWindow, LetsTheLastHourGoOnWithTheClock) {
  open(1000);
  const auto minutesAgo = [](int minutes) {
    return QDateTime::currentMSecsSinceEpoch() - qint64(minutes) * 60'000;
  };
  const QString move("UPDATE receptions SET started = %1 WHERE id = %2");
  for (int row = 991; row <= 1000; ++row) {
    say(move.arg(minutesAgo(1000 - row)).arg(row));
  }
  find<QComboBox>("period").setCurrentText("Last hour");
  settle();
  ASSERT_EQ(model().rowCount(), 10);
  auto& table = find<ReceptionTable>("receptions");
  table.setCurrentIndex(model().index(4, 0));
  const QString current = cell(4, ReceptionModel::Time);
  ReceptionDatabase log(file, ReceptionDatabase::Access::Write);
  ASSERT_TRUE(log.run(move.arg(minutesAgo(61)).arg(991)));
  auto& clock = find<QTimer>("sliding");
  EXPECT_LE(clock.interval(), 60'000);
  clock.setInterval(0);
  EXPECT_TRUE(loop.waitUntil([this] { return model().rowCount() == 9; }, QDeadlineTimer(20000)));
  EXPECT_EQ(cell(table.currentIndex().row(), ReceptionModel::Time), current);
}

TEST_F(ReceptionLogWindow, ShowsARecordingInItsFolder) {
  open(1000);
  say("UPDATE receptions SET recording = 'Harbour.wav' WHERE id = 1000");
  window.reset();
  open(0);
  for (const char* there : {"", "Harbour.wav"}) {
    SCOPED_TRACE(there);
    if (*there != '\0') {
      QFile(folder.filePath(there)).open(QIODevice::WriteOnly);
    }
    OpenedFiles opened;
    auto& table = find<ReceptionTable>("receptions");
    table.setCurrentIndex(model().index(0, 0));
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {5, 5}, table.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&table, &event);
    auto& menu = find<QMenu>("receptionMenu");
    for (QAction* action : menu.actions()) {
      if (action->text().contains("Folder")) {
        action->trigger();
      }
    }
    menu.close();
    loop.waitUntil([&] { return !opened.files.isEmpty(); }, QDeadlineTimer(20000));
    EXPECT_EQ(opened.files, QStringList{folder.path()});
  }
}

TEST_F(ReceptionLogWindow, FetchesThePageThatIsSeenLast) {
  open(kRows);
  // The table itself wants nothing.
  window->hide();
  int seen = -1;
  QObject::connect(&model(), &QAbstractItemModel::dataChanged,
                   [&](const QModelIndex& from) { seen = from.row(); });
  for (const int row : {10'000, 20'000, 30'000}) {
    EXPECT_EQ(model().row(row), nullptr);
  }
  EXPECT_TRUE(
      loop.waitUntil([&] { return seen > 29'000 && seen <= 30'000; }, QDeadlineTimer(20000)));
}

TEST_F(ReceptionLogWindow, StaysWhereItIsInAnyOrder) {
  open(1000);
  model().sort(ReceptionModel::Channel, Qt::AscendingOrder);
  settle();
  auto& table = find<ReceptionTable>("receptions");
  table.scrollTo(model().index(500, 0), QAbstractItemView::PositionAtTop);
  table.selectRow(510);
  int resets = 0;
  QObject::connect(&model(), &QAbstractItemModel::modelReset, [&] { ++resets; });
  say("INSERT INTO receptions (started, seconds, frequency, radio, source) SELECT 1, 5, frequency, "
      "radio, id FROM sources WHERE id = 50");
  EXPECT_TRUE(loop.waitUntil([this] { return model().rowCount() == 1001; }, QDeadlineTimer(20000)));
  EXPECT_EQ(resets, 0);
  EXPECT_EQ(table.rowAt(0), 500);
  EXPECT_TRUE(table.selectionModel()->isRowSelected(510));
}

TEST_F(ReceptionLogWindow, PlaysOnOneClickAndTunesOnTwo) {
  open(1000);
  say("UPDATE receptions SET recording = 'Harbour.wav' WHERE id = 1000");
  window.reset();
  open(0);
  main.MSFlexGrid1.setTextMatrix(7, 1, QString(cell(0, ReceptionModel::Source)).toStdString());
  auto& table = find<ReceptionTable>("receptions");
  const auto middle = [&](int column) {
    return table.visualRect(model().index(0, column)).center();
  };
  OpenedFiles opened;
  const QPoint play = middle(ReceptionModel::Recording);
  QTest::mouseClick(table.viewport(), Qt::LeftButton, Qt::ShiftModifier, play);
  EXPECT_TRUE(opened.files.isEmpty());
  QTest::mouseClick(table.viewport(), Qt::LeftButton, Qt::NoModifier, play);
  QTest::mouseDClick(table.viewport(), Qt::LeftButton, Qt::NoModifier, play);
  EXPECT_EQ(opened.files, QStringList{folder.filePath("Harbour.wav")});
  EXPECT_TRUE(sent.empty());
  QTest::mouseDClick(table.viewport(), Qt::LeftButton, Qt::NoModifier, middle(ReceptionModel::Tag));
  EXPECT_EQ(sent, std::vector<std::string>{"MA007"});
}

TEST_F(ReceptionLogWindow, OpensWithoutALogAndReportsADamagedOne) {
  open(0);
  EXPECT_EQ(model().rowCount(), 0);
  QFile other(file);
  ASSERT_TRUE(other.open(QIODevice::WriteOnly));
  other.write(QByteArray(5000, 'x'));
  other.close();
  model().sort(ReceptionModel::Time, Qt::DescendingOrder);
  settle();
  EXPECT_EQ(find<QLabel>("counted").text(), "The log's file is damaged.");
}

/// Reads comma-separated values in the form of RFC 4180.
QVector<QStringList> readCsv(const QString& text) {
  QVector<QStringList> records;
  QStringList record;
  QString field;
  bool quoted = false;
  for (qsizetype at = 0; at < text.size(); ++at) {
    const QChar character = text[at];
    if (quoted && character == '"' && text.mid(at + 1, 1) == "\"") {
      field += character;
      ++at;
    } else if (character == '"') {
      quoted = !quoted;
    } else if (!quoted && (character == ',' || character == '\r')) {
      record << std::exchange(field, {});
      if (character == '\r') {
        EXPECT_EQ(text.mid(++at, 1), "\n");
        records << std::exchange(record, {});
      }
    } else {
      field += character;
    }
  }
  EXPECT_TRUE(record.isEmpty() && field.isEmpty());
  return records;
}

TEST_F(ReceptionLogWindow, ExportsWhatTheFilterShows) {
  open(1000);
  say("UPDATE sources SET tag = 'Fire, \"A\"' WHERE id = 42");
  window.reset();
  open(0);
  filter("fire");
  ASSERT_EQ(model().rowCount(), 10);
  const QString target = folder.filePath("out.csv");
  window->exportTo(target);
  EXPECT_TRUE(loop.waitUntil([&] { return QFile::exists(target); }, QDeadlineTimer(20000)));
  QFile written(target);
  ASSERT_TRUE(written.open(QIODevice::ReadOnly));
  const auto records = readCsv(QString::fromUtf8(written.readAll()));
  ASSERT_EQ(records.size(), 11);
  EXPECT_EQ(records[0].join('|'),
            "Time|Seconds|Frequency (MHz)|Talkgroup|Tag|Bank|Channel|Tone (Hz)|Mode|Bars|Radio|"
            "Recording");
  for (int row = 0; row < 10; ++row) {
    const ReceptionRow& shown = *model().row(row);
    EXPECT_EQ(QDateTime::fromString(records[row + 1][0], Qt::ISODateWithMs).toMSecsSinceEpoch(),
              shown.started);
    EXPECT_TRUE(records[row + 1][0].endsWith("+01:00")) << records[row + 1][0].toStdString();
    EXPECT_EQ(records[row + 1][4], "Fire, \"A\"");
    EXPECT_EQ(records[row + 1][11], shown.recording);
  }
}

TEST_F(ReceptionLogWindow, LeavesNothingOfAnExportThatIsCancelled) {
  open(kRows);
  window->exportTo(folder.filePath("out.csv"));
  EXPECT_FALSE(find<QPushButton>("export").isEnabled());
  emit find<QProgressDialog>("exporting").canceled();
  EXPECT_TRUE(loop.waitUntil([this] { return find<QPushButton>("export").isEnabled(); },
                             QDeadlineTimer(20000)));
  EXPECT_EQ(QDir(folder.path()).entryList({"*.csv", ".rec*"}, QDir::Files | QDir::Hidden),
            QStringList());
}

TEST_F(ReceptionLogWindow, KeepsTheOldFileWhenAnExportFails) {
  open(1000);
  const QString target = folder.filePath("out.csv");
  const auto write = [](const QString& path, const QByteArray& text) {
    QFile written(path);
    EXPECT_TRUE(written.open(QIODevice::WriteOnly));
    written.write(text);
  };
  write(target, "precious");
  const QString damaged = folder.filePath("damaged.db");
  write(damaged, QByteArray(5000, 'x'));
  for (const auto& [log, csv] :
       {std::pair{damaged, target}, {file, QString("/nonexistent/a.csv")}}) {
    CsvExport failing(log, model().query(), {}, csv);
    while (!failing.over()) {
    }
    EXPECT_FALSE(failing.error().isEmpty()) << csv.toStdString();
  }
  QFile kept(target);
  ASSERT_TRUE(kept.open(QIODevice::ReadOnly));
  EXPECT_EQ(kept.readAll(), "precious");
}

TEST_F(ReceptionLogWindow, AsksBeforeItClears) {
  receptionStore.write(1, {}, true);
  dialogs.answers = {platform::Answer::No, platform::Answer::Yes};
  form.cmdClear.userClick();
  EXPECT_EQ(receptionStore.rows.size(), 1U);
  form.cmdClear.userClick();
  EXPECT_TRUE(receptionStore.rows.empty());
  EXPECT_EQ(dialogs.boxes.size(), 2U);
}

}  // namespace
}  // namespace tarnvex::desktop
