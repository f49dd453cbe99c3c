// Every entry of the menus of the real windows, and the texts of what it opens.
#include <QApplication>
#include <QFileDialog>
#include <QMenuBar>
#include <QTabBar>
#include <QTest>
#include <QTimer>

#include "desktop/window_fixture.h"
#include "desktop/windows/notices.h"
#include "platform/version.h"
#include "trunking/system_type_form.h"

namespace tarnvex::test {
namespace {

/// The texts that a window shows, title first, in the order of its widgets.
QStringList textsOf(const QWidget& window) {
  QStringList texts = {window.windowTitle()};
  for (const QWidget* widget : window.findChildren<QWidget*>()) {
    if (widget->isHidden()) {
      continue;
    }
    if (const auto* label = qobject_cast<const QLabel*>(widget)) {
      texts << label->text();
    } else if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
      texts << button->text();
    } else if (const auto* list = qobject_cast<const QListWidget*>(widget)) {
      if (list->count() > 0) {
        texts << QStringLiteral("[%1 ... %2]")
                     .arg(list->item(0)->text())
                     .arg(list->item(list->count() - 1)->text());
      }
    } else if (const auto* combo = qobject_cast<const QComboBox*>(widget)) {
      texts << QStringLiteral("[%1 of %2]").arg(combo->currentText()).arg(combo->count());
    }
  }
  texts.removeAll("");
  return texts;
}

template <class Form>
class MenusOf : public WindowTest<Form> {
 protected:
  /// The radio is in a mode in which both the transfers of IDs and the lockouts work.
  MenusOf() {
    this->form.Scantimer.setEnabled(false);
    this->form.panel.mode.setCaption("MD09");
    this->radio.answerAll("ERR", {{"IL", "END"}});
  }

  /// The texts of the window that an action opens. It is then closed with its own close button.
  QString open(const std::function<void()>& act) {
    QStringList seen;
    const auto look = [&] {
      for (QWidget* shown : QApplication::topLevelWidgets()) {
        if (!shown->isVisible() || shown == &this->window) {
          continue;
        }
        if (auto* file = qobject_cast<QFileDialog*>(shown)) {
          seen << "file: " + file->windowTitle();
          file->reject();
        } else if (auto* dialog = dynamic_cast<desktop::DialogWindow*>(shown)) {
          seen << shown->objectName() + ": " + textsOf(*shown).join(" | ");
          dialog->reject();
        } else {
          seen << shown->objectName() + ": " + shown->windowTitle();
          shown->close();
        }
      }
    };
    QTimer user;
    QObject::connect(&user, &QTimer::timeout, look);
    user.start(1);
    act();
    look();
    this->loop.turn();
    for (const Box& box : this->dialogs.takeBoxes()) {
      seen << "box: " + QString::fromStdString(box.text);
    }
    return seen.join("; ");
  }

  static QStringList expected(const QStringList& trunked, const QString& quickView) {
    const QString banks = "[A (1 to 30) ... J (271 to 300)] | ";
    return QStringList{
               "&File",
               "&New Frequency File... -> file: New Frequency File",
               "&Open Frequency File... -> file: Open Frequency File",
               "&Save Frequency File... -> file: Save Frequency File",
               "Open &Backup... -> file: Open Backup",
               "&Import from APF... -> file: Select APF File; Form7: Import APF File | Open APF "
               "File"
               " | Select All | Import Now | Cancel | Start Import at channel:",
               "&Export To APF... -> Form8: Export APF File | [1 0.0000- ... 300 0.0000-] | Open "
               "APF "
               "File"
               " | Select All | Export Now | Cancel | Start Export from Channel:",
               "E&xit -> box: Exit Tarnvex?",
               "&Conventional",
               "&Upload To Scanner... -> frmUpload: Upload Conventional Data"
               " | Select Bank(s) to Upload | " +
                   banks + "Upload Now | Select All | Cancel",
               "&Download From Scanner... -> frmDownload: Download Conventional Data"
               " | Select Bank(s) to Download | " +
                   banks + "Download Now | Select All | Cancel",
               "&Reset Scanner -> box: WARNING: ALL CHANNELS OF YOUR SCANNER WILL BE CLEARED!!! "
               "Continue?",
               "&Trunked"} +
           trunked +
           QStringList{"&View",
                       "&Quickview Window -> " + quickView,
                       "&Reception Log -> frmReceptionLog: Reception Log | [All of 5]"
                       " | [Both radios of 3] | Only with &recording | Keep a log of receptions"
                       " | Keep &for: | [1 year of 3] | &Export... | Clear...",
                       "&Help",
                       "Help on This &Page -> ",
                       "&Contents -> help: Tarnvex Help",
                       "&Search -> help: Tarnvex Help",
                       "Copy &Report -> ",
                       QString("&About... -> frmAbout: About Tarnvex | Tarnvex | Version: %1"
                               " | Computer Control Software for Uniden Bearcat Trunking Scanners"
                               " | Scanner:  | Serial No.  | Firmware Ver.  | OK")
                           .arg(platform::version())};
  }

  /// The entries of a menu and what they open. Questions are answered with No.
  QStringList entriesOf(QMenu* menu) {
    QStringList entries;
    for (QAction* entry : menu->actions()) {
      if (entry->isSeparator()) {
        continue;
      }
      this->dialogs.answers.clear();
      if (entry->text() == "E&xit" || entry->text() == "&Reset Scanner") {
        this->dialogs.answers = {platform::Answer::No};
      }
      entries << entry->text() + " -> " + open([entry] { entry->trigger(); });
    }
    return entries;
  }

  void expectMenus(const QStringList& trunked, const QString& quickView,
                   const std::string& lockouts) {
    QStringList found;
    for (QAction* menu : this->window.menuBar()->actions()) {
      found << menu->text() << entriesOf(menu->menu());
    }
    EXPECT_EQ(found.join('\n').toStdString(),
              expected(trunked, quickView).join('\n').toStdString());
    const auto holdLockout = [this] {
      QTest::keyClick(this->template find<QTabWidget>("SSTab1").tabBar(), 'L');
    };
    EXPECT_EQ(open(holdLockout).toStdString(),
              "frmLockouts: Search Skip Memory | " + lockouts + " | Done | Unlock All");
  }
};

using Bc895Menus = MenusOf<shell::Form4>;
using Bc245Menus = MenusOf<shell::Form2>;

TEST_F(Bc895Menus, OpenWhatTheySay) {
  const QString box =
      "box: The Trunked Frequency was not found. Tarnvex is unable to determine the scanner bank "
      "in use. Please check your station program and try again.";
  expectMenus({"&Upload to Scanner... -> " + box, "&Download From Scanner... -> " + box},
              "QuickView:  BC895xlt - Quick View",
              "To restore a locked out frequency or talkgroup, uncheck it in the list above, then "
              "click Done.");
}

TEST_F(Bc245Menus, OpenWhatTheySay) {
  const QString banks = "[1  (1 to 30) ... 10 (271 to 300)] | ";
  QString blocks;
  for (int block = 0; block < 8; ++block) {
    blocks += QStringLiteral(" | Block %1: | [S-11 of 16]").arg(block);
  }
  expectMenus({"&Upload to Scanner... -> frmUploadtrs: Upload Trunked Data"
               " | Select Bank(s) to Upload | " +
                   banks + "Upload Now | Select All | Cancel",
               "&Download From Scanner... -> frmDownloadtrs: Download Trunked Data"
               " | Select Bank(s) to Download | " +
                   banks +
                   "Download Now | Select All | Cancel"
                   " | Tarnvex should clear Alpha tags for ID's written to this bank.",
               "&Custom Fleet Map... -> Form5: Custom Fleet Map | Preset: | [E1-P1 of 16]" +
                   blocks + " | Bank: | [1 of 10] | Save Fleetmap | Done"},
              "Form9: Quick View - BC245xlt",
              // This radio answers "OK" here, which isn't an entry of the list.
              "Part of the list could not be read. The rest is shown, and Done changes nothing in "
              "the radio.");
}

TEST_F(Bc245Menus, WindowsThatTheProgramOpensHaveTheirTexts) {
  trunking::Form3 type({form.panel.Channel, form.MSFlexGrid1, state, link, gate, dialogs});
  const std::unique_ptr<QWidget> asked(desktop::makeSystemTypeDialog(type, gate, &window));
  type.Combo1.setListIndex(static_cast<int>(type.Combo1.items().size()) - 2);
  EXPECT_EQ(
      textsOf(*asked).join(" | ").toStdString(),
      "Select Trunking System Type | Select the type of trunking system you are programming "
      "into this bank. | [Motorola Type 2 VHF of 6] | Base Frequency: | Offset Step: | [ of 8] "
      "| Continue");
  windows.openNotice("Switch Scanners", "One Moment...");
  EXPECT_EQ(textsOf(*visibleWindow("Form6")).join(" | ").toStdString(),
            "Switch Scanners | One Moment...");
  const std::unique_ptr<QWidget> splash(desktop::makeSplash());
  EXPECT_EQ(textsOf(*splash).join(" | ").toStdString(),
            "Tarnvex | Tarnvex | Version 1.00 | Computer Control Software for Uniden Bearcat "
            "Trunking Scanners");
}

}  // namespace
}  // namespace tarnvex::test
