#pragma once

#include <QBoxLayout>
#include <QMainWindow>
#include <QMenu>
#include <QTabWidget>
#include <memory>
#include <optional>

#include "desktop/panel/radio_panel.h"
#include "desktop/ports/device_slots.h"
#include "desktop/windows/binder.h"
#include "desktop/windows/key_forwarder.h"
#include "desktop/windows/main_menus.h"
#include "desktop/windows/panel_binding.h"
#include "desktop/windows/plan_table.h"
#include "desktop/windows/window_memory.h"
#include "shell/bc245_form.h"
#include "shell/bc895_form.h"

namespace tarnvex::desktop {

/// A main window on the screen: the radio's front panel and the pages. It only puts them together
/// and makes no decisions. Closing it asks the form, which may refuse.
class MainWindow : public QMainWindow {
 public:
  /// Returns the text of the report that the user can copy.
  using Report = std::function<QString()>;

  MainWindow(shell::Form4& form, platform::EventGate& gate, DeviceSlots& devices,
             Report report = {});
  MainWindow(shell::Form2& form, platform::EventGate& gate, DeviceSlots& devices,
             Report report = {});

  [[nodiscard]] const link::LinkState& linkState() const { return form_.linkState; }
  [[nodiscard]] const platform::Label& recordingLight() const { return form_.recordingLight(); }
  /// The user wants help. The argument is the manual's page for what is in front.
  platform::Notifier<QString> helpWanted;

  /// Restores the window as it was left, and fits it to the present screens. If it replaces the
  /// other radio's window, it takes that one's place. Without a place, the desktop chooses one.
  /// Called before it is shown.
  void restore(const WindowMemory& memory, const std::optional<LeftWindow>& before = {});
  /// Stores the window's state for the next start.
  void remember(WindowMemory& memory) const;
  /// Closes the window without asking.
  void leaveScreen();
  [[nodiscard]] LeftWindow left() const;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  MainWindow(shell::MainForm& form, platform::EventGate& gate, Report report);
  void addTabs();
  void addMenus();
  QMenu* addMenu(const char* name, const QString& caption, std::span<const MenuCommand> commands);
  void addExit(QMenu* menu);
  void addHelpHere(QMenu* menu);
  void copyReport();
  /// Marks the channel or talkgroup that is being received in its table.
  void markReception();
  void restorePlace(const WindowMemory& memory, const std::optional<LeftWindow>& before);
  void restorePages(const WindowMemory& memory);
  /// The tables of channels and of talkgroups.
  [[nodiscard]] QVector<PlanTable*> tables() const;
  template <class Form>
  void addPanel(Form& form, PanelLayout front, QBoxLayout::Direction direction);
  void addPages(QWidget* options);
  void showTab();
  /// Shows the progress of work without a dialog of its own at the end of the menu bar, where it
  /// doesn't move anything.
  void addProgress(const memory::Progress& progress);

  shell::MainForm& form_;
  KeyForwarder* keys_;
  Binder binder_;
  Report report_;
  QTabWidget* tabs_;
  RadioPanel* panel_ = nullptr;
  bool panelIsAbove_ = false;
  QMenu* trunkedMenu_ = nullptr;
  std::unique_ptr<PanelBinding> panelBinding_;
};

}  // namespace tarnvex::desktop
