// Transfers of whole banks to a radio at 9600 baud and back, with the dialogs of the whole program,
// compared with the time that the bytes and the radio's thinking take.
#include <QAction>
#include <QApplication>
#include <QListWidget>
#include <QPushButton>

#include "bench/full_plan.h"
#include "bench/line.h"
#include "bench/measure.h"
#include "desktop/program_rig.h"

namespace tarnvex::bench {
namespace {

class TransferRun {
 public:
  TransferRun(const Radio& radio, int banks)
      : banks_(banks), rig_(radioAt9600(radio, {"--log", log_})) {
    // Checking the program too often would count as its own work.
    rig_.lookMilliseconds = 100;
    rig_.stepMilliseconds = 120000;
  }

  void play(Table& table, const std::string& model) {
    std::vector<test::Step> steps = {
        {"scanning", rig_.panelShows("Frequency: Scanning"),
         [this] { fillPlan(rig_.form()->MSFlexGrid1, rig_.form()->MSFlexGrid2); }}};
    transfer(steps, "mnuUpload");
    transfer(steps, "mnuDownload");
    steps.push_back({"over", after(0), [this] { rig_.program.state.MemoryModified = false; }});
    rig_.play(steps);
    const int channels = banks_ * 30;
    const std::string what = " of " + std::to_string(channels) + " channels";
    // An upload ends by selecting channel 1 again.
    report(table, model + " upload" + what, stretchBetween(log_, "PM001 01500125", "MA001"));
    report(table, model + " download" + what,
           stretchBetween(log_, "PM001", QStringLiteral("PM%1").arg(channels, 3, 10, QChar('0'))));
  }

 private:
  void transfer(std::vector<test::Step>& steps, const char* menu) {
    steps.push_back(
        {menu, rig_.polled(), [this, menu] {
           rig_.program.windows.mainWindow()->findChild<QAction*>(QLatin1String(menu))->trigger();
         }});
    steps.push_back({"dialog", [] { return dialog() != nullptr; },
                     [this] {
                       auto* list = dialog()->findChild<QListWidget*>();
                       for (int bank = 0; bank < banks_; ++bank) {
                         list->item(bank)->setSelected(true);
                       }
                       dialog()->findChild<QPushButton*>("Command1")->click();
                     }});
    steps.push_back({"transferred", [] { return dialog() == nullptr; }});
  }

  static desktop::DialogWindow* dialog() { return test::visibleWindow<desktop::DialogWindow>(); }

  static void report(Table& table, const std::string& what, const Stretch& stretch) {
    table.note(what, stretch.measured, "ms");
    table.note(what + ": line time", stretch.line, "ms");
    table.atLeast(what + " / what the line allows", stretch.line / stretch.measured, 0.98);
  }

  int banks_;
  QTemporaryDir folder_;
  QString log_ = folder_.filePath("log");
  test::ProgramRig rig_;
};

}  // namespace

void benchTransfer(Table& table) {
  for (const Radio& radio : kRadios) {
    TransferRun(radio, table.choose(10, 1)).play(table, radio.name);
  }
}

}  // namespace tarnvex::bench
