#include "desktop/windows/main_window.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QInputDialog>
#include <QMenu>
#include <QMenuBar>
#include <QTest>

#include "desktop/window_fixture.h"

namespace tarnvex::test {
namespace {

using platform::Answer;

TEST_F(Bc895Window, OpensOnOptionsWithItsTabsAndMenus) {
  EXPECT_EQ(window.objectName(), "Form4");
  EXPECT_EQ(window.windowTitle(), "Tarnvex - Untitled");
  auto& tabs = find<QTabWidget>("SSTab1");
  QStringList captions;
  for (int tab = 0; tab < tabs.count(); ++tab) {
    captions << tabs.tabText(tab);
  }
  EXPECT_EQ(captions,
            (QStringList{"Station Program", "Trunked Data", "Options", "Search Results"}));
  EXPECT_EQ(tabs.currentIndex(), 2);
  form.SSTab1.setTab(0);
  EXPECT_EQ(tabs.currentIndex(), 0);
  tabs.setCurrentIndex(3);
  EXPECT_EQ(form.SSTab1.tab(), 3);
  form.window.setCaption("155.1150 \x93");
  EXPECT_EQ(window.windowTitle(), QStringLiteral("155.1150 \u201C"));
  ASSERT_FALSE(window.menuBar()->actions().isEmpty());
  EXPECT_EQ(window.menuBar()->actions().first()->text(), "&File");
  dialogs.answers = {Answer::No};
  find<QAction>("mnuExit").trigger();
  EXPECT_EQ(dialogs.takeBoxes(), (std::vector<Box>{{"Exit Tarnvex?", "Confirm Exit", 36}}));
}

TEST_F(Bc895Window, ShowsAndPassesOnEverySwitch) {
  std::vector<platform::CheckBox*> boxes = {&form.keyBeep.chkKeyBeep, &form.recording.chkRecord,
                                            &form.Check6, &form.hitLists.chkSkip};
  for (auto& box : form.multiscan.MSBank) {
    boxes.push_back(&box);
  }
  for (platform::CheckBox* model : boxes) {
    SCOPED_TRACE(model->name());
    auto& widget = find<QCheckBox>(*model);
    EXPECT_TRUE(!widget.text().isEmpty() || !widget.accessibleName().isEmpty());
    const bool before = model->value();
    EXPECT_EQ(widget.isChecked(), before);
    widget.click();
    EXPECT_EQ(model->value(), !before);
    EXPECT_EQ(widget.isChecked(), !before);
    model->setValue(before);
    EXPECT_EQ(widget.isChecked(), before);
    // A click while the core is busy is queued in the gate.
    gate.enter([&, model] {
      widget.click();
      EXPECT_EQ(model->value(), before);
    });
    EXPECT_EQ(model->value(), !before);
    model->setEnabled(false);
    EXPECT_FALSE(widget.isEnabled());
  }
}

TEST_F(Bc895Window, ShowsAndPassesOnEveryChoice) {
  form.Scantimer.setEnabled(false);
  for (platform::ComboBox* model :
       {&form.trunkBank, &form.Combo2, &form.Combo3, &form.linkControls.baudBox}) {
    SCOPED_TRACE(model->name());
    auto& widget = find<QComboBox>(*model);
    ASSERT_EQ(widget.count(), static_cast<int>(model->items().size()));
    EXPECT_EQ(widget.currentText().toStdString(), model->text());
    model->setListIndex(0);
    EXPECT_EQ(widget.currentIndex(), 0);
    QTest::keyClick(&widget, Qt::Key_Down);
    EXPECT_EQ(model->listIndex(), 1);
  }
  auto& links = form.linkControls;
  const std::vector<platform::OptionButton*> options = {
      &links.Option2, &links.Option3,          &links.Option4,
      &links.Option1, &form.multiscan.Option5, &form.multiscan.Option6};
  form.multiscan.MSBank[0].setValue(true);
  for (platform::OptionButton* model : options) {
    SCOPED_TRACE(model->name());
    auto& widget = find<QRadioButton>(*model);
    EXPECT_EQ(widget.text().toStdString(), model->caption());
    widget.click();
    for (platform::OptionButton* other : options) {
      EXPECT_EQ(find<QRadioButton>(*other).isChecked(), other->value());
    }
    EXPECT_TRUE(model->value());
    if (model == &links.Option4) {
      EXPECT_EQ(form.MSComm1->commPort(), 4);
    }
  }
}

TEST_F(Bc895Window, ShowsItsHitsAndStoresThoseThatAreClicked) {
  openTab(3);
  for (const auto& [model, clear] : {std::pair{&form.hitLists.List1, &form.hitLists.Command1},
                                     std::pair{&form.hitLists.List2, &form.hitLists.Command2}}) {
    auto& widget = find<QListWidget>(*model);
    model->add("155.1150 one");
    model->add("two");
    model->replace(1, "3");
    ASSERT_EQ(widget.count(), 2);
    EXPECT_EQ(widget.item(1)->text(), "3");
    find<QPushButton>(*clear).click();
    EXPECT_EQ(widget.count(), 0);
    EXPECT_EQ(model->count(), 0);
  }
  form.hitLists.List1.add("155.1150 one");
  auto& hits = find<QListWidget>("List1");
  QTest::mouseClick(hits.viewport(), Qt::LeftButton, {},
                    hits.visualItemRect(hits.item(0)).center());
  EXPECT_EQ(form.MSFlexGrid1.textMatrix(1, 1), "155.1150");
  // With the keyboard, an arrow key only chooses the line, and Space clicks it.
  form.hitLists.List1.add("151.6250 two");
  form.MSFlexGrid1.userMoveTo(5, 1);
  openTab(3);
  hits.setFocus();
  QTest::keyClick(&hits, Qt::Key_Down);
  EXPECT_EQ(form.hitLists.List1.text(), "151.6250 two");
  EXPECT_NE(form.MSFlexGrid1.textMatrix(5, 1), "151.6250");
  QTest::keyClick(&hits, Qt::Key_Space);
  EXPECT_EQ(form.MSFlexGrid1.textMatrix(5, 1), "151.6250");
  form.hitLists.List1.clear();
  form.hitLists.List1.add("155.1150 one");
  EXPECT_TRUE(hits.selectedItems().isEmpty());
}

TEST_F(Bc895Window, SendsATypedLimit) {
  openTab(2);
  auto& limit = find<QLineEdit>("LLimit");
  form.customSearch.LLimit.setText("29.0");
  EXPECT_EQ(limit.text(), "29.0");
  limit.setFocus();
  limit.selectAll();
  QTest::keyClicks(&limit, "15x1.5");
  EXPECT_EQ(form.customSearch.LLimit.text(), "151.5");
  EXPECT_EQ(limit.text(), "151.5");
  EXPECT_EQ(dialogs.beeps, 1);
  radio.log.clear();
  QTest::keyClick(&limit, Qt::Key_Return);
  EXPECT_EQ(radio.takeLog(), "LL01515000; KEY00");
}

TEST_F(Bc895Window, TheComMenuNamesADevice) {
  auto& option = find<QRadioButton>("Option1");
  const auto openMenu = [&]() -> QMenu* {
    QContextMenuEvent event(QContextMenuEvent::Mouse, {5, 5}, option.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&option, &event);
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
  };
  const auto choose = [&](const QString& entry) {
    auto* menu = openMenu();
    ASSERT_NE(menu, nullptr);
    for (QAction* action : menu->actions()) {
      if (action->text() == entry) {
        EXPECT_TRUE(action->isEnabled()) << entry.toStdString();
        action->trigger();
      }
    }
    menu->close();
    loop.turn();
  };
  choose("Other device...");
  auto* input = option.findChild<QInputDialog*>();
  ASSERT_NE(input, nullptr);
  input->setTextValue(" /dev/serial/by-id/usb-7 ");
  form.MSComm1->close();
  input->accept();
  loop.turn();
  EXPECT_EQ(settings.values[std::pair("Ports", "COM1")], "/dev/serial/by-id/usb-7");
  EXPECT_TRUE(form.MSComm1->portOpen()) << "the port in use moves at once";
  EXPECT_EQ(find<QComboBox>("Device1").currentText(), "usb-7 (not there)");
  choose("Any device found");
  EXPECT_EQ(settings.values[std::pair("Ports", "COM1")], "");
  EXPECT_TRUE(find<QComboBox>("Device1").currentText().startsWith("Automatic"));
}

TEST_F(Bc895Window, ThePanelFollowsItsLabelsAndTurnsItsKnob) {
  auto& panel = find<desktop::RadioPanel>("panel");
  form.panel.Frequency.setCaption("155.1150");
  form.panel.Alpha.setCaption("Fire dispatch");
  form.panel.Wx.setVisible(true);
  const QString words = panel.displayText();
  for (const char* part : {"155.1150", "Fire dispatch", "WX"}) {
    EXPECT_TRUE(words.contains(QLatin1String(part), Qt::CaseInsensitive)) << words.toStdString();
  }
  form.panel.Label1.setBackColor(0x0000FF);
  EXPECT_EQ(panel.displayColour(), QColor(255, 0, 0));
  const QPoint knob = panel.knobRect().center();
  QTest::mousePress(&panel, Qt::LeftButton, {}, knob);
  EXPECT_TRUE(state.KnobDownHeld);
  QTest::mousePress(&panel, Qt::RightButton, {}, knob);
  EXPECT_TRUE(state.KnobUpHeld);
  QTest::mouseRelease(&panel, Qt::LeftButton, {}, knob);
  QTest::mouseRelease(&panel, Qt::RightButton, {}, knob);
  EXPECT_FALSE(state.KnobDownHeld || state.KnobUpHeld);
}

}  // namespace
}  // namespace tarnvex::test
