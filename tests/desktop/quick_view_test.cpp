// The small window in the real program, with a radio.
#include <gtest/gtest.h>

#include <QTest>

#include "desktop/program_rig.h"

namespace tarnvex::test {
namespace {

class QuickViewTest : public testing::TestWithParam<bool> {
 protected:
  [[nodiscard]] QWidget* small() const { return visibleWindow(GetParam() ? "Form9" : "QuickView"); }
  [[nodiscard]] QWidget* main() const { return visibleWindow(GetParam() ? "Form2" : "Form4"); }
  [[nodiscard]] bool open() const { return small() != nullptr && main() == nullptr; }
  [[nodiscard]] bool closed() const { return small() == nullptr && main() != nullptr; }
  void choose() { rig.program.windows.mainWindow()->findChild<QAction*>("mnuQV")->trigger(); }
  static desktop::RadioPanel* display(QWidget* in) { return in->findChild<desktop::RadioPanel*>(); }
  /// Checks that both pictures of the radio show the same.
  void expectSame() {
    EXPECT_EQ(display(small())->displayText().toStdString(),
              display(rig.program.windows.mainWindow())->displayText().toStdString());
    EXPECT_EQ(display(small())->displayColour(),
              display(rig.program.windows.mainWindow())->displayColour());
  }

  void expectLight(const char* text) {
    rig.form()->recording.light.setCaption(text);
    rig.form()->recording.light.setVisible(true);
    auto* big = rig.program.windows.mainWindow();
    for (const QWidget* in : {small(), static_cast<QWidget*>(big)}) {
      const auto* light = in->findChild<QLabel*>("recordingLight");
      EXPECT_TRUE(light->text() == text && !light->isHidden());
    }
    EXPECT_TRUE(display(small())->spareRect().contains(
        small()->findChild<QLabel*>("recordingLight")->geometry()));
  }

  ProgramRig rig{{"--baud", "0", "--scene", "quiet", "--model", GetParam() ? "bc245" : "bc895"}};
};

TEST_P(QuickViewTest, ShowsTheSameInTheMainWindowsPlace) {
  QRect left;
  rig.play({
      {"scanning", rig.panelShows("Frequency: Scanning"), [&] { choose(); }},
      {"the small window", [&] { return open(); },
       [&] {
         EXPECT_TRUE(small()->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
         const QRect room = small()->screen()->availableGeometry();
         EXPECT_LE(room.right() - small()->frameGeometry().right(), 2);
         EXPECT_LE(room.bottom() - small()->frameGeometry().bottom(), 60);
         expectSame();
         expectLight("REC 0:07");
         rig.radio.say("reception 1 600");
       }},
      {"a reception", rig.panelShows("Frequency: 155.1150"), [&] { expectSame(); }},
      {"all of it", rig.polled(),
       [&] {
         expectSame();
         EXPECT_TRUE(display(small())->displayText().startsWith("Frequency 155.1150"));
         left = QRect(QPoint(40, 50), small()->size() + QSize(31, 17));
         small()->move(left.topLeft());
         small()->resize(left.size());
         // This key would send the radio to manual mode.
         QTest::keyClick(small(), Qt::Key_M);
       }},
      {"the main window", [&] { return closed(); }, [&] { choose(); }},
      {"the small one again", [&] { return open(); },
       [&] {
         // The key is still held down when the main window has come back.
         QKeyEvent repeat(QEvent::KeyPress, Qt::Key_M, Qt::NoModifier, "m", true);
         QApplication::sendEvent(rig.program.windows.mainWindow()->findChild<QTabBar*>(), &repeat);
         EXPECT_EQ(small()->pos(), left.topLeft());
         EXPECT_EQ(small()->size(), left.size());
         QTest::mouseClick(small(), Qt::LeftButton);
       }},
      {"closed by a click", [&] { return closed(); },
       [&] {
         EXPECT_EQ(rig.radio.ask("mode"), "MD00") << "the key doesn't reach the radio";
         choose();
       }},
      {"once more", [&] { return open(); }, [&] { small()->close(); }},
      {"closed by its own button", [&] { return closed(); }},
  });
  EXPECT_EQ(rig.program.settings.getSetting(GetParam() ? "BC245" : "BC895", "QVLeft", ""), "600");
}

TEST_P(QuickViewTest, FitsTheScreenThatIsThere) {
  const std::string section = GetParam() ? "BC245" : "BC895";
  rig.program.settings.saveSetting(section, "QVSize", "3000 2000");
  rig.program.settings.saveSetting(section, "QVLeft", "6000");
  rig.play({
      {"scanning", rig.panelShows("Frequency: Scanning"), [&] { choose(); }},
      {"the small window", [&] { return open(); },
       [&] {
         const QRect room = small()->screen()->availableGeometry();
         // The frame has thin sides.
         EXPECT_TRUE(room.adjusted(0, 0, 4, 4).contains(small()->geometry()));
         // The light stays where the radio's display has nothing.
         auto& light = *small()->findChild<QLabel*>("recordingLight");
         light.setText("REC 12:34");
         for (const QSize& size : {small()->minimumSize(), QSize(600, 500)}) {
           small()->resize(size);
           QCoreApplication::sendPostedEvents();
           light.adjustSize();
           EXPECT_TRUE(display(small())->spareRect().contains(light.geometry())) << size.width();
         }
         small()->close();
       }},
      {"the main window", [&] { return closed(); }},
  });
}

TEST_P(QuickViewTest, ClosesWhenTheRadioIsExchanged) {
  rig.play({
      {"scanning", rig.panelShows("Frequency: Scanning"), [&] { choose(); }},
      {"the small window", [&] { return open(); },
       [&] { rig.radio.say(GetParam() ? "become bc895" : "become bc245"); }},
      {"the other radio's window",
       [&] {
         return small() == nullptr && main() == nullptr && rig.isBc895() == GetParam() &&
                rig.form()->Scantimer.enabled();
       }},
      {"and its poll", rig.polled()},
  });
}

INSTANTIATE_TEST_SUITE_P(BothRadios, QuickViewTest, testing::Bool());

}  // namespace
}  // namespace tarnvex::test
