#pragma once

#include <QDialog>
#include <QProgressBar>
#include <functional>

#include "desktop/windows/binder.h"
#include "memory/apf_dialogs.h"
#include "memory/bank_dialog.h"
#include "search/lockouts.h"
#include "shell/about_form.h"
#include "trunking/fleet_map_form.h"
#include "trunking/system_type_form.h"

namespace tarnvex::desktop {

/// A dialog on the screen. It makes no decisions: its buttons are bound to the form's, and the
/// window's own close button asks the form.
class DialogWindow : public QDialog {
 public:
  /// `askToClose` runs in the core when the user closes the window without one of its buttons. If
  /// it is empty, only the buttons close the window.
  DialogWindow(platform::EventGate& gate, const platform::Window& form,
               std::function<void()> askToClose, QWidget* parent);

  [[nodiscard]] Binder& binder() { return binder_; }
  virtual void leaveScreen();
  void reject() override;

 private:
  Binder binder_;
  std::function<void()> askToClose_;
};

DialogWindow* makeApfDialog(memory::ApfForm& form, platform::EventGate& gate, QWidget* parent);
DialogWindow* makeBankDialog(memory::BankDialog& form, platform::EventGate& gate, QWidget* parent);
DialogWindow* makeAboutDialog(shell::frmAbout& form, platform::EventGate& gate, QWidget* parent);
DialogWindow* makeLockoutsDialog(search::frmLockouts& form, platform::EventGate& gate,
                                 QWidget* parent);
DialogWindow* makeSystemTypeDialog(trunking::Form3& form, platform::EventGate& gate,
                                   QWidget* parent);
DialogWindow* makeFleetMapDialog(trunking::Form5& form, platform::EventGate& gate, QWidget* parent);

/// A progress bar, visible while there is progress to show.
class ProgressBar : public QProgressBar {
 public:
  explicit ProgressBar(const memory::Progress& progress);

 private:
  platform::Connection changed_;
};

}  // namespace tarnvex::desktop
