// Enter and Escape in the dialogs of the real windows, and the keys that close the other windows.
#include <QPushButton>
#include <QTest>

#include "desktop/window_fixture.h"
#include "trunking/system_type_form.h"

namespace tarnvex::test {
namespace {

/// The button that Enter presses while this widget has the focus. The button's action doesn't run.
std::string pressedByEnter(QWidget& dialog, QWidget& focus) {
  QStringList pressed;
  for (auto* button : dialog.findChildren<QPushButton*>()) {
    QObject::connect(button, &QPushButton::pressed, &focus, [&pressed, button] {
      pressed << button->objectName();
      button->blockSignals(true);
    });
  }
  focus.setFocus();
  QTest::keyClick(&focus, Qt::Key_Return);
  for (auto* button : dialog.findChildren<QPushButton*>()) {
    button->blockSignals(false);
    button->disconnect(&focus);
  }
  return pressed.join(' ').toStdString();
}

template <class Form>
class DialogKeys : public WindowTest<Form> {
 protected:
  DialogKeys() {
    this->form.Scantimer.setEnabled(false);
    this->form.panel.mode.setCaption("MD09");
    this->radio.answerAll("ERR", {{"IL", "END"}});
  }

  void expectKeys(const char* name, const char* main, const char* other) {
    SCOPED_TRACE(name);
    this->loop.turn();
    QWidget* dialog = visibleWindow(name);
    ASSERT_NE(dialog, nullptr);
    QApplication::setActiveWindow(dialog);
    // As if a file had been chosen.
    dialog->template findChild<QPushButton*>(main)->setEnabled(true);
    for (auto* widget : dialog->template findChildren<QWidget*>()) {
      const bool typedInto = qobject_cast<QLineEdit*>(widget) != nullptr ||
                             qobject_cast<QListWidget*>(widget) != nullptr ||
                             qobject_cast<QComboBox*>(widget) != nullptr;
      if (typedInto && widget->isVisible()) {
        EXPECT_EQ(pressedByEnter(*dialog, *widget), main) << widget->objectName().toStdString();
      }
    }
    for (const char* button : {main, other}) {
      EXPECT_EQ(pressedByEnter(*dialog, *dialog->template findChild<QPushButton*>(button)), button);
    }
    QTest::keyClick(dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
  }
};

using Bc895DialogKeys = DialogKeys<shell::Form4>;
using Bc245DialogKeys = DialogKeys<shell::Form2>;

TEST_F(Bc895DialogKeys, EnterPressesTheMainButtonAndEscapeCloses) {
  form.mnuUpload();
  expectKeys("frmUpload", "Command1", "Command2");
  form.mnuExport();
  expectKeys("Form8", "Command3", "Command4");
  form.typeKey('L');
  expectKeys("frmLockouts", "Command1", "Command2");
  form.mnuAbout();
  expectKeys("frmAbout", "Command1", "Command1");
}

TEST_F(Bc245DialogKeys, EnterPressesTheMainButtonAndEscapeCloses) {
  form.mnuCustom();
  expectKeys("Form5", "Command2", "Command1");
  form.mnuOwnloadTrunk();
  expectKeys("frmDownloadtrs", "Command1", "Command3");
}

TEST_F(Bc245DialogKeys, TheSystemTypeIsClosedByItsButtonOnly) {
  trunking::Form3 type({form.panel.Channel, form.MSFlexGrid1, state, link, gate, dialogs});
  auto* dialog = desktop::makeSystemTypeDialog(type, gate, &window);
  dialog->show();
  EXPECT_EQ(pressedByEnter(*dialog, *dialog->findChild<QComboBox*>("Combo1")), "Command1");
  QTest::keyClick(dialog, Qt::Key_Escape);
  EXPECT_TRUE(dialog->isVisible());
  delete dialog;
}

class OtherWindows : public testing::Test, protected Below {
 protected:
  OtherWindows() {
    radio.answerAll("ERR");
    windows.openMain(form);
    form.load();
  }
  ~OtherWindows() override { windows.removeAll(); }

  shell::Form4 form{services, outside};
};

TEST_F(OtherWindows, HaveTheUsualKeysToo) {
  form.mnuReceptions();
  windows.showHelp(shell::HelpView::Contents);
  for (const char* name : {"frmReceptionLog", "help"}) {
    SCOPED_TRACE(name);
    const auto all = QApplication::topLevelWidgets();
    QWidget* window = *std::ranges::find(all, QLatin1String(name), &QWidget::objectName);
    QApplication::setActiveWindow(window);
    dialogs.answers = {platform::Answer::No};
    QTest::keyClick(window, Qt::Key_Q, Qt::ControlModifier);
    EXPECT_TRUE(dialogs.boxes.empty()) << "not within the key's event";
    loop.turn();
    EXPECT_EQ(dialogs.takeBoxes(), (std::vector<Box>{{"Exit Tarnvex?", "Confirm Exit", 36}}));
    QTest::keyClick(window, Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(window->isVisible());
  }
}

}  // namespace
}  // namespace tarnvex::test
