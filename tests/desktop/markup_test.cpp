// Text that comes from files, the radio or devices is shown as it is, wherever it comes out.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QFileDialog>
#include <QMenu>
#include <QTextDocumentFragment>
#include <QTimer>

#include "desktop/window_fixture.h"
#include "trunking/system_type_form.h"

namespace tarnvex::test {
namespace {

const std::string kEvil = "<img src=/dev/zero><b>R&D</b>";
const QString kShown = QString::fromStdString(kEvil);

/// What a tip shows: it decides by the text itself.
QString tipAsShown(const QString& tip) {
  return Qt::mightBeRichText(tip) ? QTextDocumentFragment::fromHtml(tip).toPlainText() : tip;
}

/// Checks a window, and counts the places that show the text.
int placesIn(QWidget& window) {
  int places = window.windowTitle().contains(kShown) ? 1 : 0;
  for (const QWidget* widget : window.findChildren<QWidget*>()) {
    const std::string where =
        window.objectName().toStdString() + "/" + widget->objectName().toStdString();
    if (const auto* label = qobject_cast<const QLabel*>(widget)) {
      places += label->text().contains(kShown) ? 1 : 0;
      EXPECT_TRUE(label->textFormat() == Qt::PlainText || !Qt::mightBeRichText(label->text()))
          << where;
    }
    if (!widget->toolTip().isEmpty()) {
      const QString shown = tipAsShown(widget->toolTip());
      EXPECT_EQ(shown.contains("<img"), widget->toolTip().contains("img")) << where;
      places += shown.contains(kShown) ? 1 : 0;
    }
    if (const auto* list = qobject_cast<const QListWidget*>(widget)) {
      places += list->findItems(kShown, Qt::MatchContains).isEmpty() ? 0 : 1;
      EXPECT_EQ(list->itemDelegate()->metaObject()->className(), std::string("QStyledItemDelegate"))
          << where;
    }
    if (const auto* box = qobject_cast<const QComboBox*>(widget)) {
      for (int i = 0; i < box->count(); ++i) {
        const QString tip = box->itemData(i, Qt::ToolTipRole).toString();
        EXPECT_EQ(tipAsShown(tip).contains("<img"), tip.contains("img")) << where;
      }
      places += box->findText(kShown, Qt::MatchContains) >= 0 ? 1 : 0;
    }
    const QAccessibleInterface* spoken =
        QAccessible::queryAccessibleInterface(const_cast<QWidget*>(widget));
    EXPECT_FALSE(spoken->text(QAccessible::Name).contains("&lt;")) << where;
  }
  return places;
}

/// Of all windows of that name.
int placesIn(const char* name) {
  int places = 0;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window->objectName() == QLatin1String(name)) {
      places += placesIn(*window);
    }
  }
  return places;
}

TEST_F(Bc245Window, NoTextIsTakenForMarkup) {
  form.window.setCaption("Tarnvex - /plans/" + kEvil + ".tvf");
  form.MSFlexGrid1.setTextMatrix(1, 7, kEvil);
  form.hitLists.List1.add("155.1150 " + kEvil);
  form.hitLists.List2.add("000123 " + kEvil);
  form.customSearch.saved.List3.add(kEvil);
  form.linkState.opened(*form.MSComm1, kEvil);
  for (QLineEdit* find : window.findChildren<QLineEdit*>("findText")) {
    find->setText(kShown);
  }
  EXPECT_EQ(placesIn(window), 6) << "title, three lists, the line's state and its tip";
  const QAbstractItemModel& cells = *find<QTableView>("MSFlexGrid1").model();
  EXPECT_EQ(cells.index(0, 7).data(), kShown);
  EXPECT_FALSE(cells.index(0, 7).data(Qt::ToolTipRole).isValid());

  settings.values[{"Ports", "COM1"}] = "/dev/" + kEvil;
  desktop::MainWindow again(form, gate, devices);
  EXPECT_GT(placesIn(again), 6) << "the device";

  form.customSearch.saved.List3.setListIndex(0);
  form.customSearch.saved.List3.userRightPress();
  auto* menu = find<QListWidget>("List3").findChild<QMenu*>("mnuSearchlist");
  EXPECT_EQ(menu->actions().first()->text(), "&Search " + QString(kShown).replace("&", "&&"));
  menu->close();

  state.ScannerName = kEvil;
  form.mnuAbout();
  EXPECT_EQ(placesIn("frmAbout"), 1);
  form.mnuExport();
  EXPECT_EQ(placesIn("Form8"), 1);
  windows.openNotice(kEvil, kEvil);
  EXPECT_EQ(placesIn("Form6"), 2);
  windows.closeNotice();
  form.panel.Channel.setCaption("1");
  trunking::Form3 type({form.panel.Channel, form.MSFlexGrid1, state, link, gate, dialogs});
  type.load();
  windows.openDialog(type, true);
  EXPECT_EQ(placesIn("Form3"), 1);
  windows.closeDialog(&type);
}

TEST_F(Bc895Window, AFilesNameIsNoMarkupOnAButton) {
  const QString name = "<b>R&D.apf";
  QFile(folder.filePath(name)).open(QIODevice::WriteOnly);
  desktop::QtCommonDialog dialog(gate);
  dialog.FileName = folder.filePath(name).toStdString();
  dialog.KeepCaption = "Keep";
  int looks = 0;
  QTimer::singleShot(0, &window, [&] {
    for (auto* open : window.findChildren<QFileDialog*>()) {
      EXPECT_EQ(open->labelText(QFileDialog::Reject), "Keep <b>R&&D.apf");
      looks += placesIn(*open) == 0 ? 1 : 0;
      open->reject();
    }
  });
  dialog.ShowOpen();
  EXPECT_EQ(looks, 1);
}

}  // namespace
}  // namespace tarnvex::test
