#include "desktop/program_rig.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPushButton>

namespace tarnvex::test {

RadioProcess::RadioProcess(const QStringList& arguments) {
  process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  process_.start(QStringLiteral(TARNVEX_RADIO), arguments + QStringList{"--control"});
  EXPECT_TRUE(process_.waitForReadyRead(10000)) << "no radio";
  EXPECT_TRUE(process_.readLine().startsWith("ready "));
}

RadioProcess::~RadioProcess() {
  process_.write("quit\n");
  process_.closeWriteChannel();
  EXPECT_TRUE(process_.waitForFinished(10000));
  const QByteArray said = process_.readAll();
  EXPECT_FALSE(said.contains("error:")) << said.constData();
}

void RadioProcess::say(const QByteArray& line) {
  process_.write(line + '\n');
  process_.waitForBytesWritten(1000);
}

QByteArray RadioProcess::ask(const QByteArray& key) {
  process_.readAll();
  say("state");
  QByteArray said;
  while (!(said.contains("\nterminal=") && said.endsWith("ok\n")) &&
         process_.waitForReadyRead(5000)) {
    said += process_.readAll();
  }
  const auto at = said.indexOf('\n' + key + '=');
  return at < 0 ? QByteArray() : said.mid(at + key.size() + 2).split('\n').first();
}

namespace {

/// Prepares the program's folder, with settings in which the radio's line is COM 1. Returns the
/// settings' path.
QString settingsIn(const QTemporaryDir& folder) {
  const QString path = folder.filePath("Tarnvex.conf");
  QFile searches(folder.filePath("Searchlist.txt"));
  EXPECT_TRUE(searches.open(QIODevice::WriteOnly));
  desktop::IniSettings(path).saveSetting("Ports", "COM1", folder.filePath("line").toStdString());
  return path;
}

}  // namespace

ProgramRig::ProgramRig(const QStringList& radioArguments)
    : radio(radioArguments + QStringList{"--link", folder.filePath("line")}),
      program(settingsIn(folder), folder.path()) {}

void ProgramRig::play(std::vector<Step> steps) {
  steps_ = std::move(steps);
  steps_.push_back({"leave", [this] { return form() != nullptr && box() == nullptr; },
                    [this] { program.windows.mainWindow()->close(); }});
  steps_.push_back(
      {"the exit question", boxShows("Confirm Exit"), [this] { press(QMessageBox::Yes); }});
  at_ = 0;
  deadline_.setRemainingTime(stepMilliseconds);
  QTimer watch;
  QObject::connect(&watch, &QTimer::timeout, [this] { look(); });
  watch.start(lookMilliseconds);
  EXPECT_EQ(program.run(), 0);
  EXPECT_EQ(at_, steps_.size());
}

void ProgramRig::look() {
  QMessageBox* shown = box();
  if (shown != seen_ && shown != nullptr && boxStands("Scanner Not Responding")) {
    ++silences;
  }
  seen_ = shown;
  if (form() != watched_ && form() != nullptr) {
    watched_ = form();
    ++mainWindows;
    connections_.push_back(form()->Scantimer.finished.connect([this] { ++ticks_; }));
  }
  if (at_ >= steps_.size() || acting_) {
    return;
  }
  if (!steps_[at_].when()) {
    if (deadline_.hasExpired()) {
      fail("timed out waiting for: " + steps_[at_].name);
    }
    return;
  }
  deadline_.setRemainingTime(stepMilliseconds);
  // An action may turn the loop for a long time, in which the conditions must be checked. A timer
  // wouldn't fire within its own signal.
  acting_ = true;
  QMetaObject::invokeMethod(
      &context_,
      [this, &step = steps_[at_]] {
        acting_ = false;
        ++at_;
        step.then();
      },
      Qt::QueuedConnection);
}

void ProgramRig::fail(const std::string& why) {
  ADD_FAILURE() << why << "\n" << picture();
  at_ = steps_.size();
  program.gate.end();
  if (form() != nullptr) {
    form()->MSComm1->close();
  }
  program.loop.leave();
}

std::string ProgramRig::picture() const {
  std::string text = "mode " + program.state.CurrentMode + "\n";
  for (const auto& line : panelLines()) {
    text += line + "\n";
  }
  if (box() != nullptr) {
    text += "box: " + box()->text().toStdString();
  }
  return text;
}

bool ProgramRig::isBc895() const {
  return dynamic_cast<shell::Form4*>(form()) != nullptr;
}

monitor::PanelState& ProgramRig::panel() const {
  return dynamic_cast<shell::Form4&>(*form()).panel;
}

std::vector<std::string> ProgramRig::panelLines() const {
  if (const auto* desk = dynamic_cast<shell::Form4*>(form())) {
    return monitor::describe(desk->panel);
  }
  const auto* handheld = dynamic_cast<shell::Form2*>(form());
  return handheld != nullptr ? monitor::describe(handheld->panel) : std::vector<std::string>();
}

bool ProgramRig::shows(const std::string& line) const {
  const auto lines = panelLines();
  return std::ranges::find(lines, line) != lines.end();
}

QMessageBox* ProgramRig::box() const {
  return visibleWindow<QMessageBox>();
}

bool ProgramRig::boxStands(const char* title) const {
  return box() != nullptr && box()->windowTitle() == QLatin1String(title);
}

void ProgramRig::press(QMessageBox::StandardButton button) const {
  box()->button(button)->click();
}

void ProgramRig::connectAgain() const {
  program.windows.mainWindow()->findChild<QPushButton*>("Command3")->click();
}

std::function<bool()> ProgramRig::bc895(const std::string& line) {
  return [this, line] { return isBc895() && shows(line); };
}

std::function<bool()> ProgramRig::panelShows(const std::string& line) {
  return [this, line] { return shows(line); };
}

std::function<bool()> ProgramRig::boxShows(const char* title) {
  return [this, title] { return boxStands(title); };
}

std::function<bool()> ProgramRig::polled() {
  return [this, from = std::optional<int>()]() mutable {
    if (!from) {
      from = ticks_;
    }
    return ticks_ >= *from + 5;
  };
}

}  // namespace tarnvex::test
