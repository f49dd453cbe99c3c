// All 300 channels to a radio at 9600 baud and back, through the whole program's dialogs, beside
// what the bytes and the radio's thinking time need.
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QPushButton>

#include "bench/full_plan.h"
#include "bench/line.h"
#include "bench/measure.h"
#include "desktop/program_rig.h"

namespace tarnvex::bench {
namespace {

class TransferRun {
 public:
  explicit TransferRun(const RadioModel& model) : rig_(radioAt9600(model, {"--log", log_})) {
    // Looks at the program too often would count as its own work.
    rig_.lookMilliseconds = 100;
    rig_.stepMilliseconds = 120000;
  }

  void play(Table& table, const std::string& model) {
    std::vector<test::Step> steps = {{"scanning", rig_.panelShows("Frequency: Scanning"), [this] {
                                        fillPlan(rig_.form()->MSFlexGrid1,
                                                 rig_.form()->MSFlexGrid2);
                                        watchThePoll();
                                      }}};
    double upload = 0;
    double download = 0;
    transfer(steps, "mnuUpload", upload);
    transfer(steps, "mnuDownload", download);
    steps.push_back({"over", after(0), [this] { rig_.program.state.MemoryModified = false; }});
    rig_.play(steps);
    report(table, model + " upload of 300 channels", upload,
           lineTimeBetween(log_, kFirst, "MA001"));
    report(table, model + " download of 300 channels", download,
           lineTimeBetween(log_, "PM001", "PM300"));
  }

 private:
  /// The program stops its poll where a transfer begins and starts it again where it ends.
  void watchThePoll() {
    connection_ = rig_.form()->Scantimer.changed.connect([this] {
      if (!rig_.form()->Scantimer.enabled()) {
        begun_ = Clock::now();
      } else {
        length_ = millisecondsSince(begun_);
      }
    });
  }

  void transfer(std::vector<test::Step>& steps, const char* menu, double& length) {
    steps.push_back(
        {menu, rig_.polled(), [this, menu] {
           length_ = 0;
           rig_.program.windows.mainWindow()->findChild<QAction*>(QLatin1String(menu))->trigger();
         }});
    steps.push_back({"dialog", [] { return dialog() != nullptr; },
                     [] {
                       dialog()->findChild<QPushButton*>("Command3")->click();
                       dialog()->findChild<QPushButton*>("Command1")->click();
                     }});
    steps.push_back(
        {"transferred", [] { return dialog() == nullptr; }, [this, &length] { length = length_; }});
  }

  static QDialog* dialog() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      if (widget->objectName() == QLatin1String("BankDialog") && widget->isVisible()) {
        return qobject_cast<QDialog*>(widget);
      }
    }
    return nullptr;
  }

  static void report(Table& table, const std::string& what, double measured, double line) {
    table.note(what, measured, "ms");
    table.note(what + ": what the line needs", line, "ms");
    table.atLeast(what + " / what the line allows", line / measured, 0.98);
  }

  /// The first channel of the full plan.
  static constexpr const char* kFirst = "PM001 01500125";

  QTemporaryDir folder_;
  QString log_ = folder_.filePath("log");
  test::ProgramRig rig_;
  platform::Connection connection_;
  Clock::time_point begun_;
  double length_ = 0;
};

}  // namespace

void benchTransfer(Table& table) {
  for (const RadioModel& model : kModels) {
    TransferRun(model).play(table, model.name);
  }
}

}  // namespace tarnvex::bench
