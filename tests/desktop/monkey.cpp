#include "desktop/monkey.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QMessageBox>

namespace tarnvex::test {
namespace {

constexpr std::size_t kTrail = 40;
constexpr int kTicksOfCalm = 5;
/// A transfer of all banks waits for the radio for half a minute.
constexpr int kPatienceMilliseconds = 60000;

constexpr const char* kModes[] = {"MD00", "MD01", "MD02", "MD03", "MD04", "MD05", "MD06",
                                  "MD07", "MD08", "MD09", "MD10", "MD11", "MD12", "MD13",
                                  "MD14", "MD15", "MD16", "MD17", "MD18", "MD20"};
constexpr const char* kScenes[] = {"city", "busy", "steady", "tour", "quiet"};
constexpr const char* kStrays[] = {"",         "ERR", "MD07", "ID B001616", "SI BC245XLT",
                                   "\xFE\xFF", "NG"};

}  // namespace

QString describeWidget(const QWidget* widget) {
  QString name;
  for (; widget != nullptr; widget = widget->parentWidget()) {
    const QString own = widget->objectName();
    name.prepend('/' + (own.isEmpty() ? widget->metaObject()->className() : own));
  }
  return name;
}

Monkey::Monkey(desktop::Program& program, NoisyLine& line, QString folder, unsigned seed)
    : program_(program), line_(line), folder_(std::move(folder)), random_(seed) {
  line_.leaving = [this] { return program_.gate.endsWaits(); };
  line_.meanwhile = [this] {
    if (chance(8)) {
      program_.loop.turn();
    }
  };
}

void Monkey::play(int events) {
  left_ = events;
  timer_ = startTimer(0);
  EXPECT_EQ(program_.run(), 0);
  EXPECT_LE(left_, 0) << "the program ended by itself";
  EXPECT_EQ(calmTicks_, kTicksOfCalm);
}

std::string Monkey::trail() const {
  std::string text = "mode " + program_.state.CurrentMode + ", done last:\n";
  for (const auto& line : trail_) {
    text += "  " + line + "\n";
  }
  return text;
}

void Monkey::note(const QString& what) {
  trail_.push_back(std::to_string(left_) + " " + what.toStdString());
  if (trail_.size() > kTrail) {
    trail_.pop_front();
  }
}

/// Each event has a timer of its own. A single timer wouldn't fire within its own event, which may
/// turn the loop for a long time.
void Monkey::timerEvent(QTimerEvent* event) {
  killTimer(event->timerId());
  timer_ = startTimer(0);
  if (form() == nullptr) {
    return;
  }
  if (left_ > 0) {
    --left_;
    act();
  } else {
    leave();
  }
}

void Monkey::act() {
  if (chance(60)) {
    trouble();
  }
  if (form()->MSComm1->portOpen() == false && chance(150)) {
    recover();
    return;
  }
  if (QWidget* popup = QApplication::activePopupWidget()) {
    chance(3) ? useKeyboard(popup) : useMouse(popup);
    return;
  }
  if (QWidget* modal = QApplication::activeModalWidget(); modal != nullptr && chance(2)) {
    answer(modal);
    return;
  }
  const int what = roll(100);
  if (what < 30) {
    usePanel();
  } else if (what < 60) {
    useKeyboard(anyWindow());
  } else if (what < 95) {
    useMouse(anyWindow());
  } else if (what < 98) {
    openMenu();
  } else {
    annoyWindow();
  }
}

void Monkey::trouble() {
  const QStringList faults = {
      "cut 0", "cut 2",      "garble 1",          "garble 20",          "8bit 3",
      "join",  "split",      "delay 400 2",       "wrong-length 4",     "wrong-length -2",
      "slow",  "extra echo", "extra id before 3", "extra copy late 30", "extra noise after"};
  switch (roll(12)) {
    case 0:
      note("silence");
      line_.line.faults().set("silence after " + std::to_string(roll(30)));
      break;
    case 1:
      note("hang-up");
      line_.hangUp();
      break;
    case 2:
    case 3:
    case 4:
    case 5: {
      const QString fault = pick(faults);
      note("fault " + fault);
      line_.line.faults().set(fault.toStdString());
      break;
    }
    case 6:
      note("stray line");
      line_.stray(pick(kStrays));
      break;
    case 7:
      if (chance(3)) {
        note("another radio");
        line_.radio.become(line_.radio.state().model == radio::Model::BC895XLT
                               ? radio::Model::BC245XLT
                               : radio::Model::BC895XLT);
      }
      break;
    case 8:
      line_.radio.playScene(pick(kScenes));
      break;
    default: {
      const char* mode = pick(kModes);
      note(QStringLiteral("mode ") + mode);
      line_.radio.setMode(mode);
    }
  }
}

QWidget* Monkey::anyWindow() {
  QWidgetList windows;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window->windowHandle() != nullptr &&
        qobject_cast<QFileDialog*>(window) == nullptr &&
        qobject_cast<QColorDialog*>(window) == nullptr && window->windowTitle() != "Confirm Exit") {
      windows << window;
    }
  }
  QWidget* main = program_.windows.mainWindow();
  return windows.isEmpty() || (main != nullptr && chance(2)) ? main : pick(windows);
}

void Monkey::annoyWindow() {
  QWidget* window = program_.windows.mainWindow();
  if (window == nullptr) {
    return;
  }
  switch (roll(6)) {
    case 0:
      note("close");
      window->close();
      break;
    case 1:
      note("resize");
      window->resize(600 + roll(900), 400 + roll(700));
      break;
    case 2:
      note("minimise or restore");
      window->isMinimized() ? window->showNormal() : window->showMinimized();
      break;
    case 3:
      note("palette");
      QApplication::setPalette(QPalette(chance(2) ? QColor(Qt::lightGray) : QColor(43, 43, 45)));
      break;
    default:
      if (QWidget* other = anyWindow(); other != window && other != nullptr) {
        note("close " + describeWidget(other));
        other->close();
      }
  }
}

void Monkey::recover() {
  note("connect");
  line_.plugIn();
  line_.line.faults().clear();
  line_.anyBaud = true;
  const char* name = form()->MSComm1->commPort() > 2 ? "Option1" : "Command3";
  if (auto* button = program_.windows.mainWindow()->findChild<QAbstractButton*>(name)) {
    button->click();
  }
}

QString Monkey::describeProgram() const {
  QString text = QStringLiteral("port %1, poll %2, core %3")
                     .arg(form()->MSComm1->portOpen())
                     .arg(form()->Scantimer.enabled())
                     .arg(program_.gate.busy());
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible()) {
      text += ", " + describeWidget(window) + " \"" + window->windowTitle() + '"';
    }
  }
  return text;
}

void Monkey::leave() {
  if (calmTicks_ < 0) {
    note("calms down");
    calmTicks_ = 0;
    patience_.setRemainingTime(kPatienceMilliseconds);
    line_.line.faults().clear();
    line_.radio.playScene("quiet");
    line_.radio.setMode("MD00");
    recover();
  }
  if (form() != watched_) {
    watched_ = form();
    ticks_ = form()->Scantimer.finished.connect(
        [this] { calmTicks_ = std::min(calmTicks_ + 1, kTicksOfCalm); });
  }
  if (patience_.hasExpired()) {
    ADD_FAILURE() << "the program can't be closed: " << describeProgram().toStdString() << "\n"
                  << trail();
    program_.gate.end();
    form()->MSComm1->close();
    program_.loop.leave();
  } else if (QWidget* popup = QApplication::activePopupWidget()) {
    popup->close();
  } else if (QWidget* modal = QApplication::activeModalWidget()) {
    auto* box = qobject_cast<QMessageBox*>(modal);
    const bool exits = modal->windowTitle() == "Confirm Exit" && calmTicks_ == kTicksOfCalm;
    if (auto* button =
            box == nullptr ? nullptr : box->button(exits ? QMessageBox::Yes : QMessageBox::No)) {
      button->click();
    } else {
      modal->close();
    }
  } else if (calmTicks_ == kTicksOfCalm) {
    program_.windows.mainWindow()->close();
  } else if (!form()->MSComm1->portOpen() || chance(400)) {
    // Also ends a wait for the rest of a line that never comes.
    recover();
  }
}

}  // namespace tarnvex::test
