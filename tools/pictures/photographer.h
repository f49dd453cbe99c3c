#pragma once

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QBitmap>
#include <QDeadlineTimer>
#include <QFile>
#include <QListWidget>
#include <QTimer>
#include <array>
#include <cstdio>
#include <functional>

#include "desktop/program.h"

namespace tarnvex::pictures {

using desktop::Program;

inline constexpr int kLookMilliseconds = 20;
inline constexpr int kShotMilliseconds = 30000;
/// What is shown settles for that long before it is taken.
inline constexpr int kCalmMilliseconds = 700;

enum Tab { kStation, kTrunked, kOptions, kHits };

/// One picture: what the radio is told, what the user does once the first condition holds, and what
/// is taken once the second does. Without a widget to take, it only prepares the next one.
struct Shot {
  QString file;
  QByteArray radio;
  std::function<bool()> ready;
  std::function<void()> act;
  std::function<bool()> shown;
  std::function<QWidget*()> what;
  /// Only that much of its height, if it isn't 0.
  int height = 0;
};

/// Takes the pictures of its list one after the other. Made by `main`; ends the program itself.
class Photographer {
 public:
  /// `whole` is the size of the windows that are pictured whole; without one, the manual's pictures
  /// are made.
  Photographer(Program& program, const QString& folder, const QString& pipe, const QSize& whole)
      : program_(program), folder_(folder), radio_(pipe), whole_(whole) {
    if (!radio_.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
      std::fputs("No radio to steer.\n", stderr);
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

 private:
  void listShots();
  void listWindows();
  void addPages(const QString& radio, const QByteArray& first);
  void addDialog(const QString& radio, const char* action, const char* window);
  void look();
  void take(const Shot& shot);
  void save(const Shot& shot);
  [[nodiscard]] bool isSized() const;
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
  static QWidget* window(const QString& name);
  [[nodiscard]] bool isUpright() const {
    return dynamic_cast<tarnvex::shell::Form2*>(form()) != nullptr;
  }
  /// What the user does.
  void show(Tab tab) const {
    form()->SSTab1.setTab(tab);
    program_.windows.mainWindow()->resize(whole_.isValid() ? whole_ : QSize(kWidth, kHeight));
  }
  template <class Widget = QWidget>
  [[nodiscard]] Widget* find(const char* name) const {
    auto* window = program_.windows.mainWindow();
    return window == nullptr ? nullptr : window->findChild<Widget*>(name);
  }
  /// The frame of the "Options" page that a control stands in.
  [[nodiscard]] QWidget* frameOf(const char* name) const {
    auto* widget = find(name);
    return widget == nullptr ? nullptr : widget->parentWidget();
  }
  void choose(const char* action) const { find<QAction>(action)->trigger(); }
  void tickBanks() const;
  void showTicked(const char* name) const;
  static QWidget* withBanks(QWidget* dialog);
  void openLockouts() const;
  static void closeAll();

  /// As wide as the help shows it.
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
  std::vector<Shot> shots_;
  std::size_t at_ = 0;
  bool acted_ = false;
  std::optional<QDeadlineTimer> calm_;
};

}  // namespace tarnvex::pictures
