// The ways into a text box: it takes only what its model takes, by each of them.
#include <gtest/gtest.h>

#include <QAbstractSpinBox>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDropEvent>
#include <QInputDialog>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QTest>
#include <QTimer>

#include "desktop/ports/qt_dialogs.h"
#include "desktop/window_fixture.h"

namespace tarnvex::test {
namespace {

struct Way {
  const char* name;
  std::function<void(QLineEdit&, const QString&)> put;
};

void drop(QLineEdit& box, const QString& text) {
  QMimeData data;
  data.setText(text);
  const QPoint at = box.rect().center();
  QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&box, &enter);
  QDropEvent event(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&box, &event);
}

const Way kWays[] = {
    {"typed",
     [](QLineEdit& box, const QString& text) {
       for (const QChar character : text) {
         QKeyEvent key(QEvent::KeyPress, 0, Qt::NoModifier, QString(character));
         QApplication::sendEvent(&box, &key);
       }
     }},
    {"pasted",
     [](QLineEdit& box, const QString& text) {
       QApplication::clipboard()->setText(text);
       QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
     }},
    {"context menu",
     [](QLineEdit& box, const QString& text) {
       QApplication::clipboard()->setText(text);
       const std::unique_ptr<QMenu> menu(box.createStandardContextMenu());
       for (QAction* entry : menu->actions()) {
         if (entry->text().startsWith("&Paste")) {
           entry->trigger();
         }
       }
     }},
    {"dropped", drop},
    {"input method",
     [](QLineEdit& box, const QString& text) {
       QInputMethodEvent event;
       event.setCommitString(text);
       QApplication::sendEvent(&box, &event);
     }},
};

TEST_F(Bc895Window, ALimitTakesOnlyWhatItsModelTakes) {
  openTab(2);
  auto& model = form.customSearch.LLimit;
  auto& box = find<QLineEdit>(model);
  struct Case {
    QString text;
    std::string typed;
    std::string atOnce;
  };
  const Case cases[] = {
      {"155.5", "155.5", "155.5"},    {"abc", "", ""},   {"1\u4E2D2", "12", ""},
      {" 155.5\n", "155.5", "155.5"}, {"1,5", "15", ""},
  };
  for (const auto& [name, put] : kWays) {
    for (const auto& [text, typed, atOnce] : cases) {
      SCOPED_TRACE(std::string(name) + " " + text.toStdString());
      const std::string& taken = name == std::string("typed") ? typed : atOnce;
      radio.answerAll("OK");
      model.setText("");
      state.LowerLimitEditing = false;
      box.setFocus(Qt::TabFocusReason);
      put(box, text);
      EXPECT_EQ(model.text(), taken);
      EXPECT_EQ(box.text().toStdString(), model.text());
      EXPECT_EQ(state.LowerLimitEditing, !taken.empty()) << "the poll leaves the box alone";
    }
  }
}

TEST_F(Bc245Window, AnImportsStartTakesDigitsAlone) {
  form.mnuExport();
  QWidget* dialog = visibleWindow("Form8");
  ASSERT_NE(dialog, nullptr);
  QLineEdit& box = *dialog->findChild<QLineEdit*>("Text1");
  for (const auto& [name, put] : kWays) {
    SCOPED_TRACE(name);
    box.clear();
    put(box, "x-");
    EXPECT_EQ(box.text(), "");
    put(box, "12");
    EXPECT_EQ(box.text(), "12");
  }
}

TEST_F(Bc895Window, ASearchsNameTakesOnlyWhatItsFileCanHold) {
  desktop::QtDialogs real(gate);
  for (const auto& [name, put] : kWays) {
    SCOPED_TRACE(name);
    QTimer user;
    QObject::connect(&user, &QTimer::timeout, [&user, &put = put] {
      for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (auto* box = qobject_cast<QInputDialog*>(widget); box != nullptr && box->isVisible()) {
          user.stop();
          put(*box->findChild<QLineEdit*>(), QString::fromUtf8("M\u00FCnchen"));
          put(*box->findChild<QLineEdit*>(), QString::fromUtf8("\u4E2D"));
          box->accept();
        }
      }
    });
    user.start(1);
    EXPECT_EQ(real.inputBox("Name", "Tarnvex"), "M\xFCnchen");
  }
}

TEST_F(Bc895Window, ALimitIsSelectedWhenTheUserEntersIt) {
  openTab(2);
  window.activateWindow();
  auto& model = form.customSearch.LLimit;
  auto& box = find<QLineEdit>(model);
  auto& other = find<QLineEdit>(form.customSearch.Ulimit);
  model.setText("151.5");
  const auto enter = [&](Qt::FocusReason reason) {
    other.setFocus();
    box.deselect();
    box.setCursorPosition(2);
    box.setFocus(reason);
    return box.selectedText();
  };
  EXPECT_EQ(enter(Qt::TabFocusReason), "151.5");
  EXPECT_EQ(enter(Qt::BacktabFocusReason), "151.5");
  EXPECT_EQ(enter(Qt::OtherFocusReason), "151.5") << "Enter in the other limit";
  for (const auto reason :
       {Qt::ActiveWindowFocusReason, Qt::PopupFocusReason, Qt::MenuBarFocusReason}) {
    EXPECT_EQ(enter(reason), "") << reason;
    EXPECT_EQ(box.cursorPosition(), 2);
  }
  // The first click selects, the second sets the cursor.
  other.setFocus();
  box.deselect();
  QTest::mouseClick(&box, Qt::LeftButton, {}, {5, box.height() / 2});
  loop.turn();
  EXPECT_EQ(box.selectedText(), "151.5");
  QTest::qWait(0);
  QTest::mouseClick(&box, Qt::LeftButton, {}, {5, box.height() / 2});
  loop.turn();
  EXPECT_EQ(box.selectedText(), "");
}

TEST_F(Bc895Window, ALimitTakesKeysInTheirOrderWhileTheCoreIsBusy) {
  openTab(2);
  auto& model = form.customSearch.LLimit;
  auto& box = find<QLineEdit>(model);
  QApplication::clipboard()->setText("55");
  model.setText("851.0");
  gate.enter([&] {
    box.setFocus(Qt::TabFocusReason);
    for (const auto& [code, held] : {std::pair{Qt::Key_1, Qt::NoModifier},
                                     {Qt::Key_V, Qt::ControlModifier},
                                     {Qt::Key_7, Qt::NoModifier},
                                     {Qt::Key_Home, Qt::NoModifier},
                                     {Qt::Key_Delete, Qt::NoModifier}}) {
      QTest::keyClick(&box, code, held);
    }
  });
  EXPECT_EQ(model.text(), "557");
}

/// The wheel over each box that hasn't the focus.
void expectTheWheelToChangeNothing(QWidget& window) {
  int boxes = 0;
  for (QWidget* box : window.findChildren<QWidget*>()) {
    auto* combo = qobject_cast<QComboBox*>(box);
    if (combo == nullptr && qobject_cast<QAbstractSpinBox*>(box) == nullptr) {
      continue;
    }
    const int before = combo != nullptr ? combo->currentIndex() : 0;
    box->clearFocus();
    for (const int turn : {-120, 120}) {
      QWheelEvent event(box->rect().center(), box->mapToGlobal(box->rect().center()), {}, {0, turn},
                        Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
      QApplication::sendEvent(box, &event);
      EXPECT_FALSE(event.isAccepted()) << box->objectName().toStdString();
    }
    EXPECT_EQ(combo != nullptr ? combo->currentIndex() : 0, before);
    ++boxes;
  }
  EXPECT_GE(boxes, 8);
}

TEST_F(Bc895Window, TheWheelChangesNoBoxWithoutTheFocus) {
  expectTheWheelToChangeNothing(window);
}

TEST_F(Bc245Window, TheWheelChangesNoBoxWithoutTheFocus) {
  expectTheWheelToChangeNothing(window);
}

}  // namespace
}  // namespace tarnvex::test
