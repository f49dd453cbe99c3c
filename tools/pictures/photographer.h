#pragma once

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QBitmap>
#include <QClipboard>
#include <QComboBox>
#include <QDeadlineTimer>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QProcess>
#include <QTabWidget>
#include <QTableView>
#include <QTimer>
#include <array>
#include <cstdio>
#include <functional>

#include "desktop/program.h"

namespace tarnvex::pictures {

using desktop::Program;

inline constexpr int kLookMilliseconds = 20;
inline constexpr int kShotMilliseconds = 30000;
/// How long the window is left alone before the picture is taken.
inline constexpr int kCalmMilliseconds = 700;

/// The pages of a main window, from left to right.
enum Tab { kStation, kTrunked, kOptions, kHits };

/// One picture: what is sent to the radio, what the user does once `ready` is true, and what is
/// taken once `shown` is. Without a widget to take, it only prepares the next picture.
struct Shot {
  QString file;
  QByteArray radio;
  std::function<bool()> ready;
  std::function<void()> act;
  std::function<bool()> shown;
  std::function<QWidget*()> what;
  /// If it isn't 0, only this much of the height is taken.
  int height = 0;
  /// For a window that is large by itself.
  QSize size{};
};

/// Takes the pictures of its list one after the other, and then ends the program. `main` creates
/// one.
class Photographer {
 public:
  /// `whole` is the size of the windows for pictures of whole windows. If it is invalid, the
  /// manual's pictures are taken.
  Photographer(Program& program, const QString& folder, const QString& pipe, const QSize& whole)
      : program_(program), folder_(folder), radio_(pipe), whole_(whole) {
    if (!radio_.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
      std::fputs("The radio's pipe can't be opened.\n", stderr);
    }
    if (whole_.isValid()) {
      listWindows();
    } else {
      listShots();
    }
    QObject::connect(&look_, &QTimer::timeout, [this] { look(); });
    look_.start(kLookMilliseconds);
    patience_.setRemainingTime(kShotMilliseconds);
  }

  [[nodiscard]] bool done() const { return at_ == shots_.size(); }
  /// The window with that name, if it is shown.
  static QWidget* window(const QString& name);

 private:
  void listShots();
  void listDesk();
  void listHits();
  void listHandHeld();
  void add(std::initializer_list<Shot> shots) { shots_.insert(shots_.end(), shots); }
  void listWindows();
  void addPages(const QString& radio, const QByteArray& first);
  /// A window that comes up by what the user does, or by the command of that name.
  void addWindow(const QString& radio, const char* name, std::function<void()> act);
  void addDialog(const QString& radio, const char* action, const char* name);
  /// What the user does without a picture. The next shot comes once `done` is true.
  void addStep(std::function<void()> act, std::function<bool()> done);
  void addReturn(const char* main);
  void addFindBar();
  void addLockouts();
  void addSystemType();
  void addClipboard();
  void look();
  void act(const Shot& shot);
  void take(const Shot& shot);
  void save(const Shot& shot);
  void startReader(const Shot& shot);
  /// Whether the reader is still at the last window. Ends the program if it has found a fault.
  [[nodiscard]] bool isRead();
  [[nodiscard]] bool isSized();
  void leave();

  [[nodiscard]] tarnvex::shell::MainForm* form() const { return program_.application.mainForm(); }
  [[nodiscard]] bool tagHolds(const char* text) const {
    const auto* desk = dynamic_cast<tarnvex::shell::Form4*>(form());
    const auto* hand = dynamic_cast<tarnvex::shell::Form2*>(form());
    const auto* panel = desk != nullptr   ? &desk->panel.Alpha
                        : hand != nullptr ? &hand->panel.Alpha
                                          : nullptr;
    return panel != nullptr && panel->caption().find(text) != std::string::npos;
  }
  [[nodiscard]] bool isUpright() const {
    return dynamic_cast<tarnvex::shell::Form2*>(form()) != nullptr;
  }
  /// Conditions, deeds and places for the list of shots.
  [[nodiscard]] std::function<bool()> onDesk() const {
    return [this] { return dynamic_cast<tarnvex::shell::Form4*>(form()) != nullptr; };
  }
  [[nodiscard]] std::function<bool()> tagged(const char* tag) const {
    return [this, tag] { return tagHolds(tag); };
  }
  [[nodiscard]] std::function<void()> page(Tab tab) const {
    return [this, tab] { show(tab); };
  }
  [[nodiscard]] std::function<QWidget*()> whole(const char* name) const {
    return [this, name] { return find(name); };
  }
  [[nodiscard]] std::function<QWidget*()> frame(const char* control) const {
    return [this, control] { return frameOf(control); };
  }
  /// The next functions do what a user does.
  void show(Tab tab) const {
    form()->SSTab1.setTab(tab);
    program_.windows.mainWindow()->resize(whole_.isValid() ? whole_ : QSize(kWidth, kHeight));
  }
  template <class Widget = QWidget>
  [[nodiscard]] Widget* find(const char* name) const {
    auto* window = program_.windows.mainWindow();
    return window == nullptr ? nullptr : window->findChild<Widget*>(name);
  }
  /// The frame of the "Options" page that contains a control.
  [[nodiscard]] QWidget* frameOf(const char* name) const {
    auto* widget = find(name);
    return widget == nullptr ? nullptr : widget->parentWidget();
  }
  void choose(const char* action) const { find<QAction>(action)->trigger(); }
  void tickBanks() const;
  void showTicked(const char* name) const;
  static QWidget* withBanks(QWidget* dialog);
  void openLockouts() const;
  void openSampleLog() const;
  static bool logIsShown();
  static void closeAll();

  /// The width at which the manual shows the pictures.
  static constexpr int kWidth = 720;
  static constexpr int kHeight = 450;
  static constexpr QSize kUpright{840, 600};
  static constexpr int kTableHeight = 240;

  Program& program_;
  QString folder_;
  QFile radio_;
  QSize whole_;
  QTimer look_;
  QDeadlineTimer patience_;
  /// Reads each window on the accessibility bus, if TARNVEX_READER names one: READER PID FILE.
  QProcess reader_;
  std::vector<Shot> shots_;
  std::size_t at_ = 0;
  bool acted_ = false;
  std::optional<QDeadlineTimer> calm_;
};

}  // namespace tarnvex::pictures
