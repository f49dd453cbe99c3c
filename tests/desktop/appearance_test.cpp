// What a screen reader is told, and what the user finds by name.
#include <QAccessible>
#include <QTest>

#include "desktop/window_fixture.h"

namespace tarnvex::test {
namespace {

/// Controls without a name or with no role of their own, by object name.
void collectNameless(QAccessibleInterface* here, QStringList& nameless) {
  const bool isControl = here->state().focusable && !here->state().invisible;
  const bool anonymous = here->text(QAccessible::Name).isEmpty() &&
                         here->role() != QAccessible::Cell && here->role() != QAccessible::ListItem;
  const bool roleless = here->role() == QAccessible::Client || here->role() == QAccessible::NoRole;
  // The frame around the pages has no role of its own. Its tab bar is the control.
  const bool isFrame = qobject_cast<QTabWidget*>(here->object()) != nullptr;
  if (isControl && !isFrame && (anonymous || roleless)) {
    nameless << (here->object() != nullptr ? here->object()->objectName() : QStringLiteral("?")) +
                    QStringLiteral(" as %1").arg(here->role());
  }
  const bool isTable = here->role() == QAccessible::Table || here->role() == QAccessible::List;
  for (int i = 0; !isTable && i < here->childCount(); ++i) {
    if (auto* child = here->child(i)) {
      collectNameless(child, nameless);
    }
  }
}

void expectNames(QWidget* of) {
  QStringList nameless;
  collectNameless(QAccessible::queryAccessibleInterface(of), nameless);
  EXPECT_EQ(nameless.join('\n').toStdString(), "") << "in " << of->objectName().toStdString();
}

template <class Window>
void expectNamesOnAllPages(Window& window, QTabWidget& tabs) {
  for (int tab = 0; tab < 4; ++tab) {
    tabs.setCurrentIndex(tab);
    expectNames(&window);
  }
}

TEST_F(Bc895Window, EveryControlHasANameAndARole) {
  expectNamesOnAllPages(window, find<QTabWidget>("SSTab1"));
  const auto* com = QAccessible::queryAccessibleInterface(&find<QRadioButton>("Option1"));
  EXPECT_EQ(com->role(), QAccessible::RadioButton);
  EXPECT_EQ(com->text(QAccessible::Name), "COM 1");
  EXPECT_TRUE(com->state().checked);
}

TEST_F(Bc245Window, EveryControlHasANameAndARole) {
  expectNamesOnAllPages(window, find<QTabWidget>("SSTab1"));
}

TEST_F(Bc895Window, FindsRowsAndHidesEmptyOnes) {
  openTab(0);
  form.MSFlexGrid1.setTextMatrix(5, 1, "155.1150");
  form.MSFlexGrid1.setTextMatrix(5, 7, "Fire dispatch");
  form.MSFlexGrid1.setTextMatrix(90, 1, "460.0000");
  form.MSFlexGrid1.setTextMatrix(90, 7, "County fire");
  auto& page = *find<QTabWidget>("SSTab1").currentWidget();
  auto& table = *page.findChild<QTableView*>("MSFlexGrid1");
  auto& text = *page.findChild<QLineEdit*>("findText");
  const auto count = [&] { return page.findChild<QLabel*>("findCount")->text().toStdString(); };
  EXPECT_FALSE(text.isVisible());
  QTest::keyClick(&table, Qt::Key_F3);
  ASSERT_TRUE(text.isVisible());
  QTest::keyClicks(&text, "FIRE");
  EXPECT_EQ(count(), "1 of 2");
  EXPECT_EQ(form.MSFlexGrid1.row(), 5);
  QTest::keyClick(&text, Qt::Key_Return);
  EXPECT_EQ(form.MSFlexGrid1.row(), 90);
  QTest::keyClick(&text, Qt::Key_F3);
  EXPECT_EQ(form.MSFlexGrid1.row(), 5) << "wraps around at the end";
  QTest::keyClick(&text, Qt::Key_F3, Qt::ShiftModifier);
  EXPECT_EQ(form.MSFlexGrid1.row(), 90);
  text.setText("no such");
  EXPECT_EQ(count(), "Not found");
  EXPECT_EQ(form.MSFlexGrid1.row(), 90);
  text.setText("155,115");
  EXPECT_EQ(count(), "1 of 1");
  text.setText("460,0");
  page.findChild<QCheckBox*>("hideEmpty")->setChecked(true);
  EXPECT_TRUE(table.isRowHidden(5));
  EXPECT_FALSE(table.isRowHidden(4)) << "channel 5";
  form.MSFlexGrid1.userMoveTo(91, 7);
  EXPECT_FALSE(table.isRowHidden(90)) << "the cursor's row is visible";
  form.MSFlexGrid1.setTextMatrix(6, 1, "151.0000");
  EXPECT_FALSE(table.isRowHidden(5)) << "no longer empty";
  QTest::keyClick(&text, Qt::Key_Escape);
  EXPECT_FALSE(text.isVisible());
  EXPECT_TRUE(table.hasFocus());
  EXPECT_FALSE(table.isRowHidden(4)) << "nothing is hidden without the bar";
  EXPECT_FALSE(state.MemoryModified);
}

TEST_F(Bc245Window, ShowsAHiddenRowOnceTheCursorIsThere) {
  const std::pair<platform::Table*, const char*> tables[] = {{&form.MSFlexGrid1, "155.1150"},
                                                             {&form.MSFlexGrid2, "000123"}};
  for (int page = 0; page < 2; ++page) {
    const auto& [model, text] = tables[page];
    openTab(page);
    for (int row = 1; row <= 60; ++row) {
      model->setTextMatrix(row, 1, text);
    }
    auto& view = find<QTableView>(*model);
    QTest::keyClick(&view, Qt::Key_F, Qt::ControlModifier);
    find<QTabWidget>("SSTab1")
        .currentWidget()
        ->findChild<QCheckBox*>("hideEmpty")
        ->setChecked(true);
    view.setCurrentIndex(view.model()->index(59, 1));
    for (int key = 0; key < 9 && model->row() == 60; ++key) {
      QTest::keyClick(&view, Qt::Key_Return);
    }
    EXPECT_EQ(model->row(), 61);
    const QRect cell = view.visualRect(view.currentIndex());
    EXPECT_TRUE(!cell.isEmpty() && view.viewport()->rect().contains(cell)) << model->name();
  }
}

}  // namespace
}  // namespace tarnvex::test
