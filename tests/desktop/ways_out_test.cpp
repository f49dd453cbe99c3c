// What the user can leave a wait by: each of these ends a wait that has no time limit.
#include <QPushButton>
#include <QRadioButton>

#include "desktop/panel/radio_panel.h"
#include "desktop/window_fixture.h"
#include "trunking/system_type_form.h"

namespace tarnvex::test {
namespace {

template <class Form>
class WaysOut : public WindowTest<Form> {
 protected:
  WaysOut() {
    this->form.Scantimer.setEnabled(false);
    this->form.panel.mode.setCaption("MD09");
    this->radio.answerAll("ERR", {{"IL", "END"}});
  }
  /// Whether an act, while the core waits, ends a wait that has no limit. What the act
  /// would do is dropped.
  bool leaves(const std::function<void()>& act) {
    bool leaving = false;
    this->gate.enter([&] {
      act();
      leaving = this->gate.endsWaits();
      this->gate.dropUserEvents();
    });
    return leaving;
  }
  bool keyLeaves(int key) {
    auto& panel = this->template find<desktop::RadioPanel>("panel");
    return leaves([&] { emit panel.keyPressed(key, Qt::LeftButton); });
  }
  static QWidget& opened(const QString& name) {
    QWidget* window = visibleWindow(name);
    if (window == nullptr) {
      throw std::runtime_error(name.toStdString() + " isn't open");
    }
    return *window;
  }
  void expectButtonsLeave(QWidget& dialog) {
    for (auto* button : dialog.findChildren<QPushButton*>()) {
      button->setEnabled(true);
      EXPECT_TRUE(leaves([button] { button->click(); }))
          << dialog.objectName().toStdString() << " " << button->objectName().toStdString();
    }
  }
  void expectDialogLeaves(const QString& name) {
    QWidget& dialog = opened(name);
    expectButtonsLeave(dialog);
    EXPECT_TRUE(leaves([&] { dialog.close(); })) << name.toStdString();
  }
  void expectWindowLeaves() {
    EXPECT_TRUE(leaves([this] { this->window.close(); }));
    auto& controls = this->form.linkControls;
    auto& connect = this->template find<QPushButton>(controls.Command3);
    EXPECT_TRUE(leaves([&] { connect.click(); }));
    for (const auto* option : controls.options) {
      auto& button = this->template find<QRadioButton>(*option);
      EXPECT_TRUE(leaves([&] { button.click(); })) << option->name();
    }
    auto& device = this->template find<QComboBox>("Device1");
    EXPECT_TRUE(leaves([&] {
      emit device.activated(0);
      QCoreApplication::processEvents();
    }));
    this->form.mnuUpload();
    expectDialogLeaves("frmUpload");
    this->form.mnuExport();
    expectDialogLeaves("Form8");
    this->form.typeKey('L');
    expectDialogLeaves("frmLockouts");
    this->form.mnuAbout();
    expectDialogLeaves("frmAbout");
  }
};

using Bc895WaysOut = WaysOut<shell::Form4>;
using Bc245WaysOut = WaysOut<shell::Form2>;

TEST_F(Bc895WaysOut, EndAWait) {
  expectWindowLeaves();
  constexpr int kRemote = 4;
  constexpr int kScan = 10;
  EXPECT_TRUE(keyLeaves(kRemote));
  EXPECT_FALSE(keyLeaves(kScan)) << "waits for its turn";
  form.mnuQV();
  EXPECT_TRUE(leaves([this] { opened("QuickView").close(); }));
}

TEST_F(Bc245WaysOut, EndAWait) {
  expectWindowLeaves();
  form.mnuCustom();
  expectDialogLeaves("Form5");
  form.mnuOwnloadTrunk();
  expectDialogLeaves("frmDownloadtrs");
  trunking::Form3 type({form.panel.Channel, form.MSFlexGrid1, state, link, gate, dialogs});
  auto* dialog = desktop::makeSystemTypeDialog(type, gate, &window);
  expectButtonsLeave(*dialog);
  delete dialog;
  form.mnuQV();
  EXPECT_TRUE(leaves([this] { opened("Form9").close(); }));
}

}  // namespace
}  // namespace tarnvex::test
