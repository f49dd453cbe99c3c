#pragma once

#include <functional>
#include <memory>
#include <string>

#include "link/link_controls.h"
#include "link/link_state.h"
#include "link/radio_model.h"
#include "memory/channel_memory.h"
#include "memory/frequency_file.h"
#include "memory/plan_editor.h"
#include "memory/transfer.h"
#include "monitor/heard_rows.h"
#include "monitor/key_beep.h"
#include "monitor/keypad.h"
#include "monitor/poll_cycle.h"
#include "monitor/recording.h"
#include "platform/controls.h"
#include "platform/media_control.h"
#include "platform/non_copyable.h"
#include "platform/table.h"
#include "platform/window.h"
#include "search/custom_search.h"
#include "search/lockouts.h"
#include "shell/dialog_host.h"
#include "shell/quick_view.h"
#include "shell/services.h"
#include "shell/window_guard.h"

namespace tarnvex::shell {

/// What the main window needs from the program around it.
struct MainFormOutside {
  /// Called when the other model has answered.
  std::function<void()> switchScanner;
  /// Called when the program ends.
  std::function<void()> endProgram;
  WindowLayer& windows;
};

/// A main window: the pages, tables and controls that both radios' windows have, its serial port
/// and its poll timer. Only one main window is in use at a time.
///
/// After the construction comes `load`; then the poll runs until a `requestUnload` is accepted. The
/// form is destroyed only when no function of the core is on the stack.
class MainForm : private platform::NonCopyable {
  WindowGuard guard_;

 public:
  MainForm(const Services& services, MainFormOutside outside, const link::RadioModel& model);
  virtual ~MainForm();

  /// Reads the settings, opens the port and starts the poll. A step that fails is skipped.
  virtual void load() = 0;
  /// The user wants to close the window, with the menu, a panel key or the window's own close
  /// button. Asks the user, who may say no.
  void requestUnload();
  /// Offers to save the plan and closes the port. Ends the program unless the main windows are
  /// being switched.
  void unload();

  /// The File menu's commands on the plan.
  void mnuNew() { onPlan(&memory::FrequencyFile::NewPlan); }
  void mnuOpenConv() { onPlan(&memory::FrequencyFile::OpenPlan); }
  void mnuSaveConv() { onPlan(&memory::FrequencyFile::SavePlan); }
  void mnuOpenBackup() { onPlan(&memory::FrequencyFile::OpenBackup); }
  void mnuImport();
  void mnuExport();
  /// The Conventional menu's commands: transfers between plan and radio.
  void mnuUpload();
  void mnuDownload();
  void mnuReset();
  /// The Trunked menu's commands: transfers of the talkgroup IDs.
  virtual void mnuUploadTrunk() = 0;
  virtual void mnuOwnloadTrunk() = 0;
  /// The View menu's first command: the small window replaces the main window.
  void mnuQV();
  /// Its second command: shows the log of receptions, which closes with the main window.
  void mnuReceptions();
  /// The Help menu's commands.
  void mnuContents() { outside_.windows.showHelp(HelpView::Contents); }
  void mnuSearch() { outside_.windows.showHelp(HelpView::Search); }
  void mnuAbout();

  /// A character was typed while the tab strip, or a control that passes its keys on, had the
  /// focus.
  virtual void typeKey(char character) = 0;

  /// For the tables' clipboard and undo keys.
  [[nodiscard]] memory::PlanEditor& planEditor() { return planEditor_; }
  /// The folder of the recordings and the saved searches.
  [[nodiscard]] const std::string& programDirectory() const { return services_.programDirectory; }
  /// Visible while a recording is running.
  [[nodiscard]] const platform::Label& recordingLight() const { return recording.light; }

  platform::Window window;
  platform::TabStrip SSTab1{"SSTab1"};
  /// The file dialog. Its `FileName` is the current frequency file.
  std::unique_ptr<platform::CommonDialog> Dlg1;
  /// The file dialog of "Open Backup...".
  std::unique_ptr<platform::CommonDialog> backupDialog;

  /// Pages "Station Program" and "Trunked Data". `Combo3` jumps in the channel table; `trunkBank`
  /// and `Combo2` pick bank and scanlist of the talkgroup table.
  platform::Table MSFlexGrid1{"MSFlexGrid1", 301, 8};
  platform::Table MSFlexGrid2{"MSFlexGrid2", 1001, 4};
  platform::ComboBox trunkBank;
  platform::ComboBox Combo2;
  platform::ComboBox Combo3;

  platform::Timer Scantimer{25};
  /// The state of the port `MSComm1`.
  link::LinkState linkState;
  std::unique_ptr<platform::SerialPort> MSComm1;
  /// The rows of the two tables that are being received.
  monitor::HeardRows heardRows;
  std::unique_ptr<platform::MediaControl> MMControl1;

 protected:
  /// Those of the window: see `WindowGuard`.
  Services services_;
  const link::RadioModel& model_;
  memory::ChannelMemory memory_;
  memory::PlanEditor planEditor_{memory_};
  memory::FrequencyFile frequencyFile_;

 public:
  /// Page "Options", apart from what only one radio has.
  link::LinkControls linkControls;
  monitor::KeyBeep keyBeep;
  monitor::Recording recording;
  monitor::SwitchBox Check6;
  search::CustomSearch customSearch;
  /// Page "Search Results".
  monitor::HitLists hitLists;

 protected:
  /// The radio's front panel.
  [[nodiscard]] virtual monitor::PanelBase& front() = 0;
  [[nodiscard]] monitor::PollOutside pollOutside();
  [[nodiscard]] monitor::KeypadOutside keypadOutside();

  /// The parts of this window that a transfer uses.
  [[nodiscard]] memory::TransferWindow transferWindow();
  [[nodiscard]] memory::TransferOutside transferOutside();
  /// A step of `load`: the tables' boxes show their first bank and group.
  void chooseFirstBanks();
  /// Loads and shows a dialog. It is modal if this radio's dialogs are.
  template <class Form, class... Arguments>
  void showDialog(Arguments&&... arguments) {
    dialogHost_.show<Form>(
        [&] { return std::make_shared<Form>(std::forward<Arguments>(arguments)...); },
        model_.modalDialogs,
        [](Form& form) {
          if constexpr (requires { form.load(); }) {
            form.load();
          }
        });
  }
  /// Creates the small window's form and shows it.
  virtual std::shared_ptr<QuickViewForm> openQuickView(WindowLayer& windows) = 0;
  /// Called when the window closes.
  virtual void releaseSound() {}

 private:
  /// A command of the File menu. One that comes while the window is closing is too late.
  void onPlan(void (memory::FrequencyFile::*command)());
  void leave();
  void setUpBankBoxes();
  template <class Form>
  void showApf();
  void showLockouts();
  void askSystemType();
  void closeQuickView();

  MainFormOutside outside_;
  DialogHost dialogHost_;
  std::shared_ptr<QuickViewForm> quickView_;
  platform::Connection quickViewClosed_;
  bool asking_ = false;
};

}  // namespace tarnvex::shell
