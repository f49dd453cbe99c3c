#pragma once

#include <QPointer>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "desktop/ports/device_slots.h"
#include "desktop/ports/qt_event_loop.h"
#include "desktop/ports/timer_driver.h"
#include "desktop/windows/dialog_window.h"
#include "desktop/windows/help_window.h"
#include "desktop/windows/main_window.h"
#include "desktop/windows/quick_view_window.h"
#include "shell/splash_form.h"
#include "shell/window_layer.h"

namespace tarnvex::desktop {

/// Puts the program's windows on the screen and drives their timers.
class QtWindows : public shell::WindowLayer {
 public:
  QtWindows(QtEventLoop& loop, platform::EventGate& gate, DeviceSlots& devices,
            platform::SettingsStore& settings, MainWindow::Report report = {})
      : loop_(loop),
        gate_(gate),
        devices_(devices),
        settings_(settings),
        report_(std::move(report)) {}
  ~QtWindows() override { removeAll(); }

  void openSplash(shell::Form1& form) override;
  void closeSplash() override;
  void openMain(shell::Form4& form) override;
  void openMain(shell::Form2& form) override;
  void closeMain() override;
  void showMain(bool shown) override;
  void openQuickView(shell::QuickView& form) override;
  void openQuickView(shell::Form9& form) override;
  void closeQuickView() override;
  void openNotice(const std::string& caption, const std::string& text) override;
  void closeNotice() override;
  void openDialog(memory::ApfForm& form, bool modal) override;
  void openDialog(memory::BankDialog& form, bool modal) override;
  void openDialog(search::frmLockouts& form, bool modal) override;
  void openDialog(trunking::Form3& form, bool modal) override;
  void openDialog(trunking::Form5& form, bool modal) override;
  void openDialog(shell::frmAbout& form, bool modal) override;
  void openDialog(shell::frmReceptionLog& form, bool modal) override;
  void closeDialog(const void* form) override;
  void raiseDialog(const void* form) override;
  void showHelp(shell::HelpView view) override;
  void rememberPlaces() override;
  void quit() override;

  /// Deletes all windows. Called after the program has ended and before the forms are destroyed.
  void removeAll();

  /// The main window on the screen, if there is one.
  [[nodiscard]] MainWindow* mainWindow() const { return main_; }

 private:
  /// `rotation` is the timer that steps through the banks.
  void driveTimers(shell::MainForm& form, platform::Timer& rotation);
  void present(MainWindow* window, const char* section);
  void showQuickView();
  HelpWindow& help();
  void showHelpPage(const QString& page);
  void addExitKey(QWidget* window);
  void presentDialog(const void* form, DialogWindow* dialog, bool modal);
  /// The parent for a new dialog: the front dialog, or the main window.
  [[nodiscard]] QWidget* dialogParent() const;

  QtEventLoop& loop_;
  platform::EventGate& gate_;
  DeviceSlots& devices_;
  platform::SettingsStore& settings_;
  MainWindow::Report report_;
  platform::Connection helpWanted_;
  /// The settings section of the main window's radio.
  std::string section_;
  /// While the windows are exchanged, how the previous main window was left.
  std::optional<LeftWindow> left_;
  QPointer<QWidget> splash_;
  QPointer<QWidget> notice_;
  QPointer<MainWindow> main_;
  QPointer<QuickViewWindow> quickView_;
  QPointer<HelpWindow> help_;
  std::map<const void*, QPointer<DialogWindow>> dialogs_;
  std::unique_ptr<TimerDriver> splashTimer_;
  std::vector<std::unique_ptr<TimerDriver>> timers_;
};

}  // namespace tarnvex::desktop
