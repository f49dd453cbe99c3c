// Sends a plan to the radio and back, with the real windows and a real line.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "desktop/program_rig.h"
#include "memory/plan_records.h"
#include "support/sample_plan.h"

namespace tarnvex::test {
namespace {

using memory::ChannelRecord;

void click(QDialog* dialog, const char* button) {
  dialog->findChild<QPushButton*>(QLatin1String(button))->click();
}

class TransferTest : public testing::TestWithParam<const char*> {
 protected:
  platform::Table& table() { return rig.form()->MSFlexGrid1; }
  void fill(const std::function<std::vector<std::string>(int row)>& cellsOf) {
    for (int row = 1; row <= ChannelRecord::kRows; ++row) {
      const auto cells = cellsOf(row);
      for (int col = 1; col < ChannelRecord::kColumns; ++col) {
        table().setTextMatrix(row, col, cells[static_cast<std::size_t>(col - 1)]);
      }
    }
  }
  void expect(const std::function<std::vector<std::string>(int row)>& cellsOf) {
    for (int row = 1; row <= ChannelRecord::kRows; ++row) {
      std::vector<std::string> cells;
      for (int col = 1; col < ChannelRecord::kColumns; ++col) {
        cells.push_back(table().textMatrix(row, col));
      }
      ASSERT_EQ(cells, cellsOf(row)) << row;
    }
  }

  void choose(const char* menu) {
    rig.program.windows.mainWindow()->findChild<QAction*>(QLatin1String(menu))->trigger();
  }
  /// Adds the steps of a transfer of all banks. `then` runs after them.
  void transfer(const char* menu, std::function<void()> then) {
    const QString form = QString(menu).replace("mnu", "frm");
    steps.push_back({menu, rig.polled(), [this, menu] { choose(menu); }});
    steps.push_back({"dialog", [form] { return visibleWindow<QDialog>(form) != nullptr; },
                     [form] {
                       click(visibleWindow<QDialog>(form), "Command3");
                       click(visibleWindow<QDialog>(form), "Command1");
                     }});
    steps.push_back({"transferred",
                     [this, form] {
                       answerForm3();
                       return visibleWindow<QDialog>(form) == nullptr;
                     },
                     std::move(then)});
  }
  /// Chooses EDACS, and for every other bank a type with a base frequency.
  void answerForm3() {
    QDialog* form = visibleWindow<QDialog>("Form3");
    if (form == nullptr || !form->findChild<QPushButton*>("Command1")->isEnabled()) {
      return;
    }
    auto* type = form->findChild<QComboBox*>("Combo1");
    QTest::keyClick(type, Qt::Key_End);
    if (systemTypesAsked++ % 2 == 1) {
      QTest::keyClick(type, Qt::Key_Up);
      QTest::keyClicks(form->findChild<QLineEdit*>("BFText"), "151.25");
    }
    click(form, "Command1");
  }

  ProgramRig rig{{"--model", GetParam(), "--baud", "0", "--scene", "quiet"}};
  std::vector<Step> steps;
  int systemTypesAsked = 0;
};

TEST_P(TransferTest, APlanComesBackWhole) {
  // A radio without tones doesn't send any, so the plan's tones stay.
  const std::string tone = GetParam() == std::string("bc245") ? "" : "?";
  const auto tagOnly = [&](int row) {
    return std::vector<std::string>{"1.0", "?", "?", "?", "?", tone, channelOf(row).back()};
  };
  const auto empty = [](int row) {
    return std::vector<std::string>{"0.0000", " ", " ", "X", " ", "", channelOf(row).back()};
  };
  steps.push_back({"scanning", rig.panelShows("Frequency: Scanning"), [&] { fill(channelOf); }});
  for (int round = 0; round < 2; ++round) {
    transfer("mnuUpload", [&] { fill(tagOnly); });
    transfer("mnuDownload", [&] {
      expect(channelOf);
      fill(tagOnly);
      choose("mnuReset");
    });
    steps.push_back(
        {"reset", rig.boxShows("Confirm Scanner Reset"), [&] { rig.press(QMessageBox::Yes); }});
    transfer("mnuDownload", [&] {
      expect(empty);
      fill(channelOf);
    });
  }
  steps.push_back({"over", rig.polled(), [&] {
                     EXPECT_EQ(rig.program.state.MemoryModified, true);
                     rig.program.state.MemoryModified = false;
                   }});
  rig.play(steps);
  EXPECT_EQ(rig.silences, 0);
  EXPECT_EQ(systemTypesAsked, GetParam() == std::string("bc245") ? 20 : 0);
}

INSTANTIATE_TEST_SUITE_P(BothRadios, TransferTest, testing::Values("bc895", "bc245"));

}  // namespace
}  // namespace tarnvex::test
