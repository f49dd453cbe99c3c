// The monkey's use of mouse, keyboard and dialogs.
#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QInputDialog>
#include <QMenuBar>
#include <QMessageBox>
#include <QTest>
#include <QWheelEvent>

#include "desktop/monkey.h"

namespace tarnvex::test {
namespace {

/// The time between two clicks that aren't a double click, in milliseconds.
constexpr int kApart = 2000;
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
    note("mouse on " + describeWidget(widget) + text(where));
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
  note("wheel on " + describeWidget(widget));
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

}  // namespace tarnvex::test
