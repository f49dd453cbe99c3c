// Exporting and deleting receptions.
#include <QDir>
#include <QFile>
#include <QProgressDialog>

#include "window_rig.h"

namespace tarnvex::desktop {
namespace {

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
