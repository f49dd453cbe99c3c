#include "desktop/windows/qt_windows.h"

#include <QWindow>

#include "desktop/ports/text.h"
#include "desktop/windows/notices.h"

namespace tarnvex::desktop {

void QtWindows::removeAll() {
  delete splash_;
  delete notice_;
  delete quickView_;
  delete main_;
  delete help_;
}

void QtWindows::openSplash(shell::Form1& form) {
  splash_ = makeSplash();
  splash_->show();
  splashTimer_ = std::make_unique<TimerDriver>(form.Timer1, gate_);
}

void QtWindows::closeSplash() {
  if (splash_) {
    splash_->hide();
    splash_->deleteLater();
  }
}

void QtWindows::openMain(shell::Form4& form) {
  drive(form.Scantimer);
  drive(form.multiscan.timer);
  present(new MainWindow(form, gate_, devices_, report_));
}

void QtWindows::openMain(shell::Form2& form) {
  drive(form.Scantimer);
  drive(form.speed.timer);
  present(new MainWindow(form, gate_, devices_, report_));
}

void QtWindows::drive(platform::Timer& timer) {
  timers_.push_back(std::make_unique<TimerDriver>(timer, gate_));
}

void QtWindows::present(MainWindow* window) {
  main_ = window;
  window->show();
}

void QtWindows::closeMain() {
  timers_.clear();
  if (main_) {
    main_->leaveScreen();
    main_.clear();
  }
}

void QtWindows::showMain(bool shown) {
  if (!main_) {
    return;
  }
  // A window manager takes a window that comes back for a new one, unless it says where it was.
  if (shown && main_->windowHandle() != nullptr) {
    main_->windowHandle()->setPosition(main_->geometry().topLeft());
  }
  main_->setVisible(shown);
}

void QtWindows::openQuickView(shell::QuickView& form) {
  quickView_ = new QuickViewWindow(form, bc895Layout(), gate_);
  quickView_->follow(main_->linkState());
  quickView_->present();
}

void QtWindows::openQuickView(shell::Form9& form) {
  quickView_ = new QuickViewWindow(form, bc245Layout(), gate_);
  quickView_->follow(main_->linkState());
  quickView_->present();
}

void QtWindows::closeQuickView() {
  if (quickView_) {
    quickView_->leaveScreen();
    quickView_.clear();
  }
}

void QtWindows::openNotice(const std::string& caption, const std::string& text) {
  delete notice_;
  notice_ = makeNotice(toScreen(caption), toScreen(text), nullptr);
  notice_->show();
}

/// At once: the core is never on the stack of a notice, and a second switch may follow before the
/// event loop deletes the first notice.
void QtWindows::closeNotice() {
  delete notice_;
}

void QtWindows::openDialog(memory::ApfForm& form, bool modal) {
  presentDialog(&form, makeApfDialog(form, gate_, dialogParent()), modal);
}

void QtWindows::openDialog(memory::BankDialog& form, bool modal) {
  presentDialog(&form, makeBankDialog(form, gate_, dialogParent()), modal);
}

void QtWindows::openDialog(search::frmLockouts& form, bool modal) {
  presentDialog(&form, makeLockoutsDialog(form, gate_, dialogParent()), modal);
}

void QtWindows::openDialog(trunking::Form3& form, bool modal) {
  presentDialog(&form, makeSystemTypeDialog(form, gate_, dialogParent()), modal);
}

void QtWindows::openDialog(trunking::Form5& form, bool modal) {
  presentDialog(&form, makeFleetMapDialog(form, gate_, dialogParent()), modal);
}

void QtWindows::openDialog(shell::frmAbout& form, bool modal) {
  presentDialog(&form, makeAboutDialog(form, gate_, dialogParent()), modal);
}

QWidget* QtWindows::dialogParent() const {
  for (const auto& [form, dialog] : dialogs_) {
    if (dialog && dialog->isModal()) {
      return dialog;
    }
  }
  return main_;
}

void QtWindows::presentDialog(const void* form, DialogWindow* dialog, bool modal) {
  dialogs_[form] = dialog;
  dialog->setWindowModality(modal ? Qt::ApplicationModal : Qt::NonModal);
  dialog->show();
}

void QtWindows::closeDialog(const void* form) {
  const auto dialog = dialogs_.find(form);
  if (dialog == dialogs_.end()) {
    return;
  }
  if (dialog->second) {
    dialog->second->leaveScreen();
  }
  dialogs_.erase(dialog);
}

void QtWindows::raiseDialog(const void* form) {
  if (const auto dialog = dialogs_.find(form); dialog != dialogs_.end() && dialog->second) {
    dialog->second->raise();
    dialog->second->activateWindow();
  }
}

void QtWindows::showHelp(shell::HelpView view) {
  if (!help_) {
    help_ = new HelpWindow;
    help_->setAttribute(Qt::WA_DeleteOnClose);
  }
  help_->present(view);
}

void QtWindows::quit() {
  delete help_;
  if (main_) {
    main_->hide();
  }
  loop_.leave();
}

}  // namespace tarnvex::desktop
