#pragma once

#include <QDeadlineTimer>
#include <QObject>
#include <QPointer>
#include <QString>
#include <deque>
#include <random>
#include <string>

#include "desktop/noisy_line.h"
#include "desktop/program.h"

namespace tarnvex::test {

/// A widget's place, as the names of the widgets that contain it.
QString describeWidget(const QWidget* widget);

/// A user who acts at random: clicks, types, drags and closes whatever the windows offer, while the
/// radio changes its mode, its model and its faults. Events reach the windows as if from the window
/// system, so what is covered or blocked can't be reached. The monkey acts wherever the program
/// lets events in, even within an exchange. Its answers to file dialogs stay within `folder`.
///
/// At the end it waits until the poll works again, and closes the program.
class Monkey : public QObject {
 public:
  Monkey(desktop::Program& program, NoisyLine& line, QString folder, unsigned seed);

  /// Runs the program with this many events, and to its end.
  void play(int events);
  /// Its last actions, for the text of a failure.
  [[nodiscard]] std::string trail() const;

 protected:
  void timerEvent(QTimerEvent* event) override;

 private:
  int roll(int sides) { return static_cast<int>(random_() % static_cast<unsigned>(sides)); }
  bool chance(int oneIn) { return roll(oneIn) == 0; }
  template <class List>
  auto pick(const List& list) {
    return list[static_cast<std::size_t>(roll(static_cast<int>(std::size(list))))];
  }
  void note(const QString& what);

  void act();
  void trouble();
  void annoyWindow();
  void useMouse(QWidget* window);
  void mouse(const QPointer<QWidget>& window, const QPoint& where);
  void press(QWidget* window, const QPoint& where, Qt::MouseButton button);
  void release(QWidget* window, const QPoint& where, Qt::MouseButton button);
  void click(const QPointer<QWidget>& window, const QPoint& where, Qt::MouseButton button);
  void sendMouse(QWidget* window, const QPoint& where, Qt::MouseButton button, QEvent::Type type);
  void type(const QPointer<QWindow>& window, int key, const QString& text,
            Qt::KeyboardModifiers held);
  void wheel(QWidget* widget, const QPoint& where);
  void useKeyboard(QWidget* window);
  void usePanel();
  void openMenu();
  void answer(QWidget* dialog);
  void answerBox(QWidget* box);
  /// Brings the main window back and closes the program.
  void leave();
  void recover();

  [[nodiscard]] shell::MainForm* form() const { return program_.application.mainForm(); }
  [[nodiscard]] QWidget* anyWindow();
  /// The state of the program, for the text of a failure.
  [[nodiscard]] QString describeProgram() const;

  desktop::Program& program_;
  NoisyLine& line_;
  QString folder_;
  std::mt19937 random_;
  int left_ = 0;
  /// The window system's time, in milliseconds.
  int time_ = 0;
  Qt::MouseButtons held_;
  int timer_ = 0;
  const shell::MainForm* watched_ = nullptr;
  platform::Connection ticks_;
  /// Ticks of the poll since the random events ended. -1 before that.
  int calmTicks_ = -1;
  QDeadlineTimer patience_;
  std::deque<std::string> trail_;
};

}  // namespace tarnvex::test
