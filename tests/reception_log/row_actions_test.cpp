// The actions on a row of the log.
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDesktopServices>
#include <QMenu>
#include <QTextBrowser>

#include "window_rig.h"

namespace tarnvex::desktop {
namespace {

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
  // The tag is added while the filter is waiting for it.
  filter("lighthouse");
  EXPECT_EQ(model().rowCount(), 0);
  main.MSFlexGrid1.setTextMatrix(7, 7, "Lighthouse");
  EXPECT_TRUE(loop.waitUntil([this] { return model().rowCount() == 10; }, QDeadlineTimer(20000)));
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

}  // namespace
}  // namespace tarnvex::desktop
