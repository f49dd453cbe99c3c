#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QDeadlineTimer>
#include <QTest>
#include <QTimer>

#include "panel_fixture.h"

namespace tarnvex::desktop {
namespace {

class Accessible : public testing::Test {
 protected:
  PanelInWindow shown{bc895Layout()};
  RadioPanel& panel = *shown.panel;
  QAccessibleInterface* reader() { return QAccessible::queryAccessibleInterface(&panel); }
};

TEST_F(Accessible, DescriptionReadsTheDisplay) {
  EXPECT_EQ(reader()->text(QAccessible::Name), "BC895XLT");
  EXPECT_EQ(reader()->text(QAccessible::Description), "");
  for (const char* name : {"Scan", "Bank", "Bankltr(0)", "Bankltr(1)"}) {
    panel.setElement(name, "", true);
  }
  panel.setElement("Frequency", "155.1150", true);
  panel.setElement("Alpha", "Fire dispatch", true);
  EXPECT_EQ(reader()->text(QAccessible::Description).toStdString(),
            "Frequency 155.1150, Fire dispatch, SCAN, bank A B");
  panel.setElement("Channel", "P  12", true);
  panel.setElement("CTCSS", "103.5", true);
  panel.setElement("CtcssStat", "", true);
  panel.setElement("Sig(0)", "", true);
  panel.setElement("Sig(1)", "", true);
  panel.setElement("Scan", "", false);
  EXPECT_EQ(
      panel.displayText(),
      "Frequency 155.1150, Fire dispatch, channel P 12, tone 103.5, CTCSS, bank A B, signal 2");
}

TEST_F(Accessible, WordsAndIdsOfTheMainLineAreReadAlone) {
  for (const char* text : {"Scanning", "Non-Active ID", "1234", "200-14"}) {
    panel.setElement("Frequency", text, true);
    EXPECT_EQ(panel.displayText(), text);
  }
  panel.setElement("Frequency", "", true);
  EXPECT_EQ(panel.displayText(), "");
}

TEST_F(Accessible, HandheldReadsItsMarksAsBanks) {
  PanelInWindow hand(bc245Layout());
  for (int i = 0; i < 11; ++i) hand.panel->setElement(QString("Bank(%1)").arg(i), "", true);
  hand.panel->setElement("Frequency", "Scanning", true);
  hand.panel->setElement("TrunkType", "M", true);
  hand.panel->setElement("Police", "", true);
  hand.panel->setElement("Bankltr(0)", "", true);
  hand.panel->setElement("Bankltr(9)", "", true);
  EXPECT_EQ(hand.panel->displayText(), "Scanning, system M, SERVICE SEARCH ON, bank 1 10");
}

TEST_F(Accessible, KeysAreNamedButtonsThatCanBePressed) {
  QAccessibleInterface* face = reader();
  ASSERT_EQ(face->childCount(), 43) << "the keys, the knob and the announcement";
  EXPECT_EQ(face->child(43), nullptr);
  EXPECT_EQ(face->child(29)->text(QAccessible::Name), "Enter");
  EXPECT_EQ(face->child(34)->text(QAccessible::Name), "Bank E");
  QAccessibleInterface* scan = face->child(10);
  EXPECT_EQ(scan->role(), QAccessible::Button);
  EXPECT_EQ(scan->parent(), face);
  EXPECT_EQ(face->indexOfChild(scan), 10);
  const QPoint middle = panel.mapToGlobal(panel.keyRect(10).center());
  EXPECT_EQ(face->childAt(middle.x(), middle.y()), scan);
  scan->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(shown.takeLog(), QStringList({"press 10 left", "release 10 left", "click 10 left"}));
  scan->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
  EXPECT_TRUE(scan->state().focused);
  EXPECT_FALSE(face->child(11)->state().focused);
  EXPECT_EQ(face->focusChild(), scan);
  face->child(12)->actionInterface()->doAction("Hold");
  EXPECT_TRUE(shown.takeLog().contains("press 12 right"));
}

TEST_F(Accessible, TheKnobIsASliderThatTurnsByOneStep) {
  panel.setElement("Knob(3)", "", true);
  QAccessibleInterface* knob = reader()->child(41);
  ASSERT_EQ(knob->role(), QAccessible::Slider);
  EXPECT_FALSE(knob->text(QAccessible::Name).isEmpty());
  auto* value = knob->valueInterface();
  EXPECT_EQ(value->currentValue().toInt(), 3);
  EXPECT_EQ(value->maximumValue().toInt(), 12);
  value->setCurrentValue(3);
  EXPECT_EQ(shown.takeLog(), QStringList());
  for (const auto& [wanted, button] : {std::pair{4.0, "right"}, {0.0, "left"}}) {
    value->setCurrentValue(wanted);
    EXPECT_EQ(shown.takeLog().join(' ').toStdString(), std::string("knob press ") + button);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !shown.takeLog().isEmpty(); })) << "comes up";
  }
}

TEST_F(Accessible, TellsWhatIsReceivedButNotWhatASearchPasses) {
  panel.findChild<QTimer*>()->setInterval(100);
  QAccessibleInterface* notice = reader()->child(42);
  EXPECT_EQ(notice->role(), QAccessible::Notification);
  const auto tells = [&](const char* text) {
    return QTest::qWaitFor([&, lit = false]() mutable {
      // A flickering indicator doesn't put it off.
      panel.setElement("Sig(0)", "", lit = !lit);
      return notice->text(QAccessible::Name) == text;
    });
  };
  panel.setElement("Frequency", "155.1150 ", true);
  panel.setElement("Alpha", "Fire dispatch", true);
  EXPECT_TRUE(notice->state().invisible) << "not at once";
  EXPECT_TRUE(tells("Frequency 155.1150 Fire dispatch"));
  panel.setElement("Alpha", "", false);
  for (const QDeadlineTimer searching(300); !searching.hasExpired();) {
    panel.setElement("Frequency", QString::number(searching.remainingTimeNSecs() / 1e6), true);
    QCoreApplication::processEvents();
    ASSERT_EQ(notice->text(QAccessible::Name), "Frequency 155.1150 Fire dispatch");
  }
  panel.setElement("Frequency", "460.1250", true);
  EXPECT_TRUE(tells("Frequency 460.1250"));
  panel.setLive(false);
  EXPECT_TRUE(tells("Not live"));
}

}  // namespace
}  // namespace tarnvex::desktop
