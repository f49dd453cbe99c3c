#include <QSignalSpy>
#include <QTest>

#include "panel_fixture.h"

namespace tarnvex::desktop {
namespace {

class Pressing : public testing::Test {
 protected:
  PanelInWindow shown{bc895Layout()};
  RadioPanel& panel = *shown.panel;

  QPoint key(int index) const { return panel.keyRect(index).center(); }
  QPoint knob() const { return panel.knobRect().center(); }
  void down(const QPoint& at, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mousePress(&panel, button, {}, at);
  }
  void up(const QPoint& at, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseRelease(&panel, button, {}, at);
  }
  void focus(int index) {
    panel.setFocus(Qt::TabFocusReason);
    panel.setFocusKey(index);
    ASSERT_TRUE(panel.hasFocus());
  }
};

TEST_F(Pressing, EveryKeyAnswersWithItsIndexAndButton) {
  for (int i = 0; i < panel.layoutData().keys.size(); ++i) {
    for (const QPoint at : {panel.keyRect(i).topLeft() + QPoint(2, 2), key(i),
                            panel.keyRect(i).bottomRight() - QPoint(2, 2)}) {
      QTest::mouseClick(&panel, Qt::RightButton, {}, at);
      const QString rest = QString("%1 right").arg(i);
      EXPECT_EQ(shown.takeLog(),
                QStringList({"press " + rest, "release " + rest, "click " + rest}));
    }
  }
}

TEST_F(Pressing, LeavingTheKeyBeforeTheReleaseIsNoClick) {
  down(key(10));
  up(key(11));
  EXPECT_EQ(shown.takeLog(), QStringList({"press 10 left", "release 10 left"}));
}

TEST_F(Pressing, BesideTheKeysThePressGoesToTheWindow) {
  const QPoint between = (panel.keyRect(0).bottomRight() + panel.keyRect(5).bottomLeft()) / 2;
  for (const QPoint at : {QPoint(6, 60), between, panel.elementRect("Frequency").center()}) {
    down(at);
    up(at);
  }
  EXPECT_TRUE(shown.takeLog().isEmpty());
  EXPECT_EQ(shown.window.received, QStringList({"mouse", "mouse", "mouse"}));
}

TEST_F(Pressing, SecondPressOfADoubleClickCounts) {
  QTest::mouseClick(&panel, Qt::LeftButton, {}, key(18));
  QTest::mouseDClick(&panel, Qt::LeftButton, {}, key(18));
  up(key(18));
  EXPECT_EQ(shown.takeLog().count("press 18 left"), 2);
  QTest::mouseDClick(&panel, Qt::LeftButton, {}, panel.elementRect("Alpha").center());
  QTest::mouseDClick(&panel, Qt::RightButton, {}, panel.elementRect("Alpha").center());
  EXPECT_EQ(shown.takeLog(), QStringList("display"));
}

TEST_F(Pressing, KnobIsHeldByEitherButtonOrBoth) {
  down(knob());
  down(knob(), Qt::RightButton);
  up({1, 1});
  up({1, 1}, Qt::RightButton);
  EXPECT_EQ(shown.takeLog(), QStringList({"knob press left", "knob press right",
                                          "knob release left", "knob release right"}));
  // The corners of the knob's square belong to the body.
  QTest::mouseClick(&panel, Qt::LeftButton, {}, panel.knobRect().topLeft() + QPoint(4, 4));
  EXPECT_TRUE(shown.takeLog().isEmpty());
}

TEST_F(Pressing, NothingStaysDownWhenThePointerIsLost) {
  const QImage rest = shown.picture();
  down(knob(), Qt::RightButton);
  QEvent away(QEvent::WindowDeactivate);
  QApplication::sendEvent(&panel, &away);
  up(knob(), Qt::RightButton);
  EXPECT_EQ(shown.takeLog(), QStringList({"knob press right", "knob release right"}));
  down(key(3));
  panel.hide();
  EXPECT_EQ(shown.takeLog(), QStringList({"press 3 left", "release 3 left"}));
  panel.show();
  up(key(3));
  EXPECT_TRUE(shown.takeLog().isEmpty());
  EXPECT_EQ(shown.picture(), rest);
}

TEST_F(Pressing, PanelMayBeDestroyedByItsOwnKey) {
  for (const bool onPress : {true, false}) {
    auto* doomed = new RadioPanel(bc895Layout());
    doomed->resize(doomed->sizeHint());
    doomed->show();
    const auto end = [doomed] { delete doomed; };
    if (onPress) {
      QObject::connect(doomed, &RadioPanel::keyPressed, end);
    } else {
      QObject::connect(doomed, &RadioPanel::keyReleased, end);
    }
    const QPointer<RadioPanel> alive(doomed);
    doomed->clickKey(4);
    EXPECT_TRUE(alive.isNull());
  }
}

TEST_F(Pressing, SpaceAndEnterPressTheFocusedKeyOnce) {
  focus(10);
  for (const Qt::Key pressKey : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
    QTest::keyPress(&panel, pressKey);
    QKeyEvent repeat(QEvent::KeyPress, pressKey, Qt::NoModifier, QString(), true);
    QApplication::sendEvent(&panel, &repeat);
    EXPECT_EQ(shown.takeLog(), QStringList("press 10 left"));
    QTest::keyRelease(&panel, pressKey);
    EXPECT_EQ(shown.takeLog(), QStringList({"release 10 left", "click 10 left"}));
  }
}

TEST_F(Pressing, LosingTheFocusEndsAPressByKeyboard) {
  focus(10);
  QTest::keyPress(&panel, Qt::Key_Space);
  panel.clearFocus();
  EXPECT_EQ(shown.takeLog(), QStringList({"press 10 left", "release 10 left"}));
}

TEST_F(Pressing, KeyboardAndMouseHoldTheirKeysApart) {
  focus(10);
  QTest::keyPress(&panel, Qt::Key_Space);
  down(key(11));
  QTest::keyRelease(&panel, Qt::Key_Space);
  up(key(11));
  EXPECT_EQ(shown.takeLog(), QStringList({"press 10 left", "press 11 left", "release 10 left",
                                          "click 10 left", "release 11 left", "click 11 left"}));
}

TEST_F(Pressing, ArrowsMoveTheRingAndOtherKeysGoToTheWindow) {
  focus(10);
  QTest::keyClick(&panel, Qt::Key_Right);
  EXPECT_EQ(panel.focusKey(), 11);
  QTest::keyClick(&panel, Qt::Key_Down);
  EXPECT_EQ(panel.focusKey(), 6);
  QTest::keyClick(&panel, 's');
  QTest::keyClick(&panel, '5');
  EXPECT_EQ(shown.window.received, QStringList({"key s", "key 5"}));
  EXPECT_TRUE(shown.takeLog().isEmpty());
}

TEST_F(Pressing, HoverPressAndFocusShowOnTheKeyAlone) {
  panel.clearFocus();
  const QImage rest = shown.picture();
  PaintRecorder recorder(&panel);
  const auto look = [&](int index) {
    const QRect around = panel.keyRect(index).adjusted(-6, -6, 6, 6);
    EXPECT_TRUE(around.contains(recorder.take().boundingRect()));
    const QImage now = shown.picture();
    recorder.take();
    EXPECT_NE(now.copy(panel.keyRect(index)), rest.copy(panel.keyRect(index)));
    return now;
  };
  recorder.take();
  QTest::mouseMove(&panel, key(24));
  const QImage hover = look(24);
  QTest::mouseMove(&panel, {2, 2});
  EXPECT_EQ(shown.picture(), rest);
  recorder.take();
  panel.setKeyDown(24, true);
  EXPECT_TRUE(shown.takeLog().isEmpty());
  EXPECT_NE(look(24), hover);
  panel.setKeyDown(24, false);
  EXPECT_EQ(shown.picture(), rest);
  panel.setFocusKey(24);
  recorder.take();
  panel.setFocus(Qt::TabFocusReason);
  EXPECT_TRUE(panel.hasFocus());
  look(24);
}

}  // namespace
}  // namespace tarnvex::desktop
