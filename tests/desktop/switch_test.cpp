// The radio is exchanged while the program runs.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <filesystem>
#include <fstream>
#include <map>

#include "desktop/program_rig.h"

namespace tarnvex::test {
namespace {

auto openHandles() {
  const std::filesystem::directory_iterator handles("/proc/self/fd");
  return std::distance(begin(handles), end(handles));
}

int mainWindows() {
  int count = 0;
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    count += dynamic_cast<desktop::MainWindow*>(widget) != nullptr ? 1 : 0;
  }
  return count;
}

TEST(Switch, ExchangesTheWindowsAgainAndAgainAndLosesNothing) {
  ProgramRig rig;
  const auto bc245 = [&rig] {
    return rig.form() != nullptr && !rig.isBc895() && rig.program.state.ModelKey == "BC245" &&
           rig.form()->Scantimer.enabled();
  };
  std::ptrdiff_t handles = 0;
  std::vector<Step> steps = {
      {"a BC895XLT", rig.bc895("Frequency: Scanning"), [&] { handles = openHandles(); }}};
  for (int round = 0; round < 6; ++round) {
    steps.insert(steps.end(),
                 {{"still there", rig.polled(), [&] { rig.radio.say("become bc245"); }},
                  {"a BC245XLT", bc245},
                  {"its poll", rig.polled(),
                   [&] {
                     EXPECT_EQ(rig.program.windows.mainWindow()->objectName(), "Form2");
                     EXPECT_EQ(rig.program.state.ModelKey, "BC245");
                     rig.radio.say("become bc895");
                   }},
                  {"a BC895XLT again", rig.bc895("Frequency: Scanning")},
                  {"all tidied up",
                   [&] {
                     return mainWindows() == 1 && openHandles() <= handles &&
                            QApplication::overrideCursor() == nullptr;
                   },
                   [&] {
                     EXPECT_EQ(rig.program.windows.mainWindow()->objectName(), "Form4");
                     EXPECT_EQ(openHandles(), handles);
                   }}});
  }
  rig.play(steps);
  EXPECT_EQ(rig.silences, 0);
}

TEST(Switch, HappensOutOfAnIdLoopOnceTheModeIsLeft) {
  ProgramRig rig;
  rig.play(
      {{"scanning", rig.bc895("Frequency: Scanning"), [&] { rig.radio.say("mode MD07"); }},
       {"ID search", rig.bc895("Frequency: - -   - - -"), [&] { rig.radio.say("become bc245"); }},
       {"the other window", [&] { return rig.form() != nullptr && !rig.isBc895(); },
        [&] { rig.radio.say("become bc895"); }},
       {"home", [&] { return rig.isBc895() && rig.form()->Scantimer.enabled(); }}});
}

/// The files of the user in a folder, with their bytes. Settings and the log go on by themselves.
std::map<QString, QByteArray> filesIn(const QString& folder) {
  std::map<QString, QByteArray> found;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.toStdString())) {
    const QString path = QString::fromStdString(entry.path().string());
    if (entry.is_regular_file() && !path.contains("Tarnvex.conf") && !path.contains("receptions")) {
      QFile file(path);
      EXPECT_TRUE(file.open(QIODevice::ReadOnly));
      found[path] = file.readAll();
    }
  }
  return found;
}

bool dialogIsOpen() {
  return std::ranges::any_of(QApplication::topLevelWidgets(), [](QWidget* widget) {
    return widget->isVisible() && qobject_cast<QDialog*>(widget) != nullptr;
  });
}

void giveCommand(ProgramRig& rig, const char* name) {
  auto* window = rig.program.windows.mainWindow();
  if (name == nullptr) {
    window->close();
  } else if (auto* action = window->findChild<QAction*>(name)) {
    action->trigger();
  } else {
    // The BC895XLT has no fleet maps, but a colour to choose.
    rig.program.gate.enter([form = rig.form(), colour = std::string_view(name) == "mnuCustom"] {
      colour ? dynamic_cast<shell::Form4&>(*form).chooseDisplayColour()
             : form->customSearch.Command4.userClick();
    });
  }
}

TEST(Switch, WithdrawsWhateverIsOpenAndTouchesNoFile) {
  ProgramRig rig;
  for (const char* key : {"BC895", "BC245"}) {
    const std::string path = rig.folder.filePath(QString(key) + ".tvf").toStdString();
    std::ofstream(path) << "1,\"half a plan of the " << key;
    rig.program.settings.saveSetting(key, "LastFreqFile", path);
  }
  const auto files = filesIn(rig.folder.path());
  const std::vector<const char*> commands = {
      "mnuNew",         "mnuOpenConv",     "mnuSaveConv", "mnuOpenBackup",
      "mnuImport",      "mnuExport",       "mnuUpload",   "mnuDownload",
      "mnuUploadTrunk", "mnuOwnloadTrunk", "mnuCustom",   "Save Search",
      "mnuReset",       "mnuReceptions",   "mnuAbout",    nullptr};
  const auto onOther = [&rig](bool bc895) {
    return [&rig, bc895] {
      return rig.form() != nullptr && rig.isBc895() == bc895 && rig.form()->Scantimer.enabled() &&
             !rig.program.state.SwitchingScanners;
    };
  };
  std::vector<Step> steps = {{"a BC895XLT", rig.bc895("Frequency: Scanning")}};
  bool bc895 = true;
  for (std::size_t i = 0; i < 2 * commands.size(); ++i) {
    // Each command once on either radio.
    const char* name = commands[(i + i / commands.size()) % commands.size()];
    const std::string what = name == nullptr ? "closing" : name;
    steps.push_back({what, rig.polled(), [&rig, name] { giveCommand(rig, name); }});
    steps.push_back({what + " has opened something", dialogIsOpen, [&rig, bc895] {
                       // A download sets it, even if it is refused.
                       rig.program.state.MemoryModified = false;
                       rig.radio.say(bc895 ? "become bc245" : "become bc895");
                     }});
    bc895 = !bc895;
    steps.push_back({"the other radio after " + what, onOther(bc895), [&rig, &files, what] {
                       EXPECT_FALSE(dialogIsOpen()) << what;
                       EXPECT_EQ(mainWindows(), 1) << what;
                       EXPECT_TRUE(filesIn(rig.folder.path()) == files) << what;
                     }});
  }
  rig.play(steps);
}

}  // namespace
}  // namespace tarnvex::test
