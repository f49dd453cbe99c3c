#pragma once

#include <gtest/gtest.h>

#include <QComboBox>
#include <QTest>

#include "desktop/reception_log/reception_window.h"
#include "desktop/window_fixture.h"
#include "log_file.h"

namespace tarnvex::desktop {

inline constexpr int kRows = 100'000;
inline constexpr qint64 kLast = 1'700'000'000'000;

/// The log's window, with a log of its own and a BC895XLT's main form.
class ReceptionLogWindow : public testing::Test, protected test::Below {
 protected:
  ReceptionLogWindow() {
    qputenv("TZ", "Europe/Berlin");
    tzset();
    file = folder.filePath("receptions.db");
    receptionStore.path = file.toStdString();
  }

  void open(int rows) {
    if (rows > 0) {
      test::makeLog(file, rows, kLast);
    }
    window = std::make_unique<ReceptionWindow>(form, gate, nullptr);
    window->show();
    settle();
  }
  ReceptionModel& model() { return window->model(); }
  /// Waits until everything that was asked for has come.
  void settle() {
    const auto calm = [this] {
      return model().counted() && (model().rowCount() == 0 || cell(0, ReceptionModel::Time) != "");
    };
    EXPECT_TRUE(loop.waitUntil(calm, QDeadlineTimer(20000)));
  }
  QString cell(int row, int column) {
    return model().data(model().index(row, column), Qt::DisplayRole).toString();
  }
  /// The text of a cell, which may have to be fetched first.
  QString fetched(int row, int column) {
    EXPECT_TRUE(loop.waitUntil([&] { return model().row(row) != nullptr; }, QDeadlineTimer(20000)));
    return cell(row, column);
  }
  template <class Widget>
  Widget& find(const char* name) {
    auto* found = window->findChild<Widget*>(name);
    EXPECT_NE(found, nullptr) << name;
    return *found;
  }
  void filter(const QString& text) {
    find<QLineEdit>("filter").setText(text);
    loop.waitUntil([this] { return !model().counted(); }, QDeadlineTimer(5000));
    settle();
  }
  void say(const QString& statement) {
    ReceptionDatabase log(file, ReceptionDatabase::Access::Write);
    ASSERT_TRUE(log.run(statement)) << log.error().toStdString();
    receptionStore.changed.notify();
  }

  QString file;
  shell::Form4 main{services, outside};
  memory::ChannelMemory memory{{main.MSFlexGrid1, main.MSFlexGrid2, main.SSTab1},
                               state,
                               dialogs,
                               link::bc895Model(),
                               [this](const std::string& command) { sent.push_back(command); }};
  std::vector<std::string> sent;
  shell::frmReceptionLog form{receptions, memory, dialogs};
  std::unique_ptr<ReceptionWindow> window;
};

}  // namespace tarnvex::desktop
