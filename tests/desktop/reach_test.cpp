// Use without a mouse, and what windows remember: tips, Tab stops, shortcuts, sizes.
#include <QContextMenuEvent>
#include <QDesktopServices>
#include <QHelpEvent>
#include <QTest>
#include <QTextBrowser>
#include <QToolTip>

#include "desktop/window_fixture.h"
#include "desktop/windows/key_tips.h"
#include "desktop/windows/window_memory.h"

namespace tarnvex::test {
namespace {

using desktop::PanelKey;
using desktop::WindowMemory;

/// The part of a tip after "Keyboard: " or "Right button: ".
std::string part(const PanelKey& key, const char* heading) {
  const QString start = QLatin1String(heading) + QStringLiteral(": ");
  for (const QString& line : key.tip.split('\n')) {
    if (line.startsWith(start)) {
      return line.mid(start.size()).toStdString();
    }
  }
  return "missing";
}

char typed(const std::string& keyboard) {
  return keyboard == "Enter" ? '\r' : keyboard.front();
}

TEST_F(Bc895Window, TipsTellTheTruthAboutEachKey) {
  const auto layout = desktop::withTips(desktop::bc895Layout());
  radio.answerAll("OK");
  for (int key = 0; key < layout.keys.size(); ++key) {
    const PanelKey& shown = layout.keys[key];
    SCOPED_TRACE(shown.spoken.toStdString());
    if (shown.caption == "RMT") {
      continue;
    }
    radio.log.clear();
    form.pressKey(key, monitor::MouseButton::Left);
    const std::string pressed = radio.takeLog();
    if (const std::string letter = part(shown, "Keyboard"); letter != "none") {
      form.typeKey(typed(letter));
      EXPECT_EQ(radio.takeLog(), pressed);
    }
    form.pressKey(key, monitor::MouseButton::Right);
    EXPECT_EQ(radio.takeLog().empty(), part(shown, "Right button") == "nothing");
  }
}

TEST_F(Bc245Window, TipsTellTheTruthAboutEachKey) {
  const auto layout = desktop::withTips(desktop::bc245Layout());
  radio.answerAll("OK");
  state.ModelKey = "BC245";
  form.Scantimer.setEnabled(false);
  for (const PanelKey& shown : layout.keys) {
    SCOPED_TRACE(shown.spoken.toStdString());
    const std::string name = shown.control.toStdString();
    radio.log.clear();
    form.pressKey(name, monitor::MouseButton::Left);
    form.clickKey(name);
    // A key pressed with the mouse sends a second line end, and the point key also asks for the
    // attenuator.
    std::string pressed = radio.takeLog();
    std::erase(pressed, '\r');
    EXPECT_FALSE(pressed.empty());
    if (const std::string letter = part(shown, "Keyboard"); letter != "none") {
      form.typeKey(typed(letter));
      EXPECT_EQ(pressed.substr(0, pressed.find(';')), radio.takeLog());
    }
    form.pressKey(name, monitor::MouseButton::Right);
    EXPECT_EQ(radio.takeLog().empty(), part(shown, "Right button") == "nothing");
  }
}

TEST_F(Bc895Window, PanelShowsTipsAndTurnsItsKnobByWheelAndKeys) {
  auto& panel = find<desktop::RadioPanel>("panel");
  const QPoint scan = panel.keyRect(10).center();
  QHelpEvent ask(QEvent::ToolTip, scan, panel.mapToGlobal(scan));
  QApplication::sendEvent(&panel, &ask);
  EXPECT_TRUE(QToolTip::text().startsWith("Scans")) << QToolTip::text().toStdString();
  const auto knobComesUp = [&] {
    return QTest::qWaitFor([&] { return !state.KnobUpHeld && !state.KnobDownHeld; });
  };
  // Wherever letters are typed for the radio, too.
  for (QWidget* focus : {static_cast<QWidget*>(&panel),
                         static_cast<QWidget*>(find<QTabWidget>("SSTab1").tabBar())}) {
    QTest::keyClick(focus, Qt::Key_PageUp);
    EXPECT_TRUE(state.KnobUpHeld);
    EXPECT_TRUE(knobComesUp());
  }
  QTest::keyClick(&find<QComboBox>("Combo3"), Qt::Key_PageUp);
  EXPECT_FALSE(state.KnobUpHeld) << "it moves in the list";
  const QPointF knob = panel.knobRect().center();
  QWheelEvent wheel(knob, panel.mapToGlobal(knob), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QApplication::sendEvent(&panel, &wheel);
  EXPECT_TRUE(state.KnobDownHeld);
  EXPECT_TRUE(knobComesUp());
}

TEST_F(Bc895Window, ARowOfBanksIsOneTabStop) {
  openTab(2);
  auto& first = find<QCheckBox>("MSBank(0)");
  first.setFocus();
  QTest::keyClick(&first, Qt::Key_Right);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
  EXPECT_EQ(QApplication::focusWidget()->objectName(), "MSBank(2)");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(QApplication::focusWidget()->objectName(), "MSBank(10)");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
  EXPECT_EQ(QApplication::focusWidget()->objectName(), "MSBank(2)") << "back where it was left";
}

/// The controls to which Tab leads from the panel, until it comes back there.
std::string tabOrder(QWidget& panel) {
  QStringList order;
  panel.setFocus();
  do {
    order << QApplication::focusWidget()->objectName();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  } while (!panel.hasFocus() && order.size() < 60);
  return order.join(' ').toStdString();
}

template <class Window>
void expectTabOrder(Window& window, QTabWidget& tabs, const std::vector<const char*>& orders) {
  for (int tab = 0; tab < 4; ++tab) {
    tabs.setCurrentIndex(tab);
    EXPECT_EQ(tabOrder(window),
              std::string("panel qt_tabwidget_tabbar ") + orders[static_cast<std::size_t>(tab)]);
  }
}

TEST_F(Bc895Window, TabGoesFromThePanelToTheTabsAndThroughThePage) {
  expectTabOrder(find<desktop::RadioPanel>("panel"), find<QTabWidget>("SSTab1"),
                 {"Combo3 find MSFlexGrid1", "Combo1 Combo2 find MSFlexGrid2",
                  "Option1 Device1 Option2 Device2 Option3 Device3 Option4 Device4 Combo4 Command3 "
                  "Option6 MSBank(0) MSBank(10) chkKeyBeep Check6 chkRecord showRecordings LLimit "
                  "Ulimit List3 Command4",
                  "Command1 List1 Command2 List2 chkSkip"});
}

TEST_F(Bc245Window, TabGoesFromThePanelToTheTabsAndThroughThePage) {
  expectTabOrder(find<desktop::RadioPanel>("panel"), find<QTabWidget>("SSTab1"),
                 {"Combo3 find MSFlexGrid1", "Combo4 Combo2 find MSFlexGrid2",
                  "Option1 Device1 Option2 Device2 Option3 Device3 Option4 Device4 Combo1 Command3 "
                  "chkKeyBeep chkRecord showRecordings Option6 MSBank(0) LLimit Ulimit List3 "
                  "Command4 Check1 Check2 Check3 Check4 Check5 Check6 Check7 Option8 Option7",
                  "Command1 List1 Command2 List2 chkSkip"});
}

TEST_F(Bc895Window, TipsTellWhatListsLimitsAndTheGreyedOnDo) {
  const std::map<QString, QString> tips = {
      {"List1", "click stores"},   {"List2", "click stores"},   {"List3", "right button"},
      {"LLimit", "29 to 956 MHz"}, {"Ulimit", "29 to 956 MHz"}, {"Option5", "Tick one first"}};
  for (const auto& [name, tip] : tips) {
    EXPECT_TRUE(find<QWidget>(name).toolTip().contains(tip)) << name.toStdString();
  }
  form.multiscan.MSBank[0].userClick();
  EXPECT_FALSE(find<QWidget>("Option5").toolTip().contains("Tick one first"));
}

TEST_F(Bc895Window, MenusHaveTheUsualKeysAndHelpKnowsThePage) {
  const std::map<QString, QString> keys = {{"mnuNew", "Ctrl+N"},
                                           {"mnuOpenConv", "Ctrl+O"},
                                           {"mnuSaveConv", "Ctrl+S"},
                                           {"mnuExit", "Ctrl+Q"},
                                           {"helpHere", "F1"}};
  for (const auto& [name, key] : keys) {
    EXPECT_EQ(find<QAction>(name).shortcut().toString(), key) << name.toStdString();
  }
  QStringList pages;
  const auto kept = window.helpWanted.connect([&](const QString& page) { pages << page; });
  for (int tab = 0; tab < 4; ++tab) {
    openTab(tab);
    find<QAction>("helpHere").trigger();
  }
  EXPECT_EQ(pages.join(' ').toStdString(),
            "plan.html trunking.html connection.html searching.html");
  for (const QString& page : pages) {
    EXPECT_TRUE(QFile::exists(QStringLiteral(TARNVEX_HELP) + '/' + page));
  }
}

TEST_F(Bc895Window, TheMenuOfSavedSearchesOpensWhereItIsAskedFor) {
  openTab(2);
  auto& list = find<QListWidget>("List3");
  form.customSearch.saved.List3.add("Air");
  form.customSearch.saved.List3.add("Police");
  form.customSearch.saved.List3.setListIndex(1);
  auto& menu = *list.findChild<QMenu*>("mnuSearchlist");
  // The pointer rests on the list in both cases.
  list.viewport()->setAttribute(Qt::WA_UnderMouse);
  const QPoint pointer = list.viewport()->mapToGlobal(QPoint(30, 2));
  const auto opensAt = [&](QContextMenuEvent::Reason reason, QWidget& target) {
    QContextMenuEvent ask(reason, target.mapFromGlobal(pointer), pointer);
    QApplication::sendEvent(&target, &ask);
    EXPECT_TRUE(menu.isVisible());
    menu.close();
    // A small screen moves it to the left.
    return menu.pos().y();
  };
  EXPECT_EQ(opensAt(QContextMenuEvent::Mouse, *list.viewport()), pointer.y());
  const QPoint line = list.visualItemRect(list.item(1)).bottomLeft();
  EXPECT_EQ(opensAt(QContextMenuEvent::Keyboard, list), list.viewport()->mapToGlobal(line).y());
}

/// Takes the place of the desktop's file manager.
struct OpenedFolder : QTextBrowser {
  OpenedFolder() { QDesktopServices::setUrlHandler("file", this, "setSource"); }
  ~OpenedFolder() override { QDesktopServices::unsetUrlHandler("file"); }
  void doSetSource(const QUrl& url, QTextDocument::ResourceType /*type*/) override { opened = url; }

  QUrl opened;
};

TEST_F(Bc895Window, ShowRecordingsOpensTheirFolder) {
  openTab(2);
  OpenedFolder manager;
  find<QPushButton>("showRecordings").click();
  EXPECT_EQ(manager.opened, QUrl::fromLocalFile(folder.path()));
}

TEST(FitToScreens, BringsAWindowBackOntoAScreen) {
  const std::vector<QRect> screens = {{0, 0, 1024, 600}, {1024, 0, 2560, 1080}};
  struct Case {
    QRect kept;
    QRect fitted;
  };
  for (const auto& [kept, fitted] : std::vector<Case>{
           {{100, 50, 700, 400}, {100, 50, 700, 400}},
           {{1200, 50, 2000, 900}, {1200, 50, 2000, 900}},
           {{100, 50, 1300, 900}, {0, 0, 1024, 600}},
           {{900, 500, 700, 400}, {1024, 500, 700, 400}},
           {{-500, -500, 300, 200}, {0, 0, 300, 200}},
           {{9000, 9000, 300, 200}, {724, 400, 300, 200}},
       }) {
    EXPECT_EQ(desktop::fitToScreens(kept, screens), fitted)
        << kept.x() << ' ' << kept.y() << ' ' << kept.width();
  }
  const QMargins frame(2, 30, 2, 2);
  EXPECT_EQ(desktop::fitToScreens({0, 0, 1500, 900}, screens, frame), QRect(2, 30, 1020, 568));
}

TEST_F(Bc895Window, ComesBackAsItWasLeft) {
  WindowMemory memory(settings, "BC895");
  auto& table = find<QTableView>("MSFlexGrid1");
  openTab(3);
  table.setColumnWidth(1, 123);
  window.setGeometry(10, 60, 640, 500);
  window.remember(memory);
  shell::Form4 nextForm{services, outside};
  desktop::MainWindow next{nextForm, gate, devices};
  next.restore(memory);
  form.MSComm1->close();
  nextForm.load();
  loop.turn();
  EXPECT_EQ(next.geometry().topLeft(), QPoint(10, 60));
  EXPECT_EQ(next.findChild<QTabWidget*>("SSTab1")->currentIndex(), 3);
  EXPECT_EQ(next.findChild<QTableView*>("MSFlexGrid1")->columnWidth(1), 123);
  settings.values[std::pair("BC895", "Window")] = "1 2 x";
  settings.values[std::pair("BC895", "Page")] = "99";
  EXPECT_FALSE(memory.place().has_value());
  next.restore(memory);
}

TEST_F(Bc895Window, APanelInAWideWindowLeavesTheTableItsRoom) {
  window.resize(2400, 1000);
  loop.turn();
  EXPECT_LT(find<desktop::RadioPanel>("panel").height(), 500);
}

}  // namespace
}  // namespace tarnvex::test
