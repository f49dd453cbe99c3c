#include "desktop/monkey.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QInputDialog>
#include <QMenuBar>
#include <QMessageBox>
#include <QTest>
#include <QWheelEvent>

namespace tarnvex::test {
namespace {

constexpr std::size_t kTrail = 40;
/// Beyond a double click, in milliseconds.
constexpr int kApart = 2000;
constexpr int kTicksOfCalm = 5;
/// A transfer of all banks waits for the radio for half a minute.
constexpr int kPatienceMilliseconds = 60000;

constexpr const char* kModes[] = {"MD00", "MD01", "MD02", "MD03", "MD04", "MD05", "MD06",
                                  "MD07", "MD08", "MD09", "MD10", "MD11", "MD12", "MD13",
                                  "MD14", "MD15", "MD16", "MD17", "MD18", "MD20"};
constexpr const char* kScenes[] = {"city", "busy", "steady", "tour", "quiet"};
constexpr const char* kStrays[] = {"",         "ERR", "MD07", "ID B001616", "SI BC245XLT",
                                   "\xFE\xFF", "NG"};
/// Names for files, saved searches and devices; the last ones can't be opened.
constexpr const char* kNames[] = {"a.tvf",          "b.tvf", "c.apf",           "Searchlist.txt",
                                  "none/there.tvf", "",      "with blanks.apf", "\xD0\x96"};
constexpr Qt::Key kKeys[] = {Qt::Key_Tab,    Qt::Key_Backtab, Qt::Key_Return, Qt::Key_Enter,
                             Qt::Key_Escape, Qt::Key_Delete,  Qt::Key_Up,     Qt::Key_Down,
                             Qt::Key_Left,   Qt::Key_Right,   Qt::Key_Home,   Qt::Key_End,
                             Qt::Key_PageUp, Qt::Key_Space,   Qt::Key_Menu,   Qt::Key_Backspace,
                             Qt::Key_F1,     Qt::Key_F10};
constexpr Qt::Key kCommands[] = {Qt::Key_A, Qt::Key_C, Qt::Key_V, Qt::Key_X, Qt::Key_Z, Qt::Key_Y};
constexpr char16_t kCharacters[] =
    u"0123456789012345678901234567890123456789....\r\rEsmplhirwdtcPLTABCDEFGHIJxX "
    u"-\"qQ~\u00E4\u20AC\u6F22";

QString describe(const QWidget* widget) {
  QString name;
  for (; widget != nullptr; widget = widget->parentWidget()) {
    const QString own = widget->objectName();
    name.prepend('/' + (own.isEmpty() ? widget->metaObject()->className() : own));
  }
  return name;
}

QString textOf(int key) {
  switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return QStringLiteral("\r");
    case Qt::Key_Space:
      return QStringLiteral(" ");
    case Qt::Key_Backspace:
      return QStringLiteral("\b");
    case Qt::Key_Tab:
      return QStringLiteral("\t");
    default:
      return {};
  }
}

QString text(const QPoint& point) {
  return QStringLiteral(" %1,%2").arg(point.x()).arg(point.y());
}

}  // namespace

Monkey::Monkey(desktop::Program& program, NoisyLine& line, QString folder, unsigned seed)
    : program_(program), line_(line), folder_(std::move(folder)), random_(seed) {
  line_.leaving = [this] { return program_.gate.leaving(); };
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

std::string Monkey::trail() {
  const std::scoped_lock lock(trailLock_);
  std::string text = "mode " + program_.state.CurrentMode + ", done last:\n";
  for (const auto& line : trail_) {
    text += "  " + line + "\n";
  }
  return text;
}

void Monkey::note(const QString& what) {
  const std::scoped_lock lock(trailLock_);
  trail_.push_back(std::to_string(left_) + " " + what.toStdString());
  if (trail_.size() > kTrail) {
    trail_.pop_front();
  }
}

/// Each event has a timer of its own, since one doesn't fire again within its own event, and what
/// an event starts may turn the loop for long.
void Monkey::timerEvent(QTimerEvent* event) {
  killTimer(event->timerId());
  timer_ = startTimer(0);
  if (form() == nullptr) {
    return;
  }
  ++beats;
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
  const QStringList faults = {"cut 0", "cut 2", "garble 1",    "garble 20",      "8bit 3",
                              "join",  "split", "delay 400 2", "wrong-length 4", "wrong-length -2"};
  switch (roll(12)) {
    case 0:
      note("silence");
      line_.faults.set("silence", {"after", std::to_string(roll(30))});
      break;
    case 1:
      note("hang-up");
      line_.hangUp();
      break;
    case 2:
    case 3:
    case 4:
    case 5: {
      const QStringList words = pick(faults).split(' ');
      std::vector<std::string> arguments;
      for (const QString& word : words.mid(1)) {
        arguments.push_back(word.toStdString());
      }
      note("fault " + words.join(' '));
      line_.faults.set(words[0].toStdString(), arguments);
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
        note("close " + describe(other));
        other->close();
      }
  }
}

void Monkey::useMouse(QWidget* window) {
  if (window == nullptr) {
    return;
  }
  QWidgetList widgets;
  for (QWidget* widget : window->findChildren<QWidget*>()) {
    if (widget->isVisible() && widget->window() == window && !widget->visibleRegion().isEmpty()) {
      widgets << widget;
    }
  }
  QWidget* widget = widgets.isEmpty() ? window : pick(widgets);
  QRect area = widget->visibleRegion().boundingRect();
  if (auto* bar = qobject_cast<QTabBar*>(widget)) {
    area = bar->tabRect(roll(bar->count()));
  }
  if (area.isEmpty()) {
    return;
  }
  const QPoint where = area.topLeft() + QPoint(roll(area.width()), roll(area.height()));
  if (chance(12)) {
    wheel(widget, where);
  } else {
    note("mouse on " + describe(widget) + text(where));
    mouse(window, widget->mapTo(window, where));
  }
}

void Monkey::mouse(const QPointer<QWidget>& window, const QPoint& where) {
  if (window->windowHandle() == nullptr || !window->rect().contains(where)) {
    return;
  }
  const Qt::MouseButton buttons[] = {Qt::LeftButton, Qt::LeftButton,  Qt::LeftButton,
                                     Qt::LeftButton, Qt::RightButton, Qt::MiddleButton};
  const Qt::MouseButton button = pick(buttons);
  const int what = roll(8);
  if (what == 0) {
    press(window, where, button);
  } else if (what == 1) {
    release(window, where, button);
  } else if (what == 2) {
    sendMouse(window, where, Qt::NoButton, QEvent::MouseMove);
  } else {
    click(window, where, button);
    if (what == 3) {
      time_ -= kApart - 100;
      click(window, where, button);
    }
  }
}

void Monkey::press(QWidget* window, const QPoint& where, Qt::MouseButton button) {
  time_ += kApart;
  held_ |= button;
  sendMouse(window, where, button, QEvent::MouseButtonPress);
}

void Monkey::release(QWidget* window, const QPoint& where, Qt::MouseButton button) {
  held_ &= ~Qt::MouseButtons(button);
  sendMouse(window, where, button, QEvent::MouseButtonRelease);
}

void Monkey::click(const QPointer<QWidget>& window, const QPoint& where, Qt::MouseButton button) {
  if (window) {
    press(window, where, button);
  }
  if (window) {
    release(window, where, button);
  }
}

void Monkey::sendMouse(QWidget* window, const QPoint& where, Qt::MouseButton button,
                       QEvent::Type type) {
  if (QWindow* handle = window->windowHandle()) {
    qt_handleMouseEvent(handle, where, handle->mapToGlobal(where), held_, button, type,
                        chance(8) ? Qt::ControlModifier : Qt::NoModifier, ++time_);
  }
}

void Monkey::type(const QPointer<QWindow>& window, int key, const QString& text,
                  Qt::KeyboardModifiers held) {
  for (const auto kind : {QEvent::KeyPress, QEvent::KeyRelease}) {
    if (window) {
      qt_handleKeyEvent(window, kind, key, held, text);
    }
  }
}

void Monkey::wheel(QWidget* widget, const QPoint& where) {
  if (QApplication::activeModalWidget() != nullptr) {
    return;
  }
  note("wheel on " + describe(widget));
  QWheelEvent event(where, widget->mapToGlobal(where), {}, {0, chance(2) ? 120 : -120},
                    Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(widget, &event);
}

void Monkey::usePanel() {
  QWidget* window = program_.windows.mainWindow();
  auto* panel = window == nullptr ? nullptr : window->findChild<desktop::RadioPanel*>("panel");
  if (panel == nullptr || !panel->isVisible()) {
    return;
  }
  const int keys = static_cast<int>(panel->layoutData().keys.size());
  const int which = roll(keys + 3);
  const QRect target = which < keys    ? panel->keyRect(which)
                       : which == keys ? panel->elementRect("Frequency")
                                       : panel->knobRect();
  note(QStringLiteral("panel, place %1").arg(which));
  mouse(window, panel->mapTo(window, target.center()));
}

void Monkey::useKeyboard(QWidget* window) {
  QWidget* modal = QApplication::activeModalWidget();
  if (window == nullptr || window->windowHandle() == nullptr ||
      (modal != nullptr && modal->windowTitle() == "Confirm Exit")) {
    return;
  }
  if (!window->isActiveWindow() && chance(2)) {
    window->activateWindow();
  }
  QWindow* handle = window->windowHandle();
  const int what = roll(20);
  if (what < 12) {
    const QChar character = pick(std::u16string_view(kCharacters));
    note("type U+" + QString::number(character.unicode(), 16));
    type(handle, character == '\r' ? int(Qt::Key_Return) : character.toUpper().unicode(), character,
         Qt::NoModifier);
  } else if (what < 18) {
    const Qt::Key key = pick(kKeys);
    note("key " + QString::number(key, 16));
    type(handle, key, textOf(key), chance(8) ? Qt::ShiftModifier : Qt::NoModifier);
  } else {
    const Qt::Key key = pick(kCommands);
    note("key Ctrl+" + QString::number(key, 16));
    type(handle, key, QChar(key - Qt::Key_A + 1), Qt::ControlModifier);
  }
}

void Monkey::openMenu() {
  auto* window = program_.windows.mainWindow();
  if (window == nullptr) {
    return;
  }
  QMenuBar* bar = window->menuBar();
  note("menu");
  const QRect title = bar->actionGeometry(pick(bar->actions()));
  mouse(window, bar->mapTo(window, title.center()));
}

void Monkey::answer(QWidget* dialog) {
  const QString name = pick(kNames);
  if (qobject_cast<QMessageBox*>(dialog) != nullptr) {
    answerBox(dialog);
  } else if (auto* file = qobject_cast<QFileDialog*>(dialog)) {
    note("choose file " + name);
    file->findChild<QLineEdit*>("fileNameEdit")->setText(folder_ + '/' + name);
    QDialog* dialogOfFile = file;
    chance(3) ? dialogOfFile->reject() : dialogOfFile->accept();
  } else if (auto* input = qobject_cast<QInputDialog*>(dialog)) {
    note("input " + name);
    input->setTextValue(chance(4) ? '"' + name + '"' : name);
    chance(3) ? input->reject() : input->accept();
  } else if (auto* colour = qobject_cast<QColorDialog*>(dialog)) {
    note("colour");
    colour->setCurrentColor(QColor::fromRgb(static_cast<QRgb>(random_())));
    chance(3) ? colour->reject() : colour->accept();
  } else {
    useMouse(dialog);
  }
}

void Monkey::answerBox(QWidget* widget) {
  auto* box = static_cast<QMessageBox*>(widget);
  QAbstractButton* button = box->button(QMessageBox::No);
  if (box->windowTitle() != "Confirm Exit" || button == nullptr) {
    button = pick(box->buttons());
  }
  note("box \"" + box->windowTitle() + "\": " + button->text());
  if (chance(4)) {
    type(box->windowHandle(), Qt::Key_Escape, "", Qt::NoModifier);
  } else {
    click(box, button->mapTo(box, button->rect().center()), Qt::LeftButton);
  }
}

void Monkey::recover() {
  note("connect");
  line_.plugIn();
  line_.faults.clear();
  line_.anyBaud = true;
  const char* name = form()->MSComm1->commPort() > 2 ? "Option1" : "Command3";
  if (auto* button = program_.windows.mainWindow()->findChild<QAbstractButton*>(name)) {
    button->click();
  }
}

QString Monkey::stand() const {
  QString text = QStringLiteral("port %1, poll %2, core %3")
                     .arg(form()->MSComm1->portOpen())
                     .arg(form()->Scantimer.enabled())
                     .arg(program_.gate.busy());
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible()) {
      text += ", " + describe(window) + " \"" + window->windowTitle() + '"';
    }
  }
  return text;
}

void Monkey::leave() {
  if (calmTicks_ < 0) {
    note("calms down");
    calmTicks_ = 0;
    patience_.setRemainingTime(kPatienceMilliseconds);
    line_.faults.clear();
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
    ADD_FAILURE() << "the program can't be left: " << stand().toStdString() << "\n" << trail();
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
    // Also out of a wait for the rest of a line that never comes.
    recover();
  }
}

}  // namespace tarnvex::test
