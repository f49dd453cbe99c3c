#pragma once

#include <QDeadlineTimer>
#include <QObject>
#include <QPointer>
#include <QString>
#include <atomic>
#include <deque>
#include <mutex>
#include <random>
#include <string>

#include "desktop/noisy_line.h"
#include "desktop/program.h"

namespace tarnvex::test {

/// Where a widget is, by the names of the widgets that contain it.
QString describeWidget(const QWidget* widget);

/// A user who acts at random: clicks, types, drags and closes whatever the windows offer, while the
/// radio changes its mode, its model and its faults. Events go to the windows as the window system
/// delivers them, so what is covered or blocked can't be reached. It acts wherever the program lets
/// events in, also amid an exchange, and gives dialogs answers that stay within `folder`.
///
/// Then it waits until the poll works again, and leaves.
class Monkey : public QObject {
 public:
  Monkey(desktop::Program& program, NoisyLine& line, QString folder, unsigned seed);

  /// Runs the program to its end, with that many events.
  void play(int events);
  /// What it did last, for a failure's text.
  [[nodiscard]] std::string trail();
  /// Goes on with each event: whether the program still lives.
  std::atomic<int> beats = 0;

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
  /// Back to where a radio can be seen, then out.
  void leave();
  void recover();

  [[nodiscard]] shell::MainForm* form() const { return program_.application.mainForm(); }
  [[nodiscard]] QWidget* anyWindow();
  /// The state of the program, for a failure's text.
  [[nodiscard]] QString stand() const;

  desktop::Program& program_;
  NoisyLine& line_;
  QString folder_;
  std::mt19937 random_;
  int left_ = 0;
  /// Of the window system, in milliseconds.
  int time_ = 0;
  Qt::MouseButtons held_;
  int timer_ = 0;
  const shell::MainForm* watched_ = nullptr;
  platform::Connection ticks_;
  /// Ticks of the poll since it calmed down, -1 before.
  int calmTicks_ = -1;
  QDeadlineTimer patience_;
  std::mutex trailLock_;
  std::deque<std::string> trail_;
};

}  // namespace tarnvex::test
