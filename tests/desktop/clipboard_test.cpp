// What other programs leave on the clipboard, pasted into the real tables.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QMimeData>
#include <QTest>

#include "desktop/window_fixture.h"
#include "support/plan_bytes.h"

namespace tarnvex::test {
namespace {

QMimeData* textData(const QString& text) {
  auto* data = new QMimeData;
  data->setText(text);
  return data;
}

QMimeData* picture() {
  auto* data = new QMimeData;
  data->setImageData(QImage(2000, 2000, QImage::Format_RGB32));
  return data;
}

QString rows(int count) {
  QString text;
  for (int row = 0; row < count; ++row) {
    text += QStringLiteral("155,%1\tX\r\n").arg(1000 + row);
  }
  return text;
}

struct Pasted {
  const char* name;
  std::function<QMimeData*()> data;
  /// Of the row with the cursor, from the frequency on; blank if nothing changes.
  std::string row;
  int messages;
};

const Pasted kPasted[] = {
    {"nothing", [] { return new QMimeData; }, "", 0},
    {"a picture", picture, "", 0},
    {"10 MB of one cell", [] { return textData(QString(10 << 20, 'x')); }, "", 1},
    {"10 MB of cells", [] { return textData(QString(10 << 20, '\t')); }, "0.0000| | | | |||", 1},
    {"a NUL", [] { return textData(QString("1") + QChar(0) + "5\t"); },
     "155.0000| | |X| |67.0|tag|", 1},
    {"quoted cells",
     [] { return textData("160\t\"X\"\t\t\t\t\t\"one\ttwo\r\n\"\"three\"\"\"\r\n"); },
     "160.0000|X| | | ||tag|", 1},
    {"quoted line ends", [] { return textData("160\tX\t\t\t\t\t\"one\ttwo\r\nthree\"\r\n"); },
     "160.0000|X| | | ||one two  three|", 0},
    {"one cell", [] { return textData("162,55\n"); }, "162.5500|X| |X| |67.0|tag|", 0},
    {"2000 rows", [] { return textData(rows(2000)); }, "155.1000|X| |X| |67.0|tag|", 1},
};

TEST_F(Bc895Window, PastesWhatFitsFromAnyClipboard) {
  openTab(0);
  auto& table = find<QTableView>("MSFlexGrid1");
  table.setFocus();
  const char* const cells[] = {"155.0000", "X", " ", "X", " ", "67.0", "tag"};
  for (int col = 1; col <= 7; ++col) {
    form.MSFlexGrid1.setTextMatrix(290, col, cells[col - 1]);
  }
  table.setCurrentIndex(table.model()->index(289, 1));
  const std::string before = bytesOf({&form.MSFlexGrid1});
  for (const auto& [name, data, row, messages] : kPasted) {
    SCOPED_TRACE(name);
    QApplication::clipboard()->setMimeData(data());
    table.setCurrentIndex(table.model()->index(289, 1));
    QTest::keyClick(&table, Qt::Key_V, Qt::ControlModifier);
    // The message comes after the key.
    loop.turn();
    std::string pasted;
    for (int col = 1; col <= 7; ++col) {
      pasted += form.MSFlexGrid1.textMatrix(290, col) + "|";
    }
    const bool changed = bytesOf({&form.MSFlexGrid1}) != before;
    EXPECT_EQ(changed ? pasted : "", row);
    EXPECT_EQ(dialogs.takeBoxes().size(), static_cast<std::size_t>(messages));
    if (changed) {
      QTest::keyClick(&table, Qt::Key_Z, Qt::ControlModifier);
    }
    EXPECT_TRUE(bytesOf({&form.MSFlexGrid1}) == before);
  }
}

TEST_F(Bc895Window, TheMenuPutsTheReportOnTheClipboard) {
  QApplication::clipboard()->setText("before");
  find<QAction>("copyReport").trigger();
  EXPECT_EQ(QApplication::clipboard()->text(), "before") << "without a report";
  desktop::MainWindow reporting(form, gate, devices, [] { return QString("state of the line"); });
  reporting.findChild<QAction*>("copyReport")->trigger();
  EXPECT_EQ(QApplication::clipboard()->text(), "state of the line");
  EXPECT_TRUE(reporting.findChild<QLabel*>("briefNotice")->text().contains("on the clipboard"));
}

}  // namespace
}  // namespace tarnvex::test
