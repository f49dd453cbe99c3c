#pragma once

#include <QBoxLayout>
#include <QMainWindow>
#include <QMenu>
#include <QTabWidget>
#include <memory>

#include "desktop/panel/radio_panel.h"
#include "desktop/ports/device_slots.h"
#include "desktop/windows/binder.h"
#include "desktop/windows/key_forwarder.h"
#include "desktop/windows/panel_binding.h"
#include "shell/bc245_form.h"
#include "shell/bc895_form.h"

namespace tarnvex::desktop {

/// A main window on the screen: the radio's front panel and the pages. It only puts them together
/// and makes no decisions. Closing it asks the form, which may refuse.
class MainWindow : public QMainWindow {
 public:
  /// Makes the text of the report that the user may copy.
  using Report = std::function<QString()>;

  MainWindow(shell::Form4& form, platform::EventGate& gate, DeviceSlots& devices,
             Report report = {});
  MainWindow(shell::Form2& form, platform::EventGate& gate, DeviceSlots& devices,
             Report report = {});

  [[nodiscard]] const link::LinkState& linkState() const { return form_.linkState; }
  /// Takes the window off the screen without asking.
  void leaveScreen();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  MainWindow(shell::MainForm& form, platform::EventGate& gate, Report report);
  void addMenus();
  QAction* addCommand(QMenu* menu, const char* name, const QString& caption,
                      void (shell::MainForm::*command)());
  QAction* addCommand(QMenu* menu, const char* name, const QString& caption,
                      platform::EventGate::Handler command);
  void copyReport();
  void place(RadioPanel* panel, QBoxLayout::Direction direction);
  void addPages(QWidget* options);
  void showTab();
  /// Progress of work that has no dialog of its own, at the end of the menu bar, where it moves
  /// nothing.
  void addProgress(const memory::Progress& progress);

  shell::MainForm& form_;
  KeyForwarder* keys_;
  Binder binder_;
  Report report_;
  QTabWidget* tabs_;
  QMenu* trunkedMenu_ = nullptr;
  std::unique_ptr<PanelBinding> panelBinding_;
};

}  // namespace tarnvex::desktop
