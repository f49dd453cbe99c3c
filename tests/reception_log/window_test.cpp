// The rows of the log in its window.
#include <QApplication>
#include <QTextDocumentFragment>
#include <QWheelEvent>

#include "desktop/reception_log/reception_texts.h"
#include "window_rig.h"

namespace tarnvex::desktop {
namespace {

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
  // The same number of rows, with a source that has another one's number.
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

TEST_F(ReceptionLogWindow, TakesNoTagForMarkup) {
  const QString tag = "<img src=/dev/zero><b>R&D</b>";
  open(10);
  say("UPDATE sources SET tag = '" + tag + "'");
  say("UPDATE receptions SET tag = '" + tag + "'");
  EXPECT_TRUE(
      loop.waitUntil([&] { return cell(0, ReceptionModel::Tag) == tag; }, QDeadlineTimer(20000)));
  const auto tip = model().data(model().index(0, ReceptionModel::Tag), Qt::ToolTipRole).toString();
  EXPECT_EQ(QTextDocumentFragment::fromHtml(tip).toPlainText(), tag);
  EXPECT_EQ(find<ReceptionTable>("receptions").itemDelegate()->metaObject()->className(),
            std::string("QStyledItemDelegate"));
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

TEST_F(ReceptionLogWindow, FetchesThePageThatIsSeenLast) {
  open(kRows);
  // The table itself asks for nothing.
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

TEST_F(ReceptionLogWindow, KeepsItsBoxesUnderAWheelThatIsNotTheirs) {
  open(0);
  find<QLineEdit>("filter").setFocus();
  for (const char* name : {"period", "radio"}) {
    auto& box = find<QComboBox>(name);
    const int before = box.currentIndex();
    for (const int turn : {-120, 120}) {
      QWheelEvent wheel({5, 5}, box.mapToGlobal(QPointF(5, 5)), {}, {0, turn}, Qt::NoButton,
                        Qt::NoModifier, Qt::NoScrollPhase, false);
      QApplication::sendEvent(&box, &wheel);
      EXPECT_EQ(box.currentIndex(), before) << name;
    }
  }
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

}  // namespace
}  // namespace tarnvex::desktop
