// The plan's tables in the real windows.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QListWidget>
#include <QMimeData>
#include <QPaintEvent>
#include <QTableView>
#include <QTest>

#include "desktop/window_fixture.h"

namespace tarnvex::test {
namespace {

TEST_F(Bc895Window, LaysOutItsTables) {
  auto& stations = find<QTableView>("MSFlexGrid1");
  const QStringList headings = {"Ch.", "Frequency", "Trnk",  "Dly",
                                "L/O", "Line",      "CTCSS", "Alpha Tag"};
  EXPECT_EQ(stations.model()->rowCount(), 300);
  ASSERT_EQ(stations.model()->columnCount(), 8);
  openTab(0);
  loop.turn();
  for (int column = 0; column < 8; ++column) {
    EXPECT_EQ(stations.model()->headerData(column, Qt::Horizontal), headings[column]);
    EXPECT_FALSE(stations.isColumnHidden(column));
    EXPECT_GE(stations.columnWidth(column),
              stations.fontMetrics().horizontalAdvance(headings[column]));
  }
  EXPECT_EQ(stations.model()->index(299, 0).data(), "300");
  EXPECT_EQ(find<QTableView>("MSFlexGrid2").model()->rowCount(), 1000);
  // Brings a bank to the top.
  find<QComboBox>("Combo3").setFocus();
  QTest::keyClick(&find<QComboBox>("Combo3"), Qt::Key_Down);
  EXPECT_EQ(stations.rowAt(1), 30);
  EXPECT_EQ(stations.currentIndex(), stations.model()->index(30, 1));
  EXPECT_TRUE(stations.hasFocus());
}

TEST_F(Bc245Window, HidesTheColumnsOfTheOtherRadio) {
  EXPECT_EQ(window.objectName(), "Form2");
  auto& stations = find<QTableView>("MSFlexGrid1");
  for (int column = 0; column < 8; ++column) {
    EXPECT_EQ(stations.isColumnHidden(column), column == 5 || column == 6) << column;
  }
  for (platform::ComboBox* model : {&form.linkControls.baudBox, &form.trunkBank}) {
    EXPECT_EQ(find<QComboBox>(*model).count(), static_cast<int>(model->items().size()))
        << model->name();
  }
}

TEST_F(Bc895Window, TabLeavesTheTables) {
  for (const auto& [tab, name] : {std::pair{0, "MSFlexGrid1"}, std::pair{1, "MSFlexGrid2"}}) {
    openTab(tab);
    auto& table = find<QTableView>(name);
    table.setFocus();
    ASSERT_TRUE(table.hasFocus());
    QTest::keyClick(&table, Qt::Key_Tab);
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    EXPECT_FALSE(table.hasFocus());
    table.setFocus();
    QTest::keyClick(&table, Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_FALSE(table.hasFocus());
  }
}

/// Records when a widget paints over a point.
class PaintWatch : public QObject {
 public:
  PaintWatch(QWidget* widget, QRect spot) : spot_(spot) { widget->installEventFilter(this); }
  bool painted = false;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint) {
      painted = painted || static_cast<QPaintEvent*>(event)->region().intersects(spot_);
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  QRect spot_;
};

TEST_F(Bc895Window, TypedKeysAreSeenWhileAnExchangeWaits) {
  openTab(0);
  auto& table = find<QTableView>("MSFlexGrid1");
  table.setFocus();
  table.setCurrentIndex(table.model()->index(1, 1));
  loop.turn();
  const QRect cell = table.visualRect(table.currentIndex());
  const QImage before = table.viewport()->grab(cell).toImage();
  bool waited = false;
  radio.whileWaiting = [&] {
    PaintWatch watch(table.viewport(), cell);
    QTest::keyClick(&table, Qt::Key_7);
    EXPECT_EQ(form.MSFlexGrid1.textMatrix(2, 1), "7");
    loop.turn();
    EXPECT_TRUE(watch.painted);
    // The cursor moves, too, and a close request stays outside the core until the exchange is over.
    QTest::keyClick(&table, Qt::Key_Down);
    EXPECT_EQ(form.MSFlexGrid1.row(), 3);
    QTest::mousePress(table.viewport(), Qt::LeftButton, {}, cell.center());
    QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, cell.center());
    waited = true;
  };
  gate.enter([&] {
    EXPECT_EQ(link.SendCommand("MD"), "ERR");
    radio.whileWaiting = nullptr;
    radio.log.clear();
  });
  EXPECT_TRUE(waited);
  EXPECT_EQ(radio.takeLog(), "MA002") << "the double click came after";
  EXPECT_NE(table.viewport()->grab(cell).toImage(), before);
}

TEST_F(Bc895Window, ACellTakesOnlyWhatThePlanCanHold) {
  openTab(0);
  auto& table = find<QTableView>("MSFlexGrid1");
  table.setFocus();
  table.setCurrentIndex(table.model()->index(4, 7));
  for (const QString& text : {QStringLiteral("\u4E2D"), QStringLiteral("\u00FC")}) {
    QKeyEvent key(QEvent::KeyPress, 0, Qt::NoModifier, text);
    QApplication::sendEvent(&table, &key);
  }
  // A shortcut isn't text.
  QTest::keyClick(&table, Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(form.MSFlexGrid1.textMatrix(5, 7), "\xFC");
  // Composed letters come from the input method.
  EXPECT_TRUE(table.testAttribute(Qt::WA_InputMethodEnabled));
  QInputMethodEvent composed;
  composed.setCommitString(QStringLiteral("\u4E2D\"\u00EA"));
  QApplication::sendEvent(&table, &composed);
  EXPECT_EQ(form.MSFlexGrid1.textMatrix(5, 7), "\xFC\xEA");
  QMimeData text;
  text.setText("dropped");
  QDropEvent drop({1, 1}, Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(table.viewport(), &drop);
  EXPECT_EQ(form.MSFlexGrid1.textMatrix(5, 7), "\xFC\xEA");
}

/// Cells of the channel table, and its clipboard.
struct CellsTest : Bc245Window {
  QTableView& table = find<QTableView>("MSFlexGrid1");

  void trigger(const char* action) { table.findChild<QAction*>(action)->trigger(); }
  void setRow(int row, const std::vector<std::string>& texts) {
    for (std::size_t i = 0; i < texts.size(); ++i) {
      form.MSFlexGrid1.setTextMatrix(row, static_cast<int>(i) + 1, texts[i]);
    }
  }
  std::string rowOf(int row) {
    std::string cells;
    for (int col = 1; col < 8; ++col) {
      cells += form.MSFlexGrid1.textMatrix(row, col) + "|";
    }
    return cells;
  }
};

TEST_F(CellsTest, ComeBackFromTheClipboardAsTheyWere) {
  const std::string tag(1'000'000, 't');
  setRow(3, {"", "X", " ", "X", "X", "67.0", "one"});
  setRow(4, {"151.5", " ", "X", " ", "X", "", tag});
  table.selectionModel()->select({table.model()->index(2, 1), table.model()->index(3, 7)},
                                 QItemSelectionModel::ClearAndSelect);
  trigger("mnuCopy");
  const QString text = QApplication::clipboard()->text();
  EXPECT_EQ(text.left(23), "\tX\t \tX\tone\n151.5\t \tX\t \t");
  EXPECT_EQ(text.size(), 24 + static_cast<qsizetype>(tag.size()));
  EXPECT_LT(table.model()->index(3, 7).data().toString().size(), 1000);
  trigger("mnuPaste");
  EXPECT_EQ(rowOf(3) + rowOf(4), "|X| |X|X|67.0|one|151.5| |X| |X||" + tag + "|");
  EXPECT_TRUE(dialogs.takeBoxes().empty());
}

TEST_F(CellsTest, TakeWhatFitsOfAPasteAndSayWhatDoesNot) {
  QApplication::clipboard()->setText(QStringLiteral("151,5\tX\t \tX\ta\u4E2D\r\n852\tq\tx\t\tb"));
  table.setCurrentIndex(table.model()->index(9, 1));
  form.MSFlexGrid1.setTextMatrix(10, 5, "X");
  trigger("mnuPaste");
  // The message comes after the menu.
  loop.turn();
  EXPECT_EQ(rowOf(10), "151.5000|X| |X|X|||");
  EXPECT_EQ(rowOf(11), "852.0000||X||||b|") << "into the columns that are shown";
  EXPECT_EQ(dialogs.takeBoxes(),
            (std::vector<Box>{{"Not everything could be pasted. Left out:\n\n"
                               "Row 10, Alpha Tag: \"a \"\nRow 11, Trnk: \"q\"",
                               "Paste", 48}}));
  openTab(0);
  table.setFocus();
  QTest::keyClick(&table, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(rowOf(10), "0.0000||||X|||");
  QTest::keyClick(&table, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(rowOf(11), "852.0000||X||||b|");
}

TEST_F(Bc895Window, AClickOnARowsLabelMeansTheRow) {
  openTab(0);
  auto& table = find<QTableView>("MSFlexGrid1");
  const QPoint label = table.visualRect(table.model()->index(6, 0)).center();
  QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, label);
  loop.turn();
  EXPECT_EQ(form.MSFlexGrid1.row(), 7);
  EXPECT_EQ(table.currentIndex(), table.model()->index(6, 1));
  EXPECT_TRUE(table.selectionModel()->isSelected(table.currentIndex()));
  radio.log.clear();
  QTest::mousePress(table.viewport(), Qt::LeftButton, {}, label);
  QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, label);
  EXPECT_EQ(radio.takeLog(), "MA007");
  QTest::keyClick(&table, Qt::Key_Left);
  loop.turn();
  EXPECT_EQ(table.currentIndex(), table.model()->index(6, 1));
}

TEST_F(Bc895Window, ADoubleClickOnAHitDoesNotTuneTheRadio) {
  form.hitLists.List1.add("151.6250 hit");
  form.MSFlexGrid1.setRow(3);
  openTab(3);
  auto& hits = find<QListWidget>("List1");
  QTest::mouseClick(hits.viewport(), Qt::LeftButton, {},
                    hits.visualItemRect(hits.item(0)).center());
  auto& table = find<QTableView>("MSFlexGrid1");
  EXPECT_TRUE(table.isVisible());
  radio.log.clear();
  QTest::mouseDClick(table.viewport(), Qt::LeftButton, {},
                     table.visualRect(table.model()->index(4, 1)).center());
  EXPECT_EQ(radio.takeLog(), "");
}

}  // namespace
}  // namespace tarnvex::test
