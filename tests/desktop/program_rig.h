#pragma once

#include <QMessageBox>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "desktop/program.h"
#include "desktop/visible_window.h"
#include "platform/non_copyable.h"

namespace tarnvex::test {

/// A tarnvex-radio process, controlled by control lines. The test fails if it refuses one.
class RadioProcess : private platform::NonCopyable {
 public:
  explicit RadioProcess(const QStringList& arguments);
  ~RadioProcess();

  void say(const QByteArray& line);
  /// A value of the radio's state.
  [[nodiscard]] QByteArray ask(const QByteArray& key);

 private:
  QProcess process_;
};

/// A condition, such as something being shown, and what the user or the radio does then.
struct Step {
  std::string name;
  std::function<bool()> when;
  std::function<void()> then = [] {};
};

/// The whole program with its windows, and a simulated radio. `play` runs it as main does and
/// carries out the steps. Conditions are checked every few milliseconds from outside the core,
/// wherever the core is. At the end it closes the program as a user does, so every test also covers
/// that.
class ProgramRig {
 public:
  explicit ProgramRig(const QStringList& radioArguments = {"--baud", "0", "--scene", "quiet"});

  void play(std::vector<Step> steps);

  [[nodiscard]] shell::MainForm* form() const { return program.application.mainForm(); }
  /// The panel of a BC895XLT.
  [[nodiscard]] monitor::PanelState& panel() const;
  [[nodiscard]] bool isBc895() const;
  /// Whether the panel of either radio, as text, has this line.
  [[nodiscard]] bool shows(const std::string& line) const;
  [[nodiscard]] QMessageBox* box() const;
  [[nodiscard]] bool boxStands(const char* title) const;
  void press(QMessageBox::StandardButton button) const;
  void connectAgain() const;

  /// Conditions.
  std::function<bool()> bc895(const std::string& line);
  std::function<bool()> panelShows(const std::string& line);
  std::function<bool()> boxShows(const char* title);
  /// True once the poll has run a few times since the first check.
  std::function<bool()> polled();

  /// The time between two checks of the conditions.
  int lookMilliseconds = 2;
  /// The time limit of a step, far more than it needs even on a busy machine.
  int stepMilliseconds = 20000;
  /// The number of notices of silence in the whole run.
  int silences = 0;
  /// The number of main windows that have opened.
  int mainWindows = 0;

  QTemporaryDir folder;
  RadioProcess radio;
  desktop::Program program;

 private:
  void look();
  void fail(const std::string& why);
  [[nodiscard]] std::vector<std::string> panelLines() const;
  [[nodiscard]] std::string picture() const;

  std::vector<Step> steps_;
  std::size_t at_ = 0;
  bool acting_ = false;
  QObject context_;
  QDeadlineTimer deadline_;
  QMessageBox* seen_ = nullptr;
  int ticks_ = 0;
  std::vector<platform::Connection> connections_;
  const shell::MainForm* watched_ = nullptr;
};

}  // namespace tarnvex::test
