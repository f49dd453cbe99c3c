#include <gtest/gtest.h>

#include <QApplication>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "desktop/ports/plan_file_dialog.h"
#include "desktop/ports/qt_dialogs.h"
#include "desktop/ports/qt_event_loop.h"
#include "desktop/ports/text.h"
#include "desktop/visible_window.h"

namespace tarnvex::test {
namespace {

using desktop::PlanFileDialog;
using platform::Answer;
using platform::MessageFlags;

/// Message boxes answered by a user who acts once the box is visible.
class DialogsTest : public testing::Test {
 protected:
  Answer ask(MessageFlags flags, const std::function<void(QMessageBox&)>& act) {
    QTimer user;
    QObject::connect(&user, &QTimer::timeout, [&] {
      if (auto* box = shown()) {
        user.stop();
        act(*box);
      }
    });
    user.start(1);
    const char* text = "Exit <b>Tarnvex</b>?";
    return destroys ? dialogs.askToDestroy(text, "Confirm Exit", flags)
                    : dialogs.messageBox(text, "Confirm Exit", flags);
  }
  static QMessageBox* shown() { return visibleWindow<QMessageBox>(); }

  desktop::QtEventLoop loop;
  platform::EventGate gate{loop};
  desktop::QtDialogs dialogs{gate};
  bool destroys = false;
};

TEST_F(DialogsTest, ShowsTheWordsAndReturnsTheButton) {
  struct Case {
    MessageFlags flags;
    QMessageBox::Icon icon;
    std::vector<std::pair<QMessageBox::StandardButton, Answer>> buttons;
    Answer escaped;
  };
  const auto yesNo = std::vector<std::pair<QMessageBox::StandardButton, Answer>>{
      {QMessageBox::Yes, Answer::Yes}, {QMessageBox::No, Answer::No}};
  const std::vector<Case> cases = {
      {platform::kErrorIcon, QMessageBox::Critical, {{QMessageBox::Ok, Answer::Ok}}, Answer::Ok},
      {platform::kYesNoQuestion, QMessageBox::Question, yesNo, Answer::No},
      {platform::kWarning, QMessageBox::Warning, {{QMessageBox::Ok, Answer::Ok}}, Answer::Ok},
      {platform::kOkCancelWarning,
       QMessageBox::Warning,
       {{QMessageBox::Ok, Answer::Ok}, {QMessageBox::Cancel, Answer::Cancel}},
       Answer::Cancel},
      {platform::kYesNoWarning, QMessageBox::Warning, yesNo, Answer::No},
  };
  for (const auto& [flags, icon, buttons, escaped] : cases) {
    SCOPED_TRACE(flags);
    for (const auto& [button, answer] : buttons) {
      EXPECT_EQ(ask(flags,
                    [&, button = button](QMessageBox& box) {
                      EXPECT_EQ(box.text(), "Exit <b>Tarnvex</b>?");
                      EXPECT_EQ(box.textFormat(), Qt::PlainText);
                      EXPECT_EQ(box.windowTitle(), "Confirm Exit");
                      EXPECT_EQ(box.icon(), icon);
                      EXPECT_EQ(box.buttons().size(), static_cast<qsizetype>(buttons.size()));
                      box.button(button)->click();
                    }),
                answer);
    }
    EXPECT_EQ(ask(flags, [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); }), escaped);
    EXPECT_EQ(ask(flags, [](QMessageBox& box) { box.close(); }), escaped);
    EXPECT_EQ(shown(), nullptr);
  }
}

TEST_F(DialogsTest, EnterAndEscapeNeverDestroy) {
  for (const MessageFlags flags : {platform::kYesNoQuestion, platform::kYesNoWarning}) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
      const auto press = [key](QMessageBox& box) { QTest::keyClick(&box, key); };
      destroys = true;
      EXPECT_EQ(ask(flags, press), Answer::No);
      destroys = false;
      EXPECT_EQ(ask(flags, press), key == Qt::Key_Escape ? Answer::No : Answer::Yes);
    }
  }
}

TEST_F(DialogsTest, ShowsFileNamesAndTextsInTheirLetters) {
  const std::pair<std::string, QString> cases[] = {
      {"/home/j\xC3\xB6rg/Pl\xC3\xA4n[*].tvf",
       QString::fromUtf8("/home/j\u00F6rg/Pl\u00E4n[*].tvf")},
      {"Delete search: M\xFCnchen?", QString::fromUtf8("Delete search: M\u00FCnchen?")},
  };
  for (const auto& [text, shown] : cases) {
    EXPECT_EQ(desktop::messageToScreen(text), shown);
  }
  EXPECT_EQ(desktop::titleToScreen("Tarnvex - [*].tvf"), "Tarnvex - [*][*].tvf");
}

TEST_F(DialogsTest, SaveAsksBeforeItReplacesAnotherFile) {
  const QTemporaryDir folder;
  for (const char* name : {"own.tvf", "other.tvf"}) {
    EXPECT_TRUE(QFile(folder.filePath(name)).open(QIODevice::WriteOnly));
  }
  const auto stays = [&](const char* name, void (PlanFileDialog::*act)(), Qt::Key key) {
    PlanFileDialog dialog(nullptr);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.askBeforeReplacing(folder.filePath("own.tvf"), folder.filePath("other.tvf"));
    dialog.selectFile(folder.filePath(name));
    dialog.show();
    (dialog.*act)();
    if (auto* question = dialog.findChild<QMessageBox*>("replaceBox")) {
      QTest::keyClick(question, key);
    }
    return dialog.isVisible();
  };
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
    EXPECT_TRUE(stays("other.tvf", &PlanFileDialog::accept, key));
    EXPECT_TRUE(stays("own.tvf", &PlanFileDialog::reject, key))
        << "Cancel goes on with the kept name";
    EXPECT_FALSE(stays("own.tvf", &PlanFileDialog::accept, key));
    EXPECT_FALSE(stays("fresh.tvf", &PlanFileDialog::accept, key));
  }
}

TEST_F(DialogsTest, SurvivesTheEndOfTheWindowBelow) {
  auto* window = new QWidget;
  window->show();
  QApplication::setActiveWindow(window);
  EXPECT_EQ(ask(platform::kYesNoWarning,
                [&](QMessageBox& box) {
                  EXPECT_EQ(box.parentWidget(), window);
                  delete window;
                }),
            Answer::No);
}

TEST_F(DialogsTest, KeepsTheCoreRunningDuringABoxAndEndsWithTheProgram) {
  platform::Timer poll{1};
  int ticks = 0;
  poll.onTick = [&] { ++ticks; };
  poll.setEnabled(true);
  Answer answer = Answer::Ok;
  gate.enter([&] {
    answer = ask(platform::kYesNoQuestion, [&](QMessageBox& box) {
      gate.enterTimer(poll);
      gate.enter([&] {
        EXPECT_EQ(ticks, 0) << "user events come before the poll";
        // A second box over the first one. The second is answered first.
        EXPECT_EQ(dialogs.messageBox("", "", platform::kYesNoQuestion), Answer::No);
        box.button(QMessageBox::Yes)->click();
      });
      QTimer::singleShot(0, &box, [&] {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
          if (widget != &box && widget->isVisible()) {
            widget->close();
          }
        }
      });
    });
  });
  EXPECT_EQ(answer, Answer::Yes);
  EXPECT_EQ(ticks, 1);

  EXPECT_EQ(ask(platform::kYesNoQuestion, [&](QMessageBox&) { gate.end(); }), Answer::No);
  EXPECT_EQ(dialogs.messageBox("", "", platform::kOkCancelWarning), Answer::Cancel);
  EXPECT_EQ(shown(), nullptr) << "no box once the program has ended";
}

TEST_F(DialogsTest, TheHourglassIsShownAndRemovedOnce) {
  for (int i = 0; i < 2; ++i) {
    dialogs.setBusyPointer(true);
  }
  ASSERT_NE(QApplication::overrideCursor(), nullptr);
  EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
  dialogs.setBusyPointer(false);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  dialogs.setBusyPointer(false);
}

}  // namespace
}  // namespace tarnvex::test
